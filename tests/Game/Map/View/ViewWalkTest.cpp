#include "Game/Map/View/ViewWalk.h"

#include "Game/Database/WizFloor.h"
#include "Util/Random.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace varn {
namespace {

constexpr SeenWall kNothing = SeenWall::Nothing, kWall = SeenWall::Wall, kDoor = SeenWall::Door;

struct WallCase
{
    int kind;
    SeenWall asSouthWest, asNorthEast;
};

/// What each kind shows when the edge is met as a south or west edge, and as a north or east one.
constexpr WallCase kWallCases[] = {
    {0, kNothing, kNothing},  {1, kWall, kWall},     {2, kDoor, kDoor},     {3, kDoor, kWall},
    {4, kWall, kDoor},        {5, kWall, kWall},     {6, kWall, kWall},     {7, kWall, kWall},
    {11, kNothing, kNothing}, {12, kNothing, kWall}, {13, kWall, kNothing}, {200, kWall, kWall},
};

TEST(SeeWall, EveryKindFromBothSides)
{
    const LightSource dark;
    for (const WallCase& c : kWallCases) {
        for (const Direction side : {Direction::South, Direction::West})
            EXPECT_EQ(seeWall(c.kind, side, dark), c.asSouthWest) << c.kind;
        for (const Direction side : {Direction::North, Direction::East})
            EXPECT_EQ(seeWall(c.kind, side, dark), c.asNorthEast) << c.kind;
    }
}

TEST(SeeWall, HalfDoorsFollowTheRandomWord)
{
    const auto words = [](int count) {
        programRandom().seed(42);
        std::vector<std::uint32_t> drawn;
        for (int i = 0; i < count; ++i)
            drawn.push_back(programRandom().word());
        programRandom().seed(42);
        return drawn;
    };
    LightSource light;
    for (const std::uint32_t word : words(20))
        EXPECT_EQ(seeWall(8, Direction::North, light), word & 1 ? kDoor : kWall);
    light = {.active = true, .power = 128}; // 50 percent
    for (const std::uint32_t word : words(20))
        EXPECT_EQ(seeWall(10, Direction::East, light), word % 100 < 50 ? kDoor : kWall);
    words(1);
    EXPECT_EQ(seeWall(9, Direction::North, light), kWall); // the wrong side draws nothing
    EXPECT_EQ(programRandom().word(), words(1)[0]);
}

TEST(ViewGeometry, HalvesAtEveryStep)
{
    const ViewGeometry geometry({0, 0, 640, 480});
    const auto front = *geometry.wall({0, 0}, ViewSide::Front);
    EXPECT_EQ(front[3].x - front[0].x, 427); // two thirds of the view, each corner rounded
    EXPECT_EQ(front[1].y - front[0].y, 320);
    const auto behind = *geometry.wall({0, 1}, ViewSide::Front);
    EXPECT_EQ(behind[3].x - behind[0].x, 213);
    // The far edge of a side wall is the edge of the front wall, the near one that of the cell
    // before.
    const auto left = *geometry.wall({0, 1}, ViewSide::Left);
    EXPECT_NEAR(left[3].x, behind[0].x, 1);
    EXPECT_NEAR(left[0].x, front[0].x, 1);
    EXPECT_EQ(left[0].y, front[0].y);
    EXPECT_FALSE(geometry.wall({1, 0}, ViewSide::Left));
    EXPECT_FALSE(geometry.wall({-1, 0}, ViewSide::Right));
    const auto floor = geometry.floor({0, 0}), ceiling = geometry.ceiling({0, 0});
    EXPECT_EQ(floor[0].y, 400);
    EXPECT_EQ(ceiling[1].y, 80);
    EXPECT_EQ(ceiling[0].x, floor[1].x);
}

WizFloorData kind(bool warp, bool dark)
{
    WizFloorData data;
    data.setWarp(warp);
    data.setDark(dark);
    return data;
}

class ViewWalk : public ::testing::Test
{
  protected:
    ViewWalk()
    {
        WizFloorList::instance().clear();
        for (const auto& [warp, dark] : {std::pair(true, false), {false, true}})
            WizFloorList::instance().add(kind(warp, dark));
        map.cols = 10;
        map.rows = 8;
    }
    ~ViewWalk() override { WizFloorList::instance().clear(); }

    void place(int type, int x, int y, WString script = {})
    {
        auto event = std::make_unique<GameEvent>();
        event->type = type;
        event->x = x;
        event->y = y;
        event->script = std::move(script);
        map.events.add(std::move(event));
    }

    /// The cells of the viewer's own column, near to far.
    std::vector<MapCell> column(const Viewpoint& viewer, int distance)
    {
        std::vector<MapCell> cells;
        for (const SeenCell& seen : walkView(map, CellEvents(map), viewer, distance))
            if (seen.place.lateral == 0)
                cells.push_back(seen.cell);
        return cells;
    }

    WizMap map;
};

TEST_F(ViewWalk, WrapsOnTheTorusAndGoesOutward)
{
    EXPECT_EQ(column({2, 1, Direction::North}, 3),
              (std::vector<MapCell>{{2, 1}, {2, 0}, {2, 7}, {2, 6}}));
    const auto seen = walkView(map, CellEvents(map), {9, 4, Direction::East}, 5);
    EXPECT_EQ(seen.size(), 3U + 3 + 7 + 13 + 17 + 17);
    EXPECT_EQ(seen[1].place, (ViewPlace{1, 0})); // right of one who faces east is south
    EXPECT_EQ(seen[1].cell, (MapCell{9, 5}));
    EXPECT_EQ(seen[3].cell, (MapCell{0, 4}));
}

TEST_F(ViewWalk, LooksThroughWarps)
{
    place(0, 2, 3, u"warp(7, 6);");
    EXPECT_EQ(column({2, 4, Direction::North}, 3),
              (std::vector<MapCell>{{2, 4}, {2, 3}, {7, 6}, {7, 5}}));
    // Not from the viewer's own cell, and not out of the dark.
    EXPECT_EQ(column({2, 3, Direction::North}, 1), (std::vector<MapCell>{{2, 3}, {2, 2}}));
    place(1, 2, 3);
    EXPECT_EQ(column({2, 4, Direction::North}, 2), (std::vector<MapCell>{{2, 4}, {2, 3}, {2, 2}}));
    EXPECT_TRUE(CellEvents(map).isDark({2, 3}));
}

} // namespace
} // namespace varn
