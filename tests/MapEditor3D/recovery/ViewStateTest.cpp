#include "MapEditor3D/recovery/ViewState.h"

#include "Support/TemporaryProject.h"

#include <gtest/gtest.h>

namespace varn::test {

namespace {

ViewState someState()
{
    ViewState state;
    state.openMap = u"Dungeon/\u56DE\u5ECA & \"more\"";
    state.floors[u"Dungeon/A"] = {36, 1200, -4, {7, 99}, Direction::West};
    state.floors[u"Dungeon/B"] = {};
    state.window = std::string("\x00\xFF<&\n", 5);
    state.panes = std::string(5000, '\x7F');
    state.hiddenPanes = {u"Palette", u"Events"};
    state.recentCommands = {u"Save All"};
    return state;
}

} // namespace

TEST(ViewState, ComesBackAsItWasLeft)
{
    TemporaryProject project;
    const auto folder = project.root() / "state";
    EXPECT_EQ(loadViewState(folder, "/p"), ViewState()) << "nothing was left yet";
    ASSERT_TRUE(saveViewState(folder, "/p", someState()));
    EXPECT_EQ(loadViewState(folder, "/p"), someState());
    EXPECT_EQ(loadViewState(folder, "/q"), ViewState());
    EXPECT_FALSE(saveViewState({}, "/p", someState()));
}

TEST(ViewState, TakesWhatMakesSenseOfABrokenFile)
{
    const std::string whole = writeViewState(someState());
    for (std::size_t at = 0; at < whole.size(); at += 7)
        readViewState(asBytes(whole.substr(0, at)));
    EXPECT_EQ(readViewState({}), ViewState());

    const ViewState state = readViewState(asBytes(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?><ViewState openMap='A' window='0g' panes='414'>"
        "<Floor name='A' tileSize='900' scrollX='-99999999' walkerX='-3' facing='3'/>"
        "<Floor tileSize='20'/><Other name='x'/><Hidden name='Palette'/></ViewState>"));
    EXPECT_EQ(state.openMap, u"A");
    EXPECT_EQ(state.window, "");
    EXPECT_EQ(state.panes, "");
    ASSERT_EQ(state.floors.size(), 1U);
    const FloorView& floor = state.floors.at(u"A");
    EXPECT_EQ(floor.tileSize, 64);
    EXPECT_EQ(floor.walker.x, 0);
    EXPECT_EQ(floor.facing, Direction::North);
    EXPECT_EQ(state.hiddenPanes, std::vector<WString>{u"Palette"});
}

} // namespace varn::test
