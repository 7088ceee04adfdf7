#include "MapEditor3D/Commands.h"

#include "Game/Map/Direction.h"
#include "SessionFixture.h"
#include "Util/File.h"

namespace varn {

using test::RecordingEditor;

/// A frame that remembers the windows it was asked for.
class RecordingFrame : public CommandTarget
{
  public:
    using CommandTarget::CommandTarget;
    std::vector<int> windows;

    void showWindow(int command) override { windows.push_back(command); }
};

class CommandsTest : public test::SessionFixture
{
  protected:
    CommandsTest() { session.start(); }

    ProjectSession session{settingsFile(), ProjectSession::Presence::Headless};
    RecordingFrame frame{session};
};

TEST_F(CommandsTest, NamesAndNumbersFindEachOther)
{
    EXPECT_EQ(commandNumber(u"create"), 200);
    EXPECT_EQ(commandNumber(u"mapGenerator"), 251);
    EXPECT_EQ(commandNumber(u"nothing of the kind"), 0);
    EXPECT_EQ(commandNumber(u""), 0);
    EXPECT_EQ(findCommand(206), nullptr);
    int named = 0;
    for (const Command& command : commandTable()) {
        EXPECT_EQ(findCommand(command.number), &command);
        if (command.name.empty())
            continue;
        ++named;
        EXPECT_EQ(findCommand(command.name), &command) << command.number;
    }
    EXPECT_EQ(named, 39);
}

TEST_F(CommandsTest, WhatActsOnTheOpenMapReachesItsEditor)
{
    struct Case
    {
        std::uint32_t word;
        int argument;
        const char* call;
    };
    const Case cases[] = {
        {3, 0, "tool 3"},
        {5, 0, "tool 5"},
        {6, 0, "zoom in"},
        {7, 0, "zoom out"},
        {9, 0, "layer 0"},
        {13, 0, "layer 4"},
        {208, 0, "undo"},
        {209, 0, "redo"},
        {212, 0, "rotate"},
        {0x7FFF0000 + 213, 0, "reflect"},
        {216, 0, "layer 0"},
        {220, 0, "layer 4"},
        {250, Direction::West, "shift -1 0"},
        {250, Direction::South, "shift 0 1"},
    };
    RecordingEditor editor;
    session.setEditor(&editor);
    for (const Case& c : cases) {
        editor.calls.clear();
        EXPECT_TRUE(dispatchCommand(frame, c.word, c.argument));
        EXPECT_EQ(editor.calls, std::vector<std::string>{c.call}) << c.word;
    }
    editor.calls.clear();
    dispatchCommand(frame, 250, 3);
    EXPECT_TRUE(editor.calls.empty());

    session.setEditor(nullptr);
    for (const Case& c : cases)
        EXPECT_TRUE(dispatchCommand(frame, c.word, c.argument)) << c.word;
}

TEST_F(CommandsTest, WhatNeedsAWindowIsLeftToTheFrame)
{
    for (const int word : {221, 211, 0, 1, 201, 202, 206, 65535})
        EXPECT_TRUE(dispatchCommand(frame, static_cast<std::uint32_t>(word)));
    EXPECT_EQ(frame.windows, (std::vector<int>{221, 211}));
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(CommandsTest, ExportingNeedsAMap)
{
    EXPECT_FALSE(dispatchCommand(frame, 205));
    EXPECT_EQ(host.messages, std::vector<WString>{u"There is no map that can be output"});
    EXPECT_TRUE(frame.windows.empty());
}

TEST_F(CommandsTest, RunsTheGameWithTheOpenMap)
{
    RecordingEditor editor;
    session.setEditor(&editor);
    editor.calls.clear();
    const std::filesystem::path game = programFolder() / "Game.exe";
    EXPECT_FALSE(dispatchCommand(frame, 17));
    EXPECT_EQ(host.messages, std::vector<WString>{u"Couldn't run " + toWide(game)});
    EXPECT_TRUE(editor.calls.empty());

    ASSERT_TRUE(replaceFile(game, asBytes("runtime")));
    EXPECT_TRUE(dispatchCommand(frame, 17));
    editor.canSave = false;
    EXPECT_FALSE(dispatchCommand(frame, 17));
    std::filesystem::remove(game);
    EXPECT_EQ(host.ran,
              std::vector<WString>{toWide(game) + u" \"" + toWide(tempFolder()) + u"/B1F.map\""});
    EXPECT_EQ(editor.calls, (std::vector<std::string>{"save", "save"}));
}

TEST_F(CommandsTest, CoordinatesToggleAndTheEndIsKept)
{
    EXPECT_TRUE(session.isSystemCoordinateEnabled());
    dispatchCommand(frame, 215);
    EXPECT_FALSE(session.isSystemCoordinateEnabled());

    host.answers = {Answer::Cancel};
    dispatchCommand(frame, 207);
    EXPECT_FALSE(frame.isClosed());
    dispatchCommand(frame, 207);
    EXPECT_TRUE(frame.isClosed());
    EXPECT_EQ(Settings(settingsFile()).getSettingInt(u"View", u"SystemCoordinateEnabled", 1), 0);
}

} // namespace varn
