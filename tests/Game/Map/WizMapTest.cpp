#include "Game/Map/WizMap.h"

#include "Game/Map/MapPlan.h"

#include <gtest/gtest.h>
#include <random>

namespace varn {
namespace {

using test::mapFrom;
using test::planOf;
using Plan = std::vector<std::string>;

TEST(Direction, TurnsAndNames)
{
    const struct
    {
        int value, right, left, opposite;
        WStringView text;
    } cases[] = {
        {1, 2, 8, 4, u"North"}, {2, 4, 1, 8, u"East"}, {4, 8, 2, 1, u"South"},
        {8, 1, 4, 2, u"West"},  {0, 0, 8, 4, u"None"}, {3, 6, 1, 8, u"Direction::Undefined"},
    };
    for (const auto& c : cases) {
        const Direction direction(c.value);
        EXPECT_EQ(direction.turnedRight().getValue(), c.right) << c.value;
        EXPECT_EQ(direction.turnedLeft().getValue(), c.left) << c.value;
        EXPECT_EQ(direction.opposite().getValue(), c.opposite) << c.value;
        EXPECT_EQ(direction.toText(), c.text) << c.value;
    }
    EXPECT_EQ(wallKindText(9), u"1/2 SW Door");
    EXPECT_EQ(wallKindText(14), u"Undefined Door");
    EXPECT_EQ(wallKindText(-1), u"Undefined Door");
}

TEST(WizMap, WallsStandOnBothSidesOfAnEdgeAndAcrossTheSeam)
{
    const struct
    {
        const char* name;
        Direction side;
        int x, y;
        bool changed;
        MapCell here, there; ///< the two cells whose bytes are written
    } cases[] = {
        {"inside", Direction::East, 1, 1, true, {1, 1}, {2, 1}},
        {"north seam", Direction::North, 3, 0, true, {3, 0}, {3, 2}},
        {"south seam", Direction::South, 3, 2, true, {3, 2}, {3, 0}},
        {"west seam", Direction::West, 0, 1, true, {0, 1}, {3, 1}},
        {"east seam", Direction::East, 3, 1, true, {3, 1}, {0, 1}},
        {"x out of range wraps", Direction::West, 4, 1, true, {0, 1}, {3, 1}},
        {"y out of range wraps", Direction::South, 1, 8, true, {1, 2}, {1, 0}},
        {"negative x wraps", Direction::East, -1, 1, true, {3, 1}, {0, 1}},
        {"both out of range", Direction::East, 4, 3, false, {}, {}},
        {"both far out of range", Direction::East, -1, 1000, false, {}, {}},
    };
    for (const auto& c : cases) {
        WizMap map;
        map.cols = 4;
        map.rows = 3;
        EXPECT_EQ(map.setWall(WallKind::Door, c.side, c.x, c.y), c.changed) << c.name;
        WizMap expected;
        expected.cols = 4;
        expected.rows = 3;
        if (c.changed) {
            expected.cellAt(c.here.x, c.here.y).wall(c.side) = WallKind::Door;
            expected.cellAt(c.there.x, c.there.y).wall(c.side.opposite()) = WallKind::Door;
        }
        EXPECT_EQ(map.cells, expected.cells) << c.name;
        EXPECT_FALSE(map.setWall(WallKind::Door, c.side, c.x, c.y)) << c.name;
    }
}

TEST(WizMap, ChangesAnEdgeWhoseTwoBytesDisagree)
{
    WizMap map;
    map.cellAt(5, 5).east = WallKind::Wall;
    EXPECT_TRUE(map.setWall(WallKind::Wall, Direction::East, 5, 5));
    EXPECT_EQ(map.cellAt(6, 5).west, WallKind::Wall);
}

TEST(WizMap, ShiftsCellsAndEvents)
{
    WizMap map = mapFrom({"+--+  +  +", //
                          "|01 02   |", //
                          "+  +DD+--+", //
                          "D      03D", //
                          "+--+  +  +"});
    GameEvent& event = map.events.add(std::make_unique<GameEvent>());
    event.x = 2;
    event.y = 0;
    map.areas.paint(1, 0, 0);
    map.cells[50] = {.floor = 9}; // outside the map's size
    map.shiftMap(1, -1);

    EXPECT_EQ(planOf(map), (Plan{"+--+  +DD+", //
                                 " 03D      ", //
                                 "+  +--+  +", //
                                 "   |01 02 ", //
                                 "+--+  +DD+"}));
    EXPECT_EQ(event.x, 0);
    EXPECT_EQ(event.y, 1);
    EXPECT_TRUE(map.areas.at(0).contains(0, 0)) << "areas stay";
    EXPECT_EQ(map.cells[50].floor, 9);
}

TEST(WizMap, ShiftIsARotationOfTheTorus)
{
    std::mt19937 random(7);
    WizMap map;
    map.cols = 7;
    map.rows = 5;
    for (int i = 0; i < 300; ++i)
        map.setWall(static_cast<int>(random() % 14), kSides[random() % 4],
                    static_cast<int>(random() % 7), static_cast<int>(random() % 5));
    const WizMapCells before = map.cells;
    map.shiftMap(3, -2);
    EXPECT_NE(map.cells, before);
    for (int y = 0; y < 5; ++y) {
        for (int x = 0; x < 7; ++x) {
            EXPECT_EQ(map.cellAt(x, y).east, map.cellAt(x + 1, y).west);
            EXPECT_EQ(map.cellAt(x, y).south, map.cellAt(x, y + 1).north);
        }
    }
    map.shiftMap(-3, 2);
    EXPECT_EQ(map.cells, before);
    map.shiftMap(-2000000007, 7); // far beyond the size
    map.shiftMap(2000000007, -7);
    EXPECT_EQ(map.cells, before);
}

TEST(WizMap, RotatesCounterClockwise)
{
    WizMap map = mapFrom({"+--+  +", //
                          "D01 02|", //
                          "+  +  +", //
                          "      |", //
                          "+  +ii+", //
                          "    03 ", //
                          "+--+  +"});
    map.cells[70] = {.floor = 9};
    const WizMapCells before = map.cells;
    map.rotateMap();
    EXPECT_EQ(map.cols, 3);
    EXPECT_EQ(map.rows, 2);
    EXPECT_EQ(planOf(map), (Plan{"+--+--+  +", //
                                 " 02   i03 ", //
                                 "+  +  +  +", //
                                 "|01      |", //
                                 "+DD+  +  +"}));
    EXPECT_EQ(map.cells[70], WizMapData()) << "cells outside the new size are lost";
    for (int i = 0; i < 3; ++i)
        map.rotateMap();
    WizMapCells expected = before;
    expected[70] = {};
    EXPECT_EQ(map.cells, expected);
}

TEST(WizMap, ReflectsAllButTheMiddleColumn)
{
    WizMap map = mapFrom({"+--+  +DD+", //
                          "|01D02i03 ", //
                          "+--+  +  +"});
    const WizMapData middle = map.cellAt(1, 0);
    map.reflectMap();
    EXPECT_EQ(map.cellAt(1, 0), middle);
    EXPECT_EQ(map.cellAt(0, 0), (WizMapData{2, 9, 0, 0, 3}));
    EXPECT_EQ(map.cellAt(2, 0), (WizMapData{1, 1, 1, 2, 1}));
    map.reflectMap();
    EXPECT_EQ(map.cellAt(0, 0), (WizMapData{1, 2, 1, 1, 1}));
}

TEST(WizMap, KeepsCellsOutsideItsSize)
{
    WizMap map;
    map.cellAt(19, 19).floor = 7;
    map.cols = map.rows = 5;
    map.reflectMap();
    map.cols = map.rows = 20;
    EXPECT_EQ(map.cellAt(19, 19).floor, 7);
    map.clear();
    EXPECT_EQ(map.cells, WizMapCells());
}

TEST(WizMap, DistanceInUseDecidesTheFog)
{
    const struct
    {
        int set, stored, used, fogStep;
        bool accepted;
    } cases[] = {
        {1, 1, 1, 127, true}, {5, 5, 5, 42, true},   {9, 5, 5, 42, false},
        {0, 0, 2, 85, true},  {-3, -3, 2, 85, true},
    };
    for (const auto& c : cases) {
        WizMap map;
        EXPECT_EQ(map.setVisibleDistance(c.set), c.accepted) << c.set;
        EXPECT_EQ(map.getStoredVisibleDistance(), c.stored) << c.set;
        EXPECT_EQ(map.getVisibleDistance(), c.used) << c.set;
        EXPECT_EQ(map.getFogStep(), c.fogStep) << c.set;
        map.light.active = true;
        EXPECT_EQ(map.getVisibleDistance(), 5) << c.set;
    }
}

TEST(WizMap, CopiesPropertiesWithoutContents)
{
    WizMap from;
    from.fileName = u"preview";
    from.names[1] = "second";
    from.level = 3;
    from.cols = 8;
    from.setVisibleDistance(4);
    from.setImageName(ImageType::Wall, u"w.png");
    from.events.add(std::make_unique<GameEvent>());
    from.cellAt(0, 0).floor = 1;

    WizMap to;
    to.fileName = u"Dungeon/B1F";
    to.copyPropertiesFrom(from);
    EXPECT_EQ(to.fileName, u"Dungeon/B1F");
    EXPECT_EQ(to.attributes().size(), from.attributes().size());
    EXPECT_EQ(to.toAttributes(), from.toAttributes());
    EXPECT_EQ(to.cols, 8);
    EXPECT_TRUE(to.events.empty());
    EXPECT_EQ(to.cells, WizMapCells());
}

} // namespace
} // namespace varn
