#include "MapEditor3D/TileReplacement.h"

#include <gtest/gtest.h>

namespace varn::test {

namespace {

/// Three by three cells, all of the middle one's edges walls, floor tile 1 in the upper row; the
/// middle row is area 7.
void fill(WizMapEditor& editor)
{
    WizMap& map = editor.getMap();
    map.cols = map.rows = 3;
    for (const Direction side :
         {Direction::North, Direction::East, Direction::South, Direction::West})
        map.setWall(WallKind::Wall, side, 1, 1);
    for (int x = 0; x < 3; ++x) {
        map.cellAt(x, 0).floor = 1;
        map.areas.paint(7, x, 1);
    }
    map.setWall(WallKind::Wall, Direction::North, 0, 0); // on the seam
    editor.resetHistory();
}

} // namespace

TEST(TileReplacement, CountsEachPlaceOnceAndIsOneStepOfUndo)
{
    using Layer = TileReplacement::Layer;
    const struct
    {
        const char* name;
        TileReplacement what;
        int count;
    } kCases[] = {
        {"walls, also over the seam", {Layer::Walls, WallKind::Wall, WallKind::Door, {}}, 5},
        {"walls of an area", {Layer::Walls, WallKind::Wall, WallKind::Door, 7}, 4},
        {"an area that is not there", {Layer::Walls, WallKind::Wall, WallKind::Door, 8}, 0},
        {"none there", {Layer::Walls, WallKind::Door, WallKind::Wall, {}}, 0},
        {"open edges", {Layer::Walls, WallKind::None, WallKind::Wall, {}}, 18 - 5},
        {"floor", {Layer::Floor, 1, 2, {}}, 3},
        {"floor of an area", {Layer::Floor, 0, 2, 7}, 3},
        {"the same", {Layer::Floor, 1, 1, {}}, 0},
    };
    for (const auto& one : kCases) {
        WizMapEditor editor;
        fill(editor);
        const WizMapCells before = editor.getMap().cells;
        EXPECT_EQ(countTiles(editor.getMap(), one.what), one.count) << one.name;
        EXPECT_EQ(replaceTiles(editor, one.what), one.count) << one.name;
        EXPECT_EQ(editor.canUndo(), one.count > 0) << one.name;
        if (one.count == 0)
            continue;
        EXPECT_EQ(countTiles(editor.getMap(), one.what), 0) << one.name;
        editor.undo();
        EXPECT_EQ(editor.getMap().cells, before) << one.name;
        EXPECT_FALSE(editor.canUndo()) << one.name;
    }
}

} // namespace varn::test
