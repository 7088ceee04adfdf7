#include "MapEditor3D/recovery/RecoveryKeeper.h"
#include "MapEditor3D/recovery/StateFolder.h"
#include "Support/ChildProcess.h"
#include "Support/RecordingHost.h"
#include "Support/TemporaryProject.h"
#include "Util/File.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace varn::test {

namespace {

class RecoveryTest : public ::testing::Test
{
  protected:
    RecoveryTest()
    {
        std::filesystem::create_directories(project.root() / "Dungeon");
        for (const WStringView name : {u"Dungeon/A", u"Dungeon/B"}) {
            WizMap map;
            auto event = std::make_unique<GameEvent>();
            event->names[0] = u"Hob";
            map.events.add(std::move(event));
            EXPECT_TRUE(map.save(name));
        }
        host.wallMs = 4'000'000'000'000; // later than the files just written
        editor.load(u"Dungeon/A.map");
    }

    void stroke(WizMapEditor& on, int tile)
    {
        on.setSelectedTile(tile);
        on.press(MouseButton::Left, {30, 30});
        on.release(MouseButton::Left, {30, 30});
    }
    std::vector<FoundRecovery> left() const { return findRecovery(state, project.root()); }

    TemporaryProject project;
    RecordingHost host;
    std::filesystem::path state = project.root() / "state";
    WizMapEditor editor;
};

} // namespace

/// The process that draws is cut off; another brings back what it drew, and its own files were
/// never touched.
TEST_F(RecoveryTest, BringsBackWhatACrashTook)
{
    const std::string before = project.read("Dungeon/A.map");
    ChildProcess crashing([&]() -> int {
        RecoveryKeeper keeper(editor, state, project.root());
        stroke(editor, 5);
        editor.setLayer(EditorLayer::Area);
        stroke(editor, 3);
        editor.setLayer(EditorLayer::Event);
        editor.press(MouseButton::Left, {1, 1});
        editor.release(MouseButton::Left, {85, 45});
        keeper.flush();
        ::_exit(7);
    });
    EXPECT_EQ(WEXITSTATUS(crashing.wait()), 7);
    EXPECT_EQ(project.read("Dungeon/A.map"), before);

    const auto found = left();
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].mapName, u"Dungeon/A");
    EXPECT_EQ(found[0].savedAtMs, host.wallMs);
    EXPECT_FALSE(found[0].isMapNewer);

    ASSERT_TRUE(applyRecovery(found[0], editor));
    const WizMap& map = editor.getMap();
    EXPECT_EQ(map.cellAt(1, 1).floor, 5);
    ASSERT_NE(map.areas.areaAt(1, 1), nullptr);
    EXPECT_EQ(map.areas.areaAt(1, 1)->number, 3);
    ASSERT_EQ(map.events.size(), 1U);
    EXPECT_EQ(map.events.at(0).x, 4);
    EXPECT_EQ(map.events.at(0).names[0], u"Hob");
    EXPECT_TRUE(editor.undo()) << "its cells are one step";
    EXPECT_EQ(map.cellAt(1, 1).floor, 0);
    EXPECT_FALSE(editor.canUndo());

    discardRecovery(found[0]);
    EXPECT_TRUE(left().empty());
}

TEST_F(RecoveryTest, KeepsNothingOfWhatIsSavedUndoneOrLeftCleanly)
{
    {
        RecoveryKeeper keeper(editor, state, project.root());
        const auto filesAfter = [&](auto act) {
            act();
            keeper.flush();
            return left().size();
        };
        EXPECT_EQ(filesAfter([&] { stroke(editor, 0); }), 0U) << "it changed nothing";
        EXPECT_EQ(filesAfter([&] { stroke(editor, 5); }), 1U);
        EXPECT_TRUE(keeper.hasUnsaved());
        EXPECT_EQ(filesAfter([&] { editor.undo(); }), 0U) << "it is as it was saved";
        EXPECT_EQ(filesAfter([&] { editor.redo(); }), 1U);
        EXPECT_EQ(filesAfter([&] { editor.doSave(); }), 0U);
        EXPECT_FALSE(keeper.hasUnsaved());
        EXPECT_EQ(filesAfter([&] { editor.undo(); }), 1U) << "what was saved is another now";
        EXPECT_EQ(filesAfter([&] { editor.load(u"Dungeon/B.map"); }), 0U);
        EXPECT_EQ(filesAfter([&] { stroke(editor, 9); }), 1U);
        EXPECT_EQ(left()[0].mapName, u"Dungeon/B");
    }
    EXPECT_TRUE(left().empty());
}

