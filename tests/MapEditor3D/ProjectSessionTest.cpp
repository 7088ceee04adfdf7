#include "Game/Database/EnemyTable.h"
#include "Game/Database/LanguageManager.h"
#include "Game/Database/StringTable.h"
#include "Game/Map/MapFile.h"
#include "SessionFixture.h"

namespace varn {

using test::RecordingEditor;
using test::SessionFixture;

class ProjectSessionTest : public SessionFixture
{
  protected:
    ProjectSession session{settingsFile(), ProjectSession::Presence::Headless};
};

TEST_F(ProjectSessionTest, StartLoadsTheTablesInOrderAndMakesTheFolders)
{
    project.write("Data/Markers.xml", "<Markers><data/><data/></Markers>");
    ASSERT_TRUE(session.start());
    std::string lines;
    for (const LoadedTable& table : session.getStartTables())
        lines += toUtf8(table.fileName) + " " + std::to_string(table.rows) + "\n";
    EXPECT_EQ(lines, "System.xml 0\nVersionControls.xml 0\nMarkers.xml 2\nFlagList.xml 0\n"
                     "Scripts.xml 0\nNovelScripts.xml 0\nFormulas.xml 0\nEventFloor.xml 0\n"
                     "EnemyTable.dat 64\n");
    EXPECT_TRUE(project.has("Project"));
    EXPECT_TRUE(session.getHierarchy().empty());
    EXPECT_TRUE(std::filesystem::is_directory(tempFolder()));
    EXPECT_EQ(session.getTempFolder(), tempFolder());
    EXPECT_TRUE(host.messages.empty());
    EXPECT_FALSE(project.has("machine/mapeditor.ini"));
}

TEST_F(ProjectSessionTest, LightStagesTakeNeitherLockNorFolder)
{
    writeLanguages();
    session.openProject();
    session.loadTexts();
    session.getHierarchy();
    EXPECT_FALSE(std::filesystem::exists(tempFolder()));
    EXPECT_FALSE(project.has("Project"));
    EXPECT_TRUE(session.getStartTables().empty());
    EXPECT_TRUE(session.getTempFolder().empty());
}

TEST_F(ProjectSessionTest, TheEndRemovesTheTemporaryFolder)
{
    {
        ProjectSession other(settingsFile(), ProjectSession::Presence::Headless);
        ASSERT_TRUE(other.start());
        project.write("machine/tmp/Varn's MapEditor/scratch", "x");
    }
    EXPECT_FALSE(std::filesystem::exists(tempFolder()));
}

TEST_F(ProjectSessionTest, AFolderLeftBehindIsDeletedOnYesOnly)
{
    std::filesystem::create_directories(tempFolder());
    EXPECT_FALSE(session.start());
    ASSERT_EQ(host.questions.size(), 1u);
    EXPECT_EQ(host.questions[0].text,
              u"TEMPフォルダがすでに存在しています\nTEMPフォルダを削除しますか？");
    EXPECT_EQ(host.questions[0].caption, u"Already exist a temp folder. May I delete the Folder ?");
    EXPECT_TRUE(session.getStartTables().empty());

    project.write("machine/tmp/Varn's MapEditor/old", "x");
    host.answers = {Answer::Yes};
    EXPECT_TRUE(session.start());
    EXPECT_FALSE(std::filesystem::exists(tempFolder() / "old"));
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(ProjectSessionTest, AFolderThatCannotBeDeletedEndsTheStart)
{
    std::filesystem::create_directories(tempFolder() / "below");
    host.answers = {Answer::Yes};
    EXPECT_FALSE(session.start());
    EXPECT_EQ(host.messages, std::vector<WString>{u"Couldn't create TempFolder"});
}

TEST_F(ProjectSessionTest, ASecondRunBesideALivingOneHasItsOwnFolder)
{
    ASSERT_TRUE(session.start());
    ProjectSession second(settingsFile(), ProjectSession::Presence::Headless);
    ASSERT_TRUE(second.start());
    EXPECT_TRUE(host.questions.empty());
    EXPECT_NE(second.getTempFolder(), session.getTempFolder());
    EXPECT_TRUE(std::filesystem::is_directory(tempFolder()));
}

TEST_F(ProjectSessionTest, AWindowGivesWayToTheOneThatIsOpen)
{
    ASSERT_TRUE(session.start());
    session.getInstanceLock().callOnRequest([] {});
    ProjectSession second(settingsFile(), ProjectSession::Presence::Window);
    EXPECT_FALSE(second.start());
    EXPECT_TRUE(host.questions.empty());
}

TEST_F(ProjectSessionTest, TheFolderOfTheHierarchyFollowsTheSettings)
{
    struct Case
    {
        const char* name;
        const char* setting;
        std::vector<const char*> files;
        WStringView path;
    };
    const Case cases[] = {
        {"nothing stands", "", {}, u"Project/"},
        {"the maps' folder has it", "", {"Dungeon/MapHierarchy.ini"}, u"Dungeon/"},
        {"maps without it", "", {"Dungeon/B1F.map"}, u"Project/"},
        {"the setting wins", "Mine", {"Mine/x", "Dungeon/MapHierarchy.ini"}, u"Mine"},
        {"the setting vanished", "Gone", {}, u"Project/"},
    };
    for (const Case& c : cases) {
        const test::TemporaryProject other;
        for (const char* const file : c.files)
            other.write(file, "");
        writeSettings("[Project]\nPath=" + std::string(c.setting) + "\n");
        EXPECT_EQ(resolveProjectPath(Settings(settingsFile())), c.path) << c.name;
    }
}

TEST_F(ProjectSessionTest, TheHierarchyIsReadBelowItsFolder)
{
    writeSettings("[Project]\nPath=Mine\n");
    project.write("Mine/MapHierarchy.ini", "1 1 B1F\n");
    ASSERT_EQ(session.getHierarchy().size(), 1u);
    EXPECT_EQ(mapFolder(), u"Mine/");
}

TEST_F(ProjectSessionTest, TheFirstTextsAreJapaneseUntilALanguageWasChosen)
{
    writeLanguages();
    project.write("Data/StringTable.xml",
                  "<StringTable><string name=\"Shop\">Store</string></StringTable>");
    project.write("Data/StringTable2.xml",
                  "<StringTable><string name=\"Shop\">Second</string></StringTable>");
    struct Case
    {
        const char* name;
        const char* setting;
        bool isJapanese;
        WStringView language, inn, shop;
    };
    const Case cases[] = {
        {"no choice", "", false, u"Languages/English.xml", u"Yado", u"Store"},
        {"no choice, Japanese user", "", true, u"Languages/Japanese.xml", u"Yado", u"Store"},
        {"English chosen", "Languages/English.xml", true, u"Languages/English.xml", u"Inn",
         u"Second"},
        {"chosen one missing", "Languages/Latin.xml", false, u"Languages/English.xml", u"Yado",
         u"Store"},
    };
    for (const Case& c : cases) {
        writeSettings("[View]\nLanguage=" + std::string(c.setting) + "\n");
        host.japanese = c.isJapanese;
        ProjectSession other(settingsFile(), ProjectSession::Presence::Headless);
        other.loadTexts();
        EXPECT_EQ(LanguageManager::instance().getFileName(), c.language) << c.name;
        EXPECT_EQ(StringTable::instance().get(u"Inn"), c.inn) << c.name;
        EXPECT_EQ(StringTable::instance().get(u"Shop"), c.shop) << c.name;
    }
}

TEST_F(ProjectSessionTest, TheLayerSettingIsCheckedAndTheZoomLimitedByTheView)
{
    writeSettings("[Editor]\nSelectedLayer=7\n[View]\nTileScaleCount=9\n");
    ASSERT_TRUE(session.start());
    EXPECT_EQ(session.getSelectedLayer(), EditorLayer::Event);
    EXPECT_EQ(session.getTileScaleCount(), 9);
    RecordingEditor editor;
    session.setEditor(&editor);
    EXPECT_EQ(session.getTileScaleCount(), 0);
    EXPECT_EQ(editor.calls.front(), "layer 3");
    session.selectLayer(EditorLayer::Third);
    EXPECT_EQ(session.getSelectedLayer(), EditorLayer::Event);
    session.selectLayer(EditorLayer::Wall);
    EXPECT_EQ(session.getSelectedLayer(), EditorLayer::Wall);
}

TEST_F(ProjectSessionTest, SavingAsksAndWritesHierarchyAndMap)
{
    ASSERT_TRUE(session.start());
    RecordingEditor editor;
    session.setEditor(&editor);
    session.getHierarchy().addMap(std::nullopt, u"B1F");
    EXPECT_TRUE(session.saveAllEdits());
    EXPECT_FALSE(project.has("Project/MapHierarchy.ini"));

    host.answers = {Answer::Yes};
    EXPECT_TRUE(session.saveAllEdits());
    EXPECT_EQ(project.read("Project/MapHierarchy.ini"), "1 1 B1F\n");
    EXPECT_EQ(editor.calls.back(), "save");
    EXPECT_EQ(host.questions.back().text, u"Save all edits?");

    editor.canSave = false;
    host.answers = {Answer::Yes};
    EXPECT_FALSE(session.saveAllEdits());
}

TEST_F(ProjectSessionTest, TheEndAsksAndWritesTheSettings)
{
    writeLanguages();
    writeSettings("; mine\n[Editor]\nSelectedLayer=1\n[View]\nSystemCoordinateEnabled=0\n");
    ASSERT_TRUE(session.start());
    host.answers = {Answer::Cancel, Answer::No};
    EXPECT_FALSE(session.shutdown());
    EXPECT_TRUE(session.shutdown());
    EXPECT_EQ(host.questions.back().text, u"Save all edits and exit?");
    EXPECT_EQ(host.questions.back().buttons, Buttons::YesNoCancel);
    EXPECT_FALSE(project.has("Project/MapHierarchy.ini"));

    const Settings written(settingsFile());
    EXPECT_EQ(written.getSettingInt(u"Editor", u"SelectedLayer", -1), 1);
    EXPECT_EQ(written.getSettingInt(u"View", u"SystemCoordinateEnabled", -1), 0);
    EXPECT_EQ(written.getSettingInt(u"View", u"TileScaleCount", -1), 0);
    EXPECT_EQ(written.getSettingString(u"View", u"Language", u"-"), u"Languages/English.xml");
    EXPECT_EQ(written.getSettingString(u"Project", u"Path", u"-"), u"Project/");
    EXPECT_TRUE(project.read("machine/mapeditor.ini").starts_with("; mine\n"));
}

} // namespace varn
