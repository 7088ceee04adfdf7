#include "PaneFixture.h"

#include "MapEditor3D/frame/panes/MapTilePane.h"
#include "MapEditor3D/frame/panes/TileGrid.h"

namespace varn::test {

namespace {

struct PickListener : MapTilePaneListener
{
    std::vector<int> picked, settings;
    void tilePicked(int value) override { picked.push_back(value); }
    void tileSettingsRequested(int kind) override { settings.push_back(kind); }
};

class PaletteTest : public PaneTest
{
  protected:
    PaletteTest()
    {
        pane.setListener(&listener);
        show(pane, 240, 200); // not all entries fit
    }
    Rect place(std::size_t entry) { return pane.getGrid().placeOf(entry); }
    void click(std::size_t entry)
    {
        robot::click(pane.getGrid().getHandle(), place(entry).x + 4, place(entry).y + 4);
    }

    PickListener listener;
    MapTilePane pane{editor};
};

} // namespace

TEST_F(PaletteTest, OffersTheValuesOfTheLayerInForce)
{
    const struct
    {
        EditorLayer layer;
        std::size_t count;
        const char16_t* third;
    } layers[] = {
        {EditorLayer::Wall, 14, u"Door"},
        {EditorLayer::Floor, 16, u"2"},
        {EditorLayer::Event, 16, u"Warp"},
        {EditorLayer::Area, 16, u"Cloister walks"}, // none, 14 areas, a new one
    };
    for (const auto& row : layers) {
        editor.setLayer(row.layer);
        const auto& entries = pane.getGrid().getEntries();
        ASSERT_EQ(entries.size(), row.count) << static_cast<int>(row.layer);
        EXPECT_EQ(entries[2].name, row.third);
    }
    editor.getMap().areas.paint(50, 0, 0);
    editor.areasEdited();
    EXPECT_EQ(pane.getGrid().getEntries().size(), 17U);
}

TEST_F(PaletteTest, ClicksAndKeysSelectInTheEditor)
{
    editor.setLayer(EditorLayer::Wall);
    click(2);
    EXPECT_EQ(editor.getSelectedTile(), 2);
    EXPECT_EQ(listener.picked, std::vector{2});

    const NativeHandle grid = pane.getGrid().getHandle();
    robot::key(grid, kKeyDown);
    EXPECT_EQ(editor.getSelectedTile(), 3);
    robot::key(grid, kKeyEnd);
    EXPECT_EQ(editor.getSelectedTile(), 13);
    EXPECT_LE(place(13).bottom, pane.getGrid().getHeight()) << "scrolled into view";
    robot::wheel(grid, 10, 10, 20);
    EXPECT_GE(place(0).top, 0);
    click(0);
    EXPECT_EQ(editor.getSelectedTile(), 0) << "entries are hit where they are scrolled to";

    editor.setLayer(EditorLayer::Floor); // a grid: up and down go by lines
    robot::key(grid, kKeyRight);
    EXPECT_EQ(editor.getSelectedTile(), 1);
    robot::key(grid, kKeyDown);
    EXPECT_GT(editor.getSelectedTile(), 4);
}

TEST_F(PaletteTest, MarksWhatIsPickedOnTheCanvas)
{
    editor.setLayer(EditorLayer::Wall);
    editor.setSelectedTile(5);
    EXPECT_EQ(pane.getGrid().getSelected(), 5);
    EXPECT_TRUE(listener.picked.empty()) << "not by hand";
}

TEST_F(PaletteTest, DoubleClickOnAKindOfEventsAsksForItsSettings)
{
    editor.setLayer(EditorLayer::Wall);
    robot::doubleClick(pane.getGrid().getHandle(), 10, place(1).y + 4);
    EXPECT_TRUE(listener.settings.empty());
    editor.setLayer(EditorLayer::Event);
    robot::doubleClick(pane.getGrid().getHandle(), 10, place(1).y + 4);
    EXPECT_EQ(listener.settings, std::vector{1});
}

} // namespace varn::test
