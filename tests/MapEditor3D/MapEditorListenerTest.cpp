#include "MapEditor3D/MapEditorListener.h"

#include "MapEditor3D/SessionFixture.h"
#include "MapEditor3D/WizMapEditor.h"

#include <gtest/gtest.h>

namespace varn::test {

namespace {

/// Writes down what it is told, a word each.
class Diary : public MapEditorListener
{
  public:
    std::string told;

    std::string take() { return std::exchange(told, {}); }

    void mapLoaded() override { note("loaded"); }
    void propertiesChanged() override { note("properties"); }
    void mapSaved() override { note("saved"); }
    void cellsChanged(const CellRect& r) override
    {
        note("cells:" + std::to_string(r.left) + "," + std::to_string(r.top) + "-" +
             std::to_string(r.right) + "," + std::to_string(r.bottom));
    }
    void eventsChanged() override { note("events"); }
    void areasChanged(const CellRect& r) override
    {
        note("areas:" + std::to_string(r.left) + "," + std::to_string(r.top));
    }
    void committed() override { note("committed"); }
    void historyChanged(bool undo, bool redo) override
    {
        note(std::string("history:") + (undo ? "u" : "-") + (redo ? "r" : "-"));
    }
    void tileSelected(int tile) override { note("tile:" + std::to_string(tile)); }
    void eventSelected(std::optional<std::size_t> event) override
    {
        note("event:" + (event ? std::to_string(*event) : "none"));
    }
    void bandChanged() override { note("band"); }
    void walkerMoved() override { note("walker"); }

  private:
    void note(const std::string& word) { told += (told.empty() ? "" : " ") + word; }
};

class MapEditorListenerTest : public ::testing::Test
{
  protected:
    MapEditorListenerTest()
    {
        WizMap& map = editor.getMap();
        map.cols = map.rows = 10;
        auto event = std::make_unique<GameEvent>();
        event->x = event->y = 4;
        map.events.add(std::move(event));
        editor.addListener(diary);
    }
    ~MapEditorListenerTest() override { editor.removeListener(diary); }

    /// A point near the northern edge of a cell.
    static CanvasPoint at(int x, int y) { return {x * 20 + 10, y * 20 + 2}; }

    WizMapEditor editor;
    Diary diary;
};

} // namespace

TEST_F(MapEditorListenerTest, HearsOfTheCellsOfAStrokeAndOfItsCommit)
{
    editor.setLayer(EditorLayer::Wall);
    editor.setSelectedTile(1);
    EXPECT_EQ(diary.take(), "tile:1");
    editor.press(MouseButton::Left, at(3, 0));
    EXPECT_EQ(diary.take(), "cells:3,0-4,1 cells:3,9-4,10") << "both sides of the seam";
    editor.move(at(3, 0));
    EXPECT_EQ(diary.take(), "") << "nothing changed";
    editor.release(MouseButton::Left, at(3, 0));
    EXPECT_EQ(diary.take(), "history:u- cells:3,0-4,10 committed");
    editor.undo();
    EXPECT_EQ(diary.take(), "cells:3,0-4,10 committed history:-r");

    editor.press(MouseButton::Right, at(3, 0));
    EXPECT_EQ(diary.take(), "tile:0") << "picked";
}

TEST_F(MapEditorListenerTest, HearsOfAreasEventsAndTheWalker)
{
    editor.setLayer(EditorLayer::Area);
    editor.setSelectedTile(2);
    diary.take();
    editor.press(MouseButton::Left, at(1, 1));
    editor.move(at(1, 1));
    EXPECT_EQ(diary.take(), "areas:1,1");
    editor.release(MouseButton::Left, at(1, 1));
    EXPECT_EQ(diary.take(), "committed");

    editor.setLayer(EditorLayer::Event);
    editor.press(MouseButton::Left, at(4, 4));
    EXPECT_EQ(diary.take(), "event:0");
    editor.release(MouseButton::Left, at(6, 4));
    EXPECT_EQ(diary.take(), "events committed");
    editor.getMap().events.clear();
    editor.eventsEdited();
    EXPECT_EQ(diary.take(), "event:none events committed");

    editor.controllerKey(ControllerKey::Left);
    EXPECT_EQ(diary.take(), "walker");
    editor.rotateMap();
    EXPECT_EQ(diary.take(), "properties walker committed");
}

/// Escape in the middle of each kind of gesture.
TEST_F(MapEditorListenerTest, ACancelledGestureLeavesTheMapAsItWas)
{
    editor.setSelectedTile(3);
    editor.shiftMap(1, 0);
    editor.setSelectedTile(7);
    editor.getMap().areas.paint(5, 8, 8);
    const WizMapCells cells = editor.getMap().cells;
    const AreaManager areas = editor.getMap().areas;
    for (const EditorLayer layer :
         {EditorLayer::Floor, EditorLayer::Wall, EditorLayer::Area, EditorLayer::Event}) {
        for (const EditorTool tool : {EditorTool::Pen, EditorTool::Rectangle}) {
            editor.setLayer(layer);
            editor.setTool(tool);
            editor.press(MouseButton::Left, at(4, 4));
            editor.move(at(7, 7));
            diary.take();
            EXPECT_TRUE(editor.cancelGesture());
            EXPECT_EQ(diary.take().find("committed"), std::string::npos);
            editor.release(MouseButton::Left, at(9, 9));
            EXPECT_EQ(editor.getMap().cells, cells);
            EXPECT_EQ(editor.getMap().areas, areas);
            EXPECT_EQ(editor.getMap().events.at(0).x, 5);
            EXPECT_FALSE(editor.getBand());
            EXPECT_FALSE(editor.canUndo());
        }
    }
    EXPECT_FALSE(editor.cancelGesture());
}

TEST(MapEditorListeners, OneMayLeaveWhileItIsTold)
{
    MapEditorListeners listeners;
    struct Leaving : MapEditorListener
    {
        MapEditorListeners* from = nullptr;
        MapEditorListener* other = nullptr;
        int told = 0;
        void walkerMoved() override
        {
            ++told;
            from->remove(*this);
            from->remove(*other);
        }
    } first, second;
    first.from = second.from = &listeners;
    first.other = &second;
    second.other = &first;
    listeners.add(first);
    listeners.add(second);
    listeners.tell(&MapEditorListener::walkerMoved);
    listeners.tell(&MapEditorListener::walkerMoved);
    EXPECT_EQ(first.told, 1);
    EXPECT_EQ(second.told, 0);
}

} // namespace varn::test
