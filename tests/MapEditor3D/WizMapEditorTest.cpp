#include "MapEditor3D/WizMapEditor.h"

#include "MapEditor3D/SessionFixture.h"

#include <gtest/gtest.h>

namespace varn::test {

namespace {

constexpr int kCell = 20;

/// The pixel in the middle of a cell.
CanvasPoint middleOf(int x, int y)
{
    return {x * kCell + kCell / 2, y * kCell + kCell / 2};
}

class WizMapEditorTest : public SessionFixture
{
  protected:
    WizMapEditorTest()
    {
        WizMap map;
        map.cols = map.rows = 100;
        const auto event = [&](int x, int y) {
            auto made = std::make_unique<GameEvent>();
            made->x = x;
            made->y = y;
            map.events.add(std::move(made));
        };
        event(3, 3);
        event(3, 3);
        std::filesystem::create_directories(project.root() / "Dungeon");
        EXPECT_TRUE(map.save(u"Dungeon/A"));
        editor.load(u"Dungeon/A.map");
    }

    /// One stroke of the pen from cell to cell.
    void draw(int tile, std::initializer_list<MapCell> cells)
    {
        editor.setSelectedTile(tile);
        editor.press(MouseButton::Left, middleOf(cells.begin()->x, cells.begin()->y));
        for (const MapCell& cell : cells)
            editor.move(middleOf(cell.x, cell.y));
        editor.release(MouseButton::Left, {});
    }
    int floorAt(int x, int y) { return editor.getMap().cellAt(x, y).floor; }

