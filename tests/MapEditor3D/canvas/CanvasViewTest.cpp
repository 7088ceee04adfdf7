#include "MapEditor3D/canvas/CanvasView.h"

#include <gtest/gtest.h>

namespace varn::test {

namespace {

constexpr CanvasView kView{
    .width = 800, .height = 600, .tileSize = 28, .scrollX = 40, .scrollY = 0};

} // namespace

TEST(CanvasView, FindsTheCellAndItsNearestEdgeAlsoBeforeTheFirst)
{
    // The first cell begins at 32 less the scroll.
    const struct
    {
        Point window;
        CanvasCell place;
    } cases[] = {
        {{-8, 32 + 14}, {{0, 0}, Direction::West}},
        {{-9, 32 + 14}, {{-1, 0}, Direction::East}},
        {{-37, 31}, {{-2, -1}, Direction::East}},
        {{-8 + 14, 33}, {{0, 0}, Direction::North}},
        {{-8 + 28 + 14, 32 + 27}, {{1, 0}, Direction::South}},
        {{-8 + 14, 31}, {{0, -1}, Direction::South}},
    };
    for (const auto& test : cases)
        EXPECT_EQ(kView.placeAt(test.window), test.place) << test.window.x << ' ' << test.window.y;
}

TEST(CanvasView, ZoomKeepsWhatLiesUnderThePointer)
{
    const Point pointer{413, 287};
    for (const int next : {20, 36, 60}) {
        CanvasView view = kView;
        const CanvasCell before = view.placeAt(pointer);
        view.zoomTo(next, pointer);
        EXPECT_EQ(view.placeAt(pointer), before) << next;
        view.zoomTo(28, pointer);
        EXPECT_NEAR(view.scrollX, kView.scrollX, 1) << next;
    }
}

TEST(CanvasView, WholeDevicePixelsAtEveryQuarterScale)
{
    for (int tile = 20; tile <= 60; tile += 8) {
        for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0}) {
            const CanvasView view{.scale = scale, .tileSize = tile};
            EXPECT_EQ(view.deviceTile(), tile * scale);
        }
    }
}

TEST(CanvasView, RevealScrollsOnlyWhereTheCellIsHidden)
{
    WizMap map;
    map.cols = map.rows = 100;
    CanvasView view = kView;
    view.reveal(map, {10, 10});
    EXPECT_EQ(view, kView);
    view.reveal(map, {99, 50});
    const Rect shown = view.cellInWindow({99, 50});
    EXPECT_LE(shown.right, view.width);
    EXPECT_LE(shown.bottom, view.height);
    view.reveal(map, {0, 0});
    EXPECT_EQ(view.scrollX, 0);
    EXPECT_EQ(view.scrollY, 0);
}

/// The editor looks at 50 by 50 cells; the window may show all 100.
TEST(Aim, ReachesEveryCellOfTheWindowAndTheSeam)
{
    WizMapEditor editor;
    editor.getMap().cols = editor.getMap().rows = 100;
    editor.setSelectedTile(7);
    CanvasView view{.width = 4000, .height = 4000};
    const auto click = [&](MapCell cell) {
        const Rect place = view.cellInWindow(cell);
        const CanvasPoint point = aim(editor, view, {place.x + 3, place.y + 3});
        editor.press(MouseButton::Left, point);
        editor.release(MouseButton::Left, point);
    };
    const struct
    {
        MapCell clicked, written;
    } cases[] = {{{0, 0}, {0, 0}},   {{99, 99}, {99, 99}}, {{3, 97}, {3, 97}},
                 {{60, 2}, {60, 2}}, {{100, 5}, {0, 5}},   {{8, 100}, {8, 0}}};
    for (const auto& test : cases) {
        click(test.clicked);
        auto& floor = editor.getMap().cellAt(test.written.x, test.written.y).floor;
        EXPECT_EQ(floor, 7) << test.clicked.x << ' ' << test.clicked.y;
        floor = 0;
    }
    const WizMapCells before = editor.getMap().cells;
    click({-1, 4});
    click({101, 4});
    EXPECT_EQ(editor.getMap().cells, before);
}

TEST(Aim, ABandKeepsItsCellsWhileTheEditorsScrollMoves)
{
    WizMapEditor editor;
    editor.getMap().cols = editor.getMap().rows = 100;
    editor.setTool(EditorTool::Rectangle);
    editor.setSelectedTile(2);
    const CanvasView view{.width = 4000, .height = 4000};
    const auto at = [&](int x, int y) {
        const Rect place = view.cellInWindow({x, y});
        return aim(editor, view, {place.x + 9, place.y + 9});
    };
    editor.press(MouseButton::Left, at(2, 3));
    editor.move(at(90, 8));
    editor.move(at(80, 6));
    editor.release(MouseButton::Left, at(80, 6));
    for (const MapCell corner : {MapCell{2, 3}, {80, 3}, {2, 6}, {80, 6}, {40, 6}})
        EXPECT_EQ(editor.getMap().cellAt(corner.x, corner.y).floor, 2) << corner.x;
    EXPECT_EQ(editor.getMap().cellAt(40, 4).floor, 0);
    EXPECT_EQ(editor.getMap().cellAt(81, 3).floor, 0);
}

} // namespace varn::test
