#include "Game/Map/WizMap.h"

#include "Game/Database/SystemDatabase.h"

#include <algorithm>
#include <utility>

namespace varn {

namespace {

std::size_t indexOfCell(int x, int y)
{
    return static_cast<std::size_t>(y) * kMapStride + static_cast<std::size_t>(x);
}

bool exchange(std::uint8_t& wall, std::uint8_t kind)
{
    return std::exchange(wall, kind) != kind;
}

} // namespace

bool WizMap::setWall(int kind, Direction side, int x, int y)
{
    const auto beyond = [](int place, int size) { return place < 0 || place >= size; };
    if (beyond(x, cols) && beyond(y, rows))
        return false;

    const auto byte = static_cast<std::uint8_t>(kind);
    const bool here = exchange(cellAt(x, y).wall(side), byte);
    WizMapData& neighbour =
        cellAt(wrapOnRing(x, cols) + side.dx(), wrapOnRing(y, rows) + side.dy());
    const bool there = exchange(neighbour.wall(side.opposite()), byte);
    return here || there;
}

void WizMap::shiftMap(int dx, int dy)
{
    WizMapCells moved;
    for (int y = 0; y < rows; ++y) {
        for (int x = 0; x < cols; ++x) {
            const int toX = wrapOnRing(std::int64_t{x} + dx, cols);
            const int toY = wrapOnRing(std::int64_t{y} + dy, rows);
            moved[indexOfCell(toX, toY)] = cells[indexOfCell(x, y)];
        }
    }
    for (int y = 0; y < rows; ++y)
        std::copy_n(&moved[indexOfCell(0, y)], cols, &cells[indexOfCell(0, y)]);

    for (const auto& event : events.list()) {
        event->x = wrapOnRing(std::int64_t{event->x} + dx, cols);
        event->y = wrapOnRing(std::int64_t{event->y} + dy, rows);
    }
}

void WizMap::rotateMap()
{
    WizMapCells turned{};
    for (int y = 0; y < rows; ++y) {
        for (int x = 0; x < cols; ++x) {
            const WizMapData& old = cells[indexOfCell(x, y)];
            turned[indexOfCell(y, cols - 1 - x)] = {.north = old.east,
                                                    .east = old.south,
                                                    .south = old.west,
                                                    .west = old.north,
                                                    .floor = old.floor};
        }
    }
    cells = turned;
    std::swap(rows, cols);
}

void WizMap::reflectMap()
{
    for (int y = 0; y < rows; ++y) {
        for (int i = 0; i < cols / 2; ++i) {
            WizMapData& left = cells[indexOfCell(i, y)];
            WizMapData& right = cells[indexOfCell(cols - 1 - i, y)];
            std::swap(left, right);
            std::swap(left.east, left.west);
            std::swap(right.east, right.west);
        }
    }
}

bool WizMap::setVisibleDistance(std::int32_t distance)
{
    visibleDistance = std::min(distance, std::int32_t{kMaxVisibleDistance});
    fogStep =
        static_cast<std::int32_t>(255 / (std::max<std::int64_t>(getVisibleDistance(), 0) + 1));
    return distance <= kMaxVisibleDistance;
}

std::int32_t WizMap::getVisibleDistance() const
{
    if (light.active)
        return kMaxVisibleDistance;
    if (visibleDistance >= 1)
        return visibleDistance;
    const SystemDatabaseData* system = SystemDatabase::instance().getData();
    return system != nullptr ? system->getDefaultVisibleDistance() : 2;
}

void WizMap::copyPropertiesFrom(const WizMap& other)
{
    WString ownName = std::move(fileName);
    AbstractMap::operator=(other);
    fileName = std::move(ownName);

    WizMapProperties::operator=(other);
    imageNames = other.imageNames;
    visibleDistance = other.visibleDistance;
    fogStep = other.fogStep;
    rows = other.rows;
    cols = other.cols;
}

void WizMap::clear()
{
    events.clear();
    areas.clear();
    cells = {};
}

} // namespace varn