    WizMapEditor editor;
};

} // namespace

TEST(CanvasGeometry, theNearestEdgeWinsAndADiagonalGoesToTheSide)
{
    const struct
    {
        CanvasPoint point;
        CanvasCell place;
    } cases[] = {
        {{29, 42}, {{1, 2}, Direction::North}}, {{31, 58}, {{1, 2}, Direction::South}},
        {{21, 51}, {{1, 2}, Direction::West}},  {{39, 49}, {{1, 2}, Direction::East}},
        {{25, 45}, {{1, 2}, Direction::West}},  {{35, 55}, {{1, 2}, Direction::East}},
        {{30, 50}, {{1, 2}, Direction::East}},
    };
    for (const auto& test : cases)
        EXPECT_EQ(cellUnder(test.point, kCell), test.place) << test.point.x << ' ' << test.point.y;
}

TEST_F(WizMapEditorTest, tenStrokesCanBeUndoneAndANewOneDropsWhatWasUndone)
{
    for (int stroke = 1; stroke <= 11; ++stroke)
        draw(stroke, {{stroke, 0}, {stroke, stroke}});
    for (int step = 0; step < 10; ++step)
        EXPECT_TRUE(editor.undo());
    EXPECT_FALSE(editor.undo());
    EXPECT_EQ(floorAt(1, 1), 1) << "the eleventh last";
    EXPECT_EQ(floorAt(2, 2), 0);

    EXPECT_TRUE(editor.redo());
    EXPECT_EQ(floorAt(2, 2), 2);
    draw(2, {{2, 2}});
    EXPECT_TRUE(editor.canRedo()) << "nothing changed, so no stroke";
    draw(9, {{0, 49}});
    EXPECT_FALSE(editor.redo());
    EXPECT_TRUE(editor.undo());
    EXPECT_EQ(floorAt(0, 49), 0);
    EXPECT_EQ(floorAt(2, 2), 2);
}

TEST_F(WizMapEditorTest, undoGoesBackToTheLastCommitAndKnowsCellsOnly)
{
    draw(5, {{0, 0}});
    editor.shiftMap(1, 0);
    EXPECT_EQ(floorAt(1, 0), 5);
    EXPECT_EQ(editor.getMap().events.at(0).x, 4);
    EXPECT_TRUE(editor.undo());
    EXPECT_EQ(floorAt(1, 0), 0);
    EXPECT_EQ(editor.getMap().events.at(0).x, 4);

    editor.setLayer(EditorLayer::Area);
    draw(6, {{7, 7}, {8, 7}});
    EXPECT_FALSE(editor.canUndo());
    EXPECT_EQ(editor.getMap().areas.areaAt(8, 7)->number, 6);
}

TEST_F(WizMapEditorTest, theFirstColumnAndRowBehindTheSeamAreReached)
{
    editor.setScroll({51, 51});
    draw(3, {{48, 48}, {49, 49}});
    EXPECT_EQ(floorAt(99, 99), 3);
    EXPECT_EQ(floorAt(0, 0), 3);
    draw(4, {{50, 0}});
    EXPECT_FALSE(editor.getMap().cellAt(1, 51).floor) << "behind the visible cells";
}

TEST_F(WizMapEditorTest, anErasingStrokeTakesOnlyWhatWasPicked)
{
    draw(1, {{0, 0}, {1, 0}, {3, 0}});
    draw(2, {{2, 0}});
    const auto erase = [&] {
        editor.press(MouseButton::Right, middleOf(0, 0));
        for (int x = 0; x < 4; ++x)
            editor.move(middleOf(x, 0));
    };
    erase(); // picks 1, then what it passes
    editor.release(MouseButton::Right, {});
    EXPECT_EQ(editor.getSelectedTile(), 1);
    EXPECT_EQ(floorAt(0, 0), 1);

    erase();
    EXPECT_EQ(floorAt(3, 0), 0);
    editor.doubleClick(MouseButton::Right, {});
    EXPECT_EQ(floorAt(3, 0), 1) << "dropped";
    erase();
    editor.release(MouseButton::Right, {-5, -5});
    EXPECT_EQ(floorAt(0, 0) + floorAt(1, 0) + floorAt(3, 0), 0);
    EXPECT_EQ(floorAt(2, 0), 2);

    editor.setSelectedTile(0);
    erase(); // nothing is selected, so anything goes
    EXPECT_EQ(floorAt(2, 0), 0);
}

TEST_F(WizMapEditorTest, aRectangleIsTheSameDrawnFromAnyCorner)
{
    const MapCell corners[] = {{2, 3}, {6, 3}, {6, 5}, {2, 5}};
    for (const EditorLayer layer : {EditorLayer::Floor, EditorLayer::Wall}) {
        std::optional<WizMapCells> expected;
        for (int from = 0; from < 4; ++from) {
            editor.load(u"Dungeon/A.map");
            editor.setLayer(layer);
            editor.setTool(EditorTool::Rectangle);
            editor.setSelectedTile(1);
            const MapCell to = corners[(from + 2) % 4];
            editor.press(MouseButton::Left, {corners[from].x * kCell, corners[from].y * kCell});
            editor.move({to.x * kCell, to.y * kCell});
            editor.release(MouseButton::Left, {-1, 0});
            if (!expected)
                expected = editor.getMap().cells;
            EXPECT_TRUE(*expected == editor.getMap().cells) << from;
        }
        const WizMapData corner = editor.getMap().cellAt(2, 3);
        const WizMapData opposite = editor.getMap().cellAt(6, 5);
        if (layer == EditorLayer::Floor) {
            EXPECT_TRUE(corner == (WizMapData{.floor = 1}) && opposite == corner);
            EXPECT_EQ(floorAt(3, 4), 0) << "only the outline";
        } else {
            EXPECT_TRUE(corner == (WizMapData{.north = 1, .west = 1}) && opposite == WizMapData{});
            EXPECT_TRUE(editor.getMap().cellAt(5, 4) == (WizMapData{.east = 1, .south = 1}));
        }
    }
}

TEST_F(WizMapEditorTest, anEventIsDraggedAndStaysInTheMap)
{
    editor.setLayer(EditorLayer::Event);
    editor.press(MouseButton::Left, middleOf(9, 9));
    EXPECT_FALSE(editor.getSelectedEvent());
    editor.release(MouseButton::Left, middleOf(1, 1));

    editor.press(MouseButton::Left, middleOf(3, 3));
    EXPECT_EQ(editor.getSelectedEvent(), 1U) << "the one drawn last";
    editor.release(MouseButton::Left, {9999, -50});
    EXPECT_EQ(editor.getMap().events.at(1).x, 99);
    EXPECT_EQ(editor.getMap().events.at(1).y, 0);
    EXPECT_EQ(editor.getMap().events.at(0).x, 3);
    EXPECT_FALSE(editor.canUndo());
}

TEST_F(WizMapEditorTest, aMapThatCannotBeOpenedLeavesTheOneThatIs)
{
    draw(5, {{4, 4}});
    EXPECT_THROW(editor.load(u"Dungeon/Missing.map"), Exception);
    EXPECT_EQ(floorAt(4, 4), 5);
    EXPECT_TRUE(editor.canUndo());
    EXPECT_EQ(editor.getMapName(), u"A");
    EXPECT_TRUE(editor.doSave());
    editor.load(u"Dungeon/A.map");
    EXPECT_EQ(floorAt(4, 4), 5);
    EXPECT_FALSE(editor.canUndo());
}

} // namespace varn::test
