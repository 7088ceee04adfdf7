#include "MapEditor3D/generators/DungeonGenerator.h"

#include "Game/Map/MapPlan.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <numeric>
#include <set>

namespace varn::generator {
namespace {

constexpr int kWall = 1;
constexpr int kDoor = 2;

struct Recipe
{
    std::uint32_t seed;
    int cols, rows;
    GeneratorOptions options;
};

struct Dungeon
{
    WizMap map;
    std::vector<Rect> rooms;
    Array2D<int> regions;
    std::uint32_t wordBehind = 0; ///< the stream's next word: a measure of the draws taken
};

Dungeon generate(const Recipe& recipe)
{
    Random random;
    random.seed(recipe.seed);
    DungeonGenerator generator(recipe.options, random);
    Dungeon dungeon;
    dungeon.map.cols = recipe.cols;
    dungeon.map.rows = recipe.rows;
    generator.generate(dungeon.map);
    dungeon.rooms = generator.getRooms();
    dungeon.regions = generator.getRegions();
    dungeon.wordBehind = random.word();
    return dungeon;
}

std::vector<Recipe> recipes()
{
    std::vector<Recipe> all;
    std::uint32_t seed = 1;
    const std::pair<int, int> sizes[] = {{1, 1},   {1, 9},   {9, 1},   {2, 2},    {3, 5},
                                         {20, 20}, {33, 17}, {60, 50}, {100, 100}};
    for (const auto& [cols, rows] : sizes) {
        for (const Layout layout : {Layout::Random, Layout::Symmetric}) {
            for (const int passageway : {0, 40, 100}) {
                const GeneratorOptions options = {
                    .layout = layout, .deadEnds = DeadEnds::AsIs, .passageway = passageway};
                all.push_back({seed++, cols, rows, options});
            }
        }
    }
    return all;
}

std::string nameOf(const Recipe& recipe)
{
    return std::to_string(recipe.cols) + " by " + std::to_string(recipe.rows) + " seed " +
           std::to_string(recipe.seed);
}

/// Calls `visit(a, b, kind)` for each inner edge; cells are numbered y * cols + x.
template <class Visit>
void eachInnerEdge(const WizMap& map, Visit visit)
{
    for (int y = 0; y < map.rows; ++y) {
        for (int x = 0; x < map.cols; ++x) {
            const int cell = y * map.cols + x;
            if (x + 1 < map.cols)
                visit(cell, cell + 1, map.cellAt(x, y).east);
            if (y + 1 < map.rows)
                visit(cell, cell + map.cols, map.cellAt(x, y).south);
        }
    }
}

/// Sets of cells that are joined, by union and find.
class Joined
{
  public:
    explicit Joined(int count) : parents(static_cast<std::size_t>(count))
    {
        std::iota(parents.begin(), parents.end(), 0);
    }
    int find(int cell)
    {
        while (at(cell) != cell)
            cell = at(cell) = at(at(cell));
        return cell;
    }
    void join(int a, int b) { at(find(a)) = find(b); }

