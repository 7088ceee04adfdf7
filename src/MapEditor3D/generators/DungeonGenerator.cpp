#include "MapEditor3D/generators/DungeonGenerator.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <utility>

namespace varn::generator {

namespace {

constexpr int kRock = 1;
constexpr int kCarved = 0;

// The order in which neighbours are looked at; the connectors have their own.
constexpr Direction kNeighbours[] = {Direction::North, Direction::South, Direction::West,
                                     Direction::East};
constexpr Direction kConnectors[] = {Direction::North, Direction::South, Direction::East,
                                     Direction::West};

/// Cells by their number, y * cols + x, to be gone through in ascending order.
class CellSet
{
  public:
    explicit CellSet(int count) : count(count), words(static_cast<std::size_t>(count) / 64 + 1) {}

    void add(int cell) { words[wordOf(cell)] |= std::uint64_t{1} << (cell % 64); }

    /// Takes the first cell at or behind `from` out of the set; `count` when there is none.
    int take(int from)
    {
        std::size_t word = wordOf(from);
        std::uint64_t ahead = words[word] & (~std::uint64_t{0} << (from % 64));
        while (ahead == 0) {
            if (++word == words.size())
                return count;
            ahead = words[word];
        }
        const std::uint64_t lowest = ahead & -ahead;
        words[word] ^= lowest;
        return static_cast<int>(word) * 64 + std::countr_zero(lowest);
    }

  private:
    static std::size_t wordOf(int cell) { return static_cast<std::size_t>(cell) / 64; }