TEST_F(RecoveryTest, LeavesARecordOfAnEarlierRunUntilItsMapIsDrawnOn)
{
    const RecoveryRecord record{toWide(project.root()), u"Dungeon/A", 1000,
                                contentsOf(editor.getMap())};
    const auto file = recoveryPath(state, project.root(), u"Dungeon/A");
    createDirectories(file.parent_path());
    replaceFile(file, asBytes(writeRecovery(record)));
    {
        RecoveryKeeper keeper(editor, state, project.root());
        editor.load(u"Dungeon/B.map");
        editor.load(u"Dungeon/A.map");
    }
    ASSERT_EQ(left().size(), 1U);
    EXPECT_TRUE(left()[0].isMapNewer) << "the map was written long after that";
    EXPECT_TRUE(findRecovery(state, project.root() / "other").empty());
}

TEST_F(RecoveryTest, RefusesAFileThatIsCutOrChangedAnywhere)
{
    WizMap small;
    small.cols = small.rows = 2;
    const std::string whole = writeRecovery({u"/p", u"Dungeon/A", -5, contentsOf(small)});
    EXPECT_EQ(readRecovery(asBytes(whole), u"f").savedAtMs, -5);
    EXPECT_EQ(readRecovery(asBytes(whole), u"f").map, contentsOf(small));
    for (std::size_t at = 0; at < whole.size(); ++at) {
        EXPECT_THROW(readRecovery(asBytes(whole.substr(0, at)), u"f"), Exception) << at;
        std::string changed = whole;
        changed[at] = static_cast<char>(changed[at] ^ 0x10);
        EXPECT_THROW(readRecovery(asBytes(changed), u"f"), Exception) << at;
    }
    EXPECT_THROW(readRecovery(asBytes(whole + '\0'), u"f"), Exception);
}

TEST_F(RecoveryTest, AnUnreadableRecordIsToldAndLeavesTheMap)
{
    const MapContents before = contentsOf(editor.getMap());
    RecoveryRecord record{toWide(project.root()), u"Dungeon/A", 1, before};
    for (const bool breaksGrid : {true, false}) {
        record.map = before;
        if (breaksGrid)
            record.map.grid.resize(50);
        else
            record.map.document = u"<Map><Event></Map>";
        project.write("r.recovery", writeRecovery(record));
        host.messages.clear();
        EXPECT_FALSE(applyRecovery({project.root() / "r.recovery", {}, 0, false}, editor));
        EXPECT_EQ(host.messages.size(), 1U);
        EXPECT_EQ(contentsOf(editor.getMap()), before);
    }
}

TEST(StateFolder, FollowsTheEnvironmentAndKeepsProjectsOfOneNameApart)
{
    const auto with = [](const char* state, const char* home) {
        state ? ::setenv("XDG_STATE_HOME", state, 1) : ::unsetenv("XDG_STATE_HOME");
        const std::string before = std::getenv("HOME") ? std::getenv("HOME") : "";
        ::setenv("HOME", home, 1);
        const auto folder = defaultStateFolder();
        ::setenv("HOME", before.c_str(), 1);
        ::unsetenv("XDG_STATE_HOME");
        return folder;
    };
    EXPECT_EQ(with("/s", "/h"), "/s/Varn's MapEditor");
    EXPECT_EQ(with("relative", "/h"), "/h/.local/state/Varn's MapEditor");
    EXPECT_EQ(with(nullptr, "/h"), "/h/.local/state/Varn's MapEditor");
    EXPECT_EQ(with(nullptr, ""), "");

    EXPECT_NE(stateNameOf("/a/Crypt"), stateNameOf("/b/Crypt"));
    EXPECT_EQ(stateNameOf("/a/Crypt/"), stateNameOf("/a/./Crypt"));
    EXPECT_TRUE(stateNameOf("/a/My Crypt").starts_with("My_Crypt-"));
    EXPECT_LT(stateNameOf("/" + std::string(200, 'x')).size(), 64U);
}

} // namespace varn::test