  private:
    int& at(int cell) { return parents[static_cast<std::size_t>(cell)]; }
    std::vector<int> parents;
};

int countOpen(const WizMapData& cell)
{
    return (cell.north != kWall) + (cell.east != kWall) + (cell.south != kWall) +
           (cell.west != kWall);
}

/// The rule for dead ends as it is told: whole passes in row order, until one changes nothing.
void treatDeadEndsByPasses(WizMap& map, DeadEnds option)
{
    bool changed = true;
    while (changed) {
        changed = false;
        for (int y = 0; y < map.rows; ++y) {
            for (int x = 0; x < map.cols; ++x) {
                WizMapData& cell = map.cellAt(x, y);
                if (cell.floor != 0 || countOpen(cell) != 1)
                    continue;
                for (const Direction side : kSides) {
                    if (cell.wall(side) != kWall) {
                        map.setWall(option == DeadEnds::Door ? kDoor : kWall, side, x, y);
                        break;
                    }
                }
                if (option == DeadEnds::None) {
                    cell.floor = 1;
                    changed = true;
                }
            }
        }
    }
    for (int y = 0; y < map.rows; ++y) {
        for (int x = 0; x < map.cols; ++x) {
            if (map.cellAt(x, y).floor != 1)
                continue;
            if (x + 1 < map.cols && map.cellAt(x + 1, y).floor == 1)
                map.setWall(0, Direction::East, x, y);
            if (y + 1 < map.rows && map.cellAt(x, y + 1).floor == 1)
                map.setWall(0, Direction::South, x, y);
        }
    }
}

TEST(DungeonGenerator, WallsPairUpAndTheOuterOnesStand)
{
    for (const Recipe& recipe : recipes()) {
        for (const DeadEnds deadEnds : {DeadEnds::None, DeadEnds::Door, DeadEnds::AsIs}) {
            Recipe with = recipe;
            with.options.deadEnds = deadEnds;
            const WizMap map = generate(with).map;
            bool paired = true, closed = true, known = true;
            for (int y = 0; y < map.rows; ++y) {
                for (int x = 0; x < map.cols; ++x) {
                    const WizMapData& cell = map.cellAt(x, y);
                    paired &= cell.east == map.cellAt(x + 1, y).west;
                    paired &= cell.south == map.cellAt(x, y + 1).north;
                    closed &= (x > 0 || cell.west == kWall) && (y > 0 || cell.north == kWall);
                    for (const Direction side : kSides)
                        known &= cell.wall(side) <= kDoor;
                }
            }
            EXPECT_TRUE(paired && closed && known) << nameOf(with);
        }
    }
}

TEST(DungeonGenerator, JoinsEachPairOfNeighbouringRegionsByOneDoor)
{
    for (const Recipe& recipe : recipes()) {
        const Dungeon dungeon = generate(recipe);
        const auto regionOf = [&](int cell) {
            return dungeon.regions.at(cell % recipe.cols, cell / recipe.cols);
        };
        std::map<std::pair<int, int>, int> doors;
        bool onlyWalls = true, nothingInside = true;
        eachInnerEdge(dungeon.map, [&](int a, int b, int kind) {
            const auto pair = std::minmax({regionOf(a), regionOf(b)});
            if (pair.first == pair.second) {
                nothingInside &= kind != kDoor;
                return;
            }
            doors[pair] += kind == kDoor;
            onlyWalls &= kind == kDoor || kind == kWall;
        });
        EXPECT_TRUE(onlyWalls && nothingInside) << nameOf(recipe);
        for (const auto& [pair, count] : doors)
            EXPECT_EQ(count, 1) << nameOf(recipe) << " regions " << pair.first << ' '
                                << pair.second;
    }
}

TEST(DungeonGenerator, RegionsAreOpenRoomsAndPerfectMazes)
{
    for (const Recipe& recipe : recipes()) {
        const Dungeon dungeon = generate(recipe);
        const int cells = recipe.cols * recipe.rows;
        Joined joined(cells);
        std::map<int, int> openings; // inside each region
        const auto regionOf = [&](int cell) {
            return dungeon.regions.at(cell % recipe.cols, cell / recipe.cols);
        };
        eachInnerEdge(dungeon.map, [&](int a, int b, int kind) {
            if (kind == 0) {
                joined.join(a, b);
                ++openings[regionOf(a)];
            }
        });
        std::map<int, std::set<int>> parts;
        std::map<int, int> sizes;
        for (int cell = 0; cell < cells; ++cell) {
            parts[regionOf(cell)].insert(joined.find(cell));
            ++sizes[regionOf(cell)];
        }
        const int rooms = static_cast<int>(dungeon.rooms.size());
        for (const auto& [region, size] : sizes) {
            EXPECT_EQ(parts[region].size(), 1U) << nameOf(recipe) << " region " << region;
            if (region >= rooms) {
                EXPECT_EQ(openings[region], size - 1) << nameOf(recipe) << " region " << region;
                continue;
            }
            const Rect& room = dungeon.rooms[static_cast<std::size_t>(region)];
            EXPECT_EQ(size, room.width * room.height) << nameOf(recipe) << " region " << region;
            EXPECT_EQ(openings[region], 2 * size - room.width - room.height) << nameOf(recipe);
            EXPECT_EQ(dungeon.regions.at(room.left, room.top), region);
            EXPECT_EQ(dungeon.regions.at(room.right - 1, room.bottom - 1), region);
        }
    }
}

TEST(DungeonGenerator, TreatsDeadEndsAsWholePassesWould)
{
    for (const Recipe& recipe : recipes()) {
        const Dungeon asIs = generate(recipe);
        for (const DeadEnds option : {DeadEnds::None, DeadEnds::Door}) {
            Recipe treated = recipe;
            treated.options.deadEnds = option;
            const Dungeon dungeon = generate(treated);
            WizMap expected = asIs.map;
            treatDeadEndsByPasses(expected, option);
            EXPECT_TRUE(dungeon.map.cells == expected.cells) << nameOf(recipe);
            EXPECT_EQ(dungeon.wordBehind, asIs.wordBehind) << "draws nothing";
        }
    }
}

TEST(DungeonGenerator, LeavesSolidRockAndNoDeadEnds)
{
    for (Recipe recipe : recipes()) {
        recipe.options.deadEnds = DeadEnds::None;
        const WizMap map = generate(recipe).map;
        Joined joined(map.cols * map.rows);
        bool solid = true;
        eachInnerEdge(map, [&](int a, int b, int kind) {
            const auto rock = [&](int cell) {
                return map.cellAt(cell % map.cols, cell / map.cols).floor == 1;
            };
            solid &= rock(a) && rock(b) ? kind == 0 : !(rock(a) || rock(b)) || kind == kWall;
            if (kind != kWall)
                joined.join(a, b);
        });
        EXPECT_TRUE(solid) << nameOf(recipe);
        std::set<int> carvedParts;
        for (int cell = 0; cell < map.cols * map.rows; ++cell) {
            const WizMapData& data = map.cellAt(cell % map.cols, cell / map.cols);
            if (data.floor == 0) {
                carvedParts.insert(joined.find(cell));
                EXPECT_NE(countOpen(data), 1) << nameOf(recipe) << " cell " << cell;
            }
        }
        EXPECT_LE(carvedParts.size(), 1U) << nameOf(recipe);
    }
}

TEST(DungeonGenerator, MirrorsRoomsOnTheMiddle)
{
    for (const Recipe& recipe : recipes()) {
        if (recipe.options.layout != Layout::Symmetric)
            continue;
        const Dungeon dungeon = generate(recipe);
        const int middle = recipe.cols / 2;
        for (const Rect& room : dungeon.rooms) {
            if (room.left < middle && middle < room.right) {
                EXPECT_EQ(room.width % 2, 0) << nameOf(recipe);
                EXPECT_EQ(room.left, middle - room.width / 2) << nameOf(recipe);
                continue;
            }
            // The twin stands too, unless another room stood in its place.
            const Rect twin(recipe.cols - room.left - room.width, room.top, room.width,
                            room.height);
            bool found = false;
            for (const Rect& other : dungeon.rooms)
                found |= other == twin || other.overlaps(twin);
            EXPECT_TRUE(found) << nameOf(recipe);
        }
    }
}

TEST(DungeonGenerator, IsRepeatedByItsSeed)
{
    const Recipe recipe = {77, 40, 30, {}};
    Recipe other = recipe;
    other.seed = 78;
    EXPECT_TRUE(generate(recipe).map.cells == generate(recipe).map.cells);
    EXPECT_FALSE(generate(recipe).map.cells == generate(other).map.cells);

    // A generator that runs again goes on in the stream, and starts its regions anew.
    Random random;
    random.seed(77);
    DungeonGenerator generator({}, random);
    WizMap first;
    generator.generate(first);
    WizMap second;
    generator.generate(second);
    EXPECT_FALSE(first.cells == second.cells);
    EXPECT_EQ(generator.getRegions().at(generator.getRooms()[0].left, generator.getRooms()[0].top),
              0);
}

TEST(DungeonGenerator, StraighterPassagesTurnLess)
{
    const auto straightCells = [](int passageway) {
        const GeneratorOptions options = {.deadEnds = DeadEnds::AsIs, .passageway = passageway};
        const WizMap map = generate({5, 100, 100, options}).map;
        return std::count_if(map.cells.begin(), map.cells.end(), [](const WizMapData& cell) {
            return countOpen(cell) == 2 && (cell.north == cell.south) && (cell.east == cell.west);
        });
    };
    EXPECT_GT(straightCells(100), 2 * straightCells(0));
}

TEST(DungeonGenerator, TouchesOnlyTheCellsOfTheMap)
{
    WizMap map;
    map.cols = 10;
    map.rows = 6;
    map.cells[10].floor = 9;
    map.cells[6 * kMapStride].floor = 9;
    map.areas.paint(1, 0, 0);
    DungeonGenerator().generate(map);
    EXPECT_EQ(map.cells[10], (WizMapData{.floor = 9}));
    EXPECT_EQ(map.cells[6 * kMapStride], (WizMapData{.floor = 9}));
    EXPECT_EQ(map.areas.size(), 1U);
}

// What a seed names must stay. Both plans came from a second program written from the rules alone.
TEST(DungeonGenerator, KeepsTheDungeonOfASeed)
{
    using Plan = std::vector<std::string>;
    EXPECT_EQ(
        test::planOf(generate({2024, 12, 8, {}}).map),
        (Plan{"+--+--+--+--+--+--+--+--+--+--+--+--+", "|  D  D        D        D        |01|",
              "+  +--+  +  +  +  +  +  +  +  +  +  +", "|  |01|        |        |        |01|",
              "+  +--+DD+DD+--+  +  +  +--+DD+--+  +", "|  |  D  D     D        |     |01 01|",
              "+  +  +--+--+DD+--+--+DD+  +--+--+--+", "|  |  |01 01|              D        |",
              "+  +  +--+--+--+--+--+--+  +  +  +  +", "|                          |        |",
              "+--+--+--+--+  +--+--+--+  +  +  +  +", "|01 01 01 01|  |        |  |        |",
              "+  +  +--+--+  +  +  +  +  +  +  +  +", "|01 01|     |  |        |  |        |",
              "+  +  +  +  +  +DD+--+DD+DD+DD+--+--+", "|01 01|     D     |01|     D  |01 01|",
              "+--+--+--+--+--+--+--+--+--+--+--+--+"}));
    const GeneratorOptions options = {
        .layout = Layout::Symmetric, .deadEnds = DeadEnds::Door, .passageway = 100};
    EXPECT_EQ(test::planOf(generate({7, 9, 6, options}).map),
              (Plan{"+--+--+--+--+--+--+--+--+--+", "|     D           D  D     |",
                    "+  +  +  +  +  +  +DD+  +  +", "|     |           D  D     |",
                    "+DD+DD+  +  +  +  +  +DD+DD+", "|  D  D           |  D  D  |",
                    "+  +DD+DD+DD+DD+--+DD+DD+  +", "|  D     D  D     D     D  |",
                    "+DD+DD+DD+DD+DD+--+DD+DD+DD+", "|  D  |           |  |  D  |",
                    "+DD+  +  +  +  +  +  +  +DD+", "|  |  D           D  D  |  |",
                    "+--+--+--+--+--+--+--+--+--+"}));
}

} // namespace
} // namespace varn::generator
