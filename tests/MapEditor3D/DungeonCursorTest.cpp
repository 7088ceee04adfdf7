#include "MapEditor3D/DungeonCursor.h"

#include "Game/Database/WizFloor.h"
#include "MapEditor3D/WizMapEditor.h"

#include <gtest/gtest.h>

namespace varn::test {

namespace {

using Step = DungeonCursor::Step;

/// A map of 5 by 5 with one wall, and a walker beside it.
bool canStep(int kind, Direction side)
{
    WizMap map;
    map.cols = map.rows = 5;
    map.setWall(kind, side, 2, 2);
    DungeonCursor walker;
    walker.cell = {2, 2};
    walker.facing = side;
    const bool stepped = walker.step(map, Step::Forward);
    EXPECT_EQ(walker.cell, (stepped ? MapCell{2 + side.dx(), 2 + side.dy()} : MapCell{2, 2}));
    return stepped;
}

} // namespace

/// Which kinds let pass towards north or east, and towards south or west.
TEST(DungeonCursor, WallsStopAndOneWayKindsLetPassOneWay)
{
    const struct
    {
        int kind;
        bool northEast, southWest;
    } cases[] = {
        {WallKind::None, true, true},
        {WallKind::Wall, false, false},
        {WallKind::Door, true, true},
        {WallKind::SwDoor, false, true},
        {WallKind::NeDoor, true, false},
        {WallKind::SecretDoor, true, true},
        {WallKind::SwSecretDoor, false, true},
        {WallKind::NeSecretDoor, true, false},
        {WallKind::HalfDoor, true, true},
        {WallKind::HalfSwDoor, false, true},
        {WallKind::HalfNeDoor, true, false},
        {WallKind::InvisibleWall, false, false},
        {WallKind::SwShutter, false, true},
        {WallKind::NeShutter, true, false},
        {kWallKinds, false, false},
        {255, false, false},
    };
    for (const auto& test : cases) {
        for (const Direction side : {Direction::North, Direction::East})
            EXPECT_EQ(canStep(test.kind, side), test.northEast) << test.kind;
        for (const Direction side : {Direction::South, Direction::West})
            EXPECT_EQ(canStep(test.kind, side), test.southWest) << test.kind;
    }
}

/// What can be seen through can be walked through: the view and the walker agree.
TEST(DungeonCursor, PassesWhereTheViewShowsNothingOrADoorButForWhatIsHidden)
{
    const std::vector<Direction> sides(std::begin(kSides), std::end(kSides));
    for (int kind = 0; kind < kWallKinds; ++kind) {
        const bool hides = (kind >= WallKind::SecretDoor && kind <= WallKind::HalfNeDoor) ||
                           kind == WallKind::InvisibleWall;
        for (const Direction side : hides ? std::vector<Direction>() : sides)
            EXPECT_EQ(seeWall(kind, side, {}) != SeenWall::Wall, isPassable(kind, side)) << kind;
    }
}

TEST(DungeonCursor, WalksOverTheSeamAndTheWayItDoesNotLook)
{
    WizMap map;
    map.cols = 4;
    map.rows = 3;
    DungeonCursor walker;
    walker.facing = Direction::West;
    const struct
    {
        Step step;
        MapCell cell;
    } cases[] = {
        {Step::Forward, {3, 0}}, {Step::Right, {3, 2}}, {Step::Back, {0, 2}}, {Step::Left, {0, 0}}};
    for (const auto& test : cases) {
        EXPECT_TRUE(walker.step(map, test.step));
        EXPECT_EQ(walker.cell, test.cell);
        EXPECT_EQ(walker.facing, Direction::West);
    }
}

TEST(DungeonCursor, SeesCellsAheadAndBehindAWarpButNotAtItsBack)
{
    WizFloorList::instance().resize(1);
    WizFloorList::instance().at(0).setWarp(true);
    WizMap map;
    map.cols = map.rows = 40;
    map.setVisibleDistance(3);
    DungeonCursor walker;
    walker.cell = {20, 20};
    EXPECT_TRUE(walker.sees(map, {20, 17, 21, 18}));
    EXPECT_TRUE(walker.sees(map, {0, 0, 40, 40}));
    EXPECT_FALSE(walker.sees(map, {20, 16, 21, 17}));
    EXPECT_FALSE(walker.sees(map, {20, 21, 21, 22}));
    EXPECT_FALSE(walker.sees(map, {4, 30, 5, 31}));

    auto warp = std::make_unique<GameEvent>();
    warp->x = 20;
    warp->y = 19;
    warp->script = u"warp(4, 30);";
    map.events.add(std::move(warp));
    EXPECT_TRUE(walker.sees(map, {4, 30, 5, 31}));
    EXPECT_FALSE(walker.followWarp(map)) << "it stands beside the warp";
    walker.step(map, Step::Forward);
    EXPECT_TRUE(walker.followWarp(map));
    EXPECT_EQ(walker.cell, (MapCell{4, 30}));
    WizFloorList::instance().resize(0);
}

TEST(DungeonCursor, ThePadMovesTheWalkerOfTheEditor)
{
    WizMapEditor editor;
    editor.getMap().cols = editor.getMap().rows = 10;
    editor.getMap().setWall(WallKind::Wall, Direction::North, 5, 5);
    editor.placeWalker({5, 15}, Direction::North);
    EXPECT_EQ(editor.getCursor().cell, (MapCell{5, 5}));
    const struct
    {
        ControllerKey key;
        bool done;
        MapCell cell;
        Direction facing;
    } cases[] = {
        {ControllerKey::Up, false, {5, 5}, Direction::North},
        {ControllerKey::Y, true, {5, 4}, Direction::North},
        {ControllerKey::B, false, {5, 4}, Direction::North},
        {ControllerKey::R, true, {6, 4}, Direction::North},
        {ControllerKey::Right, true, {6, 4}, Direction::East},
        {ControllerKey::L, true, {6, 3}, Direction::East},
        {ControllerKey::X, true, {6, 3}, Direction::West},
        {ControllerKey::Down, true, {7, 3}, Direction::West},
        {ControllerKey::Left, true, {7, 3}, Direction::South},
        {ControllerKey::A, false, {7, 3}, Direction::South},
        {ControllerKey::Menu, true, {0, 9}, Direction::South},
    };
    for (const auto& test : cases) {
        const auto key = static_cast<int>(test.key);
        EXPECT_EQ(editor.controllerKey(test.key), test.done) << key;
        EXPECT_EQ(editor.getCursor().cell, test.cell) << key;
        EXPECT_EQ(editor.getCursor().facing, test.facing) << key;
    }
}

} // namespace varn::test