    int count;
    std::vector<std::uint64_t> words;
};

} // namespace

DungeonGenerator::DungeonGenerator(const GeneratorOptions& options, Random& random)
    : random(random), layout(options.layout), deadEnds(options.deadEnds),
      roomTries(options.roomTries), roomExtraSize(options.roomExtraSize),
      windingPercent(100 - options.passageway)
{}

void DungeonGenerator::generate(WizMap& target)
{
    map = &target;
    rows = target.rows;
    cols = target.cols;
    rooms.clear();
    regions = Array2D<int>(cols, rows);
    currentRegion = -1;

    fillWithRock();
    addRooms();
    growMazes();
    connectRegions();
    if (deadEnds == DeadEnds::Door)
        closeDeadEnds();
    else if (deadEnds == DeadEnds::None)
        fillDeadEnds();
    openSolidRock();
}

void DungeonGenerator::fillWithRock()
{
    constexpr WizMapData rock = {.north = WallKind::Wall,
                                 .east = WallKind::Wall,
                                 .south = WallKind::Wall,
                                 .west = WallKind::Wall,
                                 .floor = kRock};
    for (int y = 0; y < rows; ++y) {
        for (int x = 0; x < cols; ++x)
            map->cellAt(x, y) = rock;
    }
}

void DungeonGenerator::setTile(int x, int y, Direction direction, int value)
{
    if (direction == Direction::None)
        map->cellAt(x, y).floor = static_cast<std::uint8_t>(value);
    else
        map->setWall(value, direction, x, y);
}

void DungeonGenerator::carve(int x, int y, Direction direction, int value)
{
    setTile(x, y, direction, value);
    regions.at(x, y) = currentRegion;
}

/// One of `count` places. The greatest word of the stream would pass the last one.
std::size_t DungeonGenerator::pick(std::size_t count)
{
    const int last = static_cast<int>(count) - 1;
    return static_cast<std::size_t>(std::min(random.range(0, last), last));
}

void DungeonGenerator::addRooms()
{
    for (int i = 0; i < roomTries; ++i) {
        const int size = random.range(1, roomExtraSize + 3);
        const int rectangularity = random.range(0, size / 2 + 1);
        const bool wide = random.range(0, 1) != 0;
        const int width = wide ? size + rectangularity : size;
        const int height = wide ? size : size + rectangularity;
        if (width == 1 && height == 1)
            continue;
        const int x = random.range(0, cols - width);
        const int y = random.range(0, rows - height);
        placeRoom(x, y, width, height);
    }
}

void DungeonGenerator::placeRoom(int x, int y, int width, int height)
{
    if (layout == Layout::Random) {
        addRoom({x, y, width, height});
        return;
    }
    const int middle = cols / 2;
    if (x < middle && middle < x + width) {
        width += width % 2;
        addRoom({middle - width / 2, y, width, height});
        return;
    }
    addRoom({x, y, width, height});
    addRoom({cols - x - width, y, width, height});
}

void DungeonGenerator::addRoom(const Rect& room)
{
    const bool inside =
        room.left >= 0 && room.top >= 0 && room.right <= cols && room.bottom <= rows;
    const auto overlaps = [&](const Rect& other) { return room.overlaps(other); };
    if (!inside || std::any_of(rooms.begin(), rooms.end(), overlaps))
        return;

    rooms.push_back(room);
    ++currentRegion;
    for (int y = room.top; y < room.bottom; ++y) {
        for (int x = room.left; x < room.right; ++x) {
            carve(x, y, Direction::None, kCarved);
            if (y != room.top)
                carve(x, y, Direction::North, WallKind::None);
            if (x != room.left)
                carve(x, y, Direction::West, WallKind::None);
            if (y != room.bottom - 1)
                carve(x, y, Direction::South, WallKind::None);
            if (x != room.right - 1)
                carve(x, y, Direction::East, WallKind::None);
        }
    }
}

void DungeonGenerator::growMazes()
{
    for (int y = 0; y < rows; ++y) {
        for (int x = 0; x < cols; ++x) {
            if (isRock(x, y))
                growMaze(x, y);
        }
    }
}

void DungeonGenerator::growMaze(int startX, int startY)
{
    ++currentRegion;
    std::vector<MapCell> stack = {{startX, startY}};
    std::vector<Direction> candidates;
    Direction last = Direction::None;
    while (!stack.empty()) {
        const auto [x, y] = stack.back();
        carve(x, y, Direction::None, kCarved);
        candidates.clear();
        for (const Direction side : kNeighbours) {
            if (isRock(x + side.dx(), y + side.dy()))
                candidates.push_back(side);
        }
        if (candidates.empty()) {
            stack.pop_back();
            last = Direction::None;
            continue;
        }
        last = chooseDirection(candidates, last);
        carve(x, y, last, WallKind::None);
        stack.push_back({x + last.dx(), y + last.dy()});
    }
}

Direction DungeonGenerator::chooseDirection(const std::vector<Direction>& candidates,
                                            Direction last)
{
    const bool canGoOn = std::find(candidates.begin(), candidates.end(), last) != candidates.end();
    if (canGoOn && random.range(0, 100) > windingPercent)
        return last;
    return candidates[pick(candidates.size())];
}

std::vector<ConnectorRegion> DungeonGenerator::findConnectors() const
{
    std::vector<ConnectorRegion> list;
    for (int y = 0; y < rows; ++y) {
        for (int x = 0; x < cols; ++x) {
            ConnectorRegion record{x, y, regions.at(x, y), {}};
            for (const Direction side : kConnectors) {
                int neighbour = 0;
                if (regions.read(x + side.dx(), y + side.dy(), neighbour) &&
                    neighbour != record.region)
                    record.connectors.push_back({side, neighbour});
            }
            if (!record.connectors.empty())
                list.push_back(std::move(record));
        }
    }
    return list;
}

void DungeonGenerator::connectRegions()
{
    std::vector<ConnectorRegion> list = findConnectors();
    while (list.size() >= 2) {
        const ConnectorRegion& record = list[pick(list.size())];
        const auto connector = record.connectors[pick(record.connectors.size())];
        const int regionA = record.region;
        const int regionB = connector.region;
        random.range(1, 4); // decides nothing; later draws come behind it
        setTile(record.x, record.y, connector.direction, WallKind::Door);

        for (ConnectorRegion& other : list) {
            if (other.region != regionA && other.region != regionB)
                continue;
            const int joined = other.region == regionA ? regionB : regionA;
            std::erase_if(other.connectors, [&](const auto& c) { return c.region == joined; });
        }
        std::erase_if(list, [](const auto& other) { return other.connectors.empty(); });
    }
}

/// The side of the one edge of a carved cell that is no wall; nothing where there are more or none.
std::optional<Direction> DungeonGenerator::soleOpening(int x, int y) const
{
    const WizMapData& cell = map->cellAt(x, y);
    std::optional<Direction> opening;
    if (cell.floor != kCarved)
        return opening;
    for (const Direction side : kNeighbours) {
        if (cell.wall(side) == WallKind::Wall)
            continue;
        if (opening)
            return std::nullopt;
        opening = side;
    }
    return opening;
}

void DungeonGenerator::closeDeadEnds()
{
    for (int y = 0; y < rows; ++y) {
        for (int x = 0; x < cols; ++x) {
            if (const auto opening = soleOpening(x, y))
                setTile(x, y, *opening, WallKind::Door);
        }
    }
}

/// Passes in row order until one fills nothing. Only a cell beside one just filled can become a
/// dead end, so those alone are looked at again: in the same pass where they lie ahead, else in the
/// next.
void DungeonGenerator::fillDeadEnds()
{
    const int count = cols * rows;
    CellSet pass(count);
    CellSet nextPass(count);
    for (int cell = 0; cell < count; ++cell)
        pass.add(cell);

    for (bool changed = true; changed; std::swap(pass, nextPass)) {
        changed = false;
        for (int cell = pass.take(0); cell < count; cell = pass.take(cell)) {
            const int x = cell % cols;
            const int y = cell / cols;
            const auto opening = soleOpening(x, y);
            if (!opening)
                continue;
            setTile(x, y, Direction::None, kRock);
            setTile(x, y, *opening, WallKind::Wall);
            const int neighbour = cell + opening->dy() * cols + opening->dx();
            (neighbour > cell ? pass : nextPass).add(neighbour);
            changed = true;
        }
    }
}

void DungeonGenerator::openSolidRock()
{
    for (int y = 0; y < rows; ++y) {
        for (int x = 0; x < cols; ++x) {
            if (!isRock(x, y))
                continue;
            for (const Direction side : kNeighbours) {
                if (isRock(x + side.dx(), y + side.dy()))
                    setTile(x, y, side, WallKind::None);
            }
        }
    }
}

} // namespace varn::generator
