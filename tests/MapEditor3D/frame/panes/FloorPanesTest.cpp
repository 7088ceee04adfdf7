// The panes of the open floor: its events, its areas, its scene.
#include "PaneFixture.h"

#include "MapEditor3D/frame/panes/AreaSettingPane.h"
#include "MapEditor3D/frame/panes/EventTablePane.h"
#include "MapEditor3D/frame/panes/SceneSettingPane.h"

namespace varn::test {

namespace {

struct EventListenerOf : EventTableListener
{
    std::vector<std::string> calls;
    void eventShown(std::size_t event) override { note("show", event); }
    void eventEditRequested(std::size_t event) override { note("edit", event); }
    void eventCreateRequested() override { calls.emplace_back("create"); }
    void eventDeleteRequested(std::size_t event) override { note("delete", event); }

  private:
    void note(const char* what, std::size_t event)
    {
        calls.push_back(what + (" " + std::to_string(event)));
    }
};

struct AreaListener : AreaSettingPaneListener
{
    explicit AreaListener(WizMapEditor& editor) : editor(editor) {}
    WizMapEditor& editor;
    std::vector<std::int32_t> chosen;
    std::vector<MapCell> shown;
    void areaChosen(std::int32_t number) override
    {
        chosen.push_back(number);
        editor.setLayer(EditorLayer::Area);
    }
    void areaShown(MapCell cell) override { shown.push_back(cell); }
};

using EventTablePaneTest = PaneTest;
using SceneSettingPaneTest = PaneTest;

class AreaSettingPaneTest : public PaneTest
{
  protected:
    AreaSettingPaneTest()
    {
        pane.setListener(&listener);
        show(pane, 340, 600);
    }
    NativeHandle field(WStringView label)
    {
        const NativeHandle found = robot::findField(window.getHandle(), label);
        EXPECT_TRUE(found) << toUtf8(label);
        return found;
    }
    AreaModel& area(std::int32_t number) { return *editor.getMap().areas.findByNumber(number); }

    AreaListener listener{editor};
    AreaSettingPane pane{editor};
};

} // namespace

TEST_F(EventTablePaneTest, ListsSelectsAndAsks)
{
    EventListenerOf listener;
    EventTablePane pane(editor);
    pane.setListener(&listener);
    show(pane);
    const TableModel& model = *pane.getTable().getModel();
    ASSERT_EQ(model.getRowCount(), static_cast<int>(editor.getMap().events.size()));
    const WString hob[] = {u"Hob", u"Person", u"2", u"6", u"Action Button"}; // row 13 of 20
    for (int column = 0; column < 5; ++column)
        EXPECT_EQ(model.getValueAt(2, column), hob[column]);
    pane.setRowsFromBottom(false);
    EXPECT_EQ(model.getValueAt(2, 3), u"13");

    editor.setSelectedEvent(7);
    EXPECT_EQ(pane.getTable().getSelectedRow(), 7);
    EXPECT_TRUE(listener.calls.empty()) << "what the canvas selects is not shown again";
    robot::key(pane.getTable().getHandle(), kKeyDown);
    EXPECT_EQ(editor.getSelectedEvent(), 8U);
    robot::key(pane.getTable().getHandle(), kKeyReturn);
    robot::key(pane.getTable().getHandle(), kKeyDelete);
    EXPECT_EQ(listener.calls, (std::vector<std::string>{"show 8", "edit 8", "delete 8"}));

    editor.getMap().events.remove(8);
    editor.eventsEdited();
    EXPECT_EQ(model.getRowCount(), static_cast<int>(editor.getMap().events.size()));
}

TEST_F(EventTablePaneTest, TheFilterLastsAsLongAsTheMap)
{
    EventTablePane pane(editor);
    show(pane);
    robot::type(pane.getFilter().getHandle(), u"well");
    editor.propertiesEdited();
    EXPECT_EQ(pane.getFilter().getText(), u"well");
    editor.load(u"Dungeon/Ossuary.map");
    EXPECT_EQ(pane.getFilter().getText(), u"");
}

TEST_F(AreaSettingPaneTest, EditsInPlace)
{
    pane.selectArea(4);
    const NativeHandle name = field(u"Name:");
    robot::type(name, u" and aisles");
    EXPECT_EQ(area(4).name, "Nave and aisles");
    EXPECT_EQ(pane.getTable().getModel()->getValueAt(3, 1), u"Nave and aisles");
    robot::click(field(u"Blocks teleporting in"), 6, 6);
    EXPECT_TRUE(area(4).teleportIntrusionBlock);
    EXPECT_EQ(area(4).getCoordinates().size(), 40U) << "the cells stay";
    EXPECT_EQ(area(5).name, "Choir");
}

TEST_F(AreaSettingPaneTest, AnAreaTakesAnotherNumberThatIsFree)
{
    pane.selectArea(14);
    const NativeHandle number = field(u"Number:");
    robot::key(number, kKeyDown); // 13 is taken
    EXPECT_EQ(area(14).name, "Bell stair");
    EXPECT_EQ(area(13).name, "Cellar");
    robot::key(number, kKeyUp);
    robot::key(number, kKeyUp);
    EXPECT_EQ(area(15).name, "Bell stair");
    EXPECT_EQ(editor.getMap().areas.findByNumber(14), nullptr);
    EXPECT_EQ(pane.nextFreeNumber(), 14);
}

TEST_F(AreaSettingPaneTest, FollowsThePainting)
{
    robot::click(field(u"Next free number"), 6, 6);
    EXPECT_EQ(listener.chosen, std::vector{15});
    EXPECT_EQ(editor.getSelectedTile(), 15);
    editor.getMap().areas.paint(15, 2, 2);
    editor.areasEdited();
    EXPECT_EQ(pane.getTable().getSelectedRow(), 14);
    robot::type(field(u"Name:"), u"Vault");
    EXPECT_EQ(area(15).name, "Vault");

    robot::click(field(u"Delete"), 6, 6);
    EXPECT_EQ(editor.getMap().areas.findByNumber(15), nullptr);
    EXPECT_EQ(editor.getMap().areas.size(), 14U);
}

TEST_F(SceneSettingPaneTest, ChangesReachTheMapAtOnceAndComeBack)
{
    SceneSettingPane pane(editor);
    show(pane);
    const NativeHandle distance = robot::findField(window.getHandle(), u"Visible distance:");
    ASSERT_TRUE(distance);
    robot::key(distance, kKeyUp);
    EXPECT_EQ(editor.getMap().getStoredVisibleDistance(), 4);
    robot::click(robot::findField(window.getHandle(), u"Fog"), 6, 6);
    EXPECT_FALSE(editor.getMap().fogEnabled);
    EXPECT_EQ(editor.getMap().getImageName(ImageType::Floor), u"Graphics/Dungeon/Floors/crypt.png");
    EXPECT_EQ(editor.getMap().bgm, u"cloister.mid") << "what was not touched stays";

    editor.load(u"Dungeon/Ossuary.map");
    robot::key(distance, kKeyDown);
    EXPECT_EQ(editor.getMap().getStoredVisibleDistance(), 1) << "from the floor's 2";
}

} // namespace varn::test
