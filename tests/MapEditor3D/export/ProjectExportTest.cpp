#include "MapEditor3D/export/ProjectExport.h"

#include "../SessionFixture.h"
#include "Game/Map/MapTree.h"
#include "Game/Map/WizMap.h"
#include "Parser/XMLParser.h"
#include "Util/File.h"

namespace varn {

class ProjectExportTest : public test::SessionFixture
{
  protected:
    ProjectExportTest()
    {
        std::filesystem::create_directories(project.root() / "Dungeon");
        std::filesystem::create_directories(project.root() / "out");
        WizMap map;
        map.cols = map.rows = 2;
        map.save(u"Dungeon/B1F");
        map.cols = 3;
        map.save(u"Dungeon/B2F");
        project.write("Dungeon/MapHierarchy.ini", kTree);
        project.write("Data/ResourceManager.xml",
                      "<ResourceManager><BackgroundMusicList><BGM id=\"1\" path=\"Audio\\a.ogg\"/>"
                      "</BackgroundMusicList></ResourceManager>");
        project.write("Audio/a.ogg", "OggS");
        project.write("Data/StringTable.xml",
                      "<StringTable><string name=\"Inn\">Yado</string></StringTable>");
        project.write("Data/StringTable2.xml",
                      "<StringTable><string name=\"Inn\">Hostel</string></StringTable>");
    }

    static constexpr const char* kTree = "1 8192 Crypt\n2 1 B1F\n2 2 B2F\n1 1 B1F\n"; // one twice

    std::optional<WString> exportTo(WStringView target, std::set<WString> without = {})
    {
        ProjectSession session(settingsFile(), ProjectSession::Presence::Headless);
        return exportProject(session, {WString(target), std::move(without)});
    }

    /// "NAME: content" a line, of DATABASE the name alone.
    static std::string listing(const GameResourceFile& archive)
    {
        std::string lines;
        for (const auto& entry : archive.getResources()) {
            lines += toUtf8(entry.name);
            if (entry.name.ends_with(u".txt") || entry.name.ends_with(u".ini") ||
                entry.name.ends_with(u".ogg") || entry.name.ends_with(u".dat"))
                lines += ": " + std::string(asChars(entry.content()));
            lines += "\n";
        }
        return lines;
    }

    std::string database()
    {
        GameResourceFile archive;
        archive.load(u"out/GameData.gamedata");
        const auto* const entry = archive.getResource(u"DATABASE");
        return entry ? std::string(asChars(entry->content())) : std::string();
    }
};

TEST_F(ProjectExportTest, TheArchiveHoldsEverythingInOrder)
{
    project.write("Scripts/b.txt", "\x82\xA0"); // Shift_JIS
    project.write("Scripts/a/z.txt", "deep");
    project.write("Scripts/a.txt.bak", "still a text");
    project.write("Scripts/tune.dat", std::string("\0\xFF", 2));
    const auto path = exportTo(u"out");
    ASSERT_EQ(path, u"out/GameData.gamedata");
    GameResourceFile archive;
    archive.load(*path);
    EXPECT_EQ(listing(archive),
              "Dungeon/B1F.map\nDungeon/B1F.xml\nDungeon/B2F.map\nDungeon/B2F.xml\n"
              "Dungeon/MapHierarchy.ini: " +
                  std::string(kTree) +
                  "\nDATABASE\nAudio/a.ogg: OggS\n"
                  "Scripts/a.txt.bak\nScripts/a/z.txt: deep\nScripts/b.txt: \xE3\x81\x82\n"
                  "Scripts/tune.dat: " +
                  std::string("\0\xFF", 2) + "\n");
    EXPECT_EQ(asChars(archive.getResource(u"Dungeon/B2F.map")->content()),
              project.read("Dungeon/B2F.map"));
    EXPECT_TRUE(archive.getResource(u"Scripts/a.txt.bak")->isText);
    EXPECT_TRUE(project.has("out/Data"));
    ASSERT_EQ(host.questions.size(), 1u);
    EXPECT_EQ(host.questions[0].text,
              u"Exported GameData.gamedata to out. Would you like to open the folder?");
    EXPECT_EQ(Settings(settingsFile()).getSettingString(u"GameDataExport", u"Path", u""), u"out");
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(ProjectExportTest, TheDatabaseHoldsEveryTableOnceAndPadded)
{
    ASSERT_TRUE(exportTo(u"out"));
    XMLParser document;
    ASSERT_TRUE(document.parse(fromUtf8(database())));
    std::string parts;
    for (const Element* const part : document.getRootElement()->getChildren())
        parts +=
            toUtf8(part->getTagName()) + " " + std::to_string(part->getChildren().size()) + "\n";
    EXPECT_EQ(parts, "CharacterList 0\nRaces 64\nAttributes 16\nStates 16\nClasses 16\n"
                     "Skills 255\nItems 255\nEnemies 255\nItemTables 64\nActions 255\n"
                     "EnemyTables 64\nTrapList 16\nTypes 2\nFlagList 0\nScripts 0\n"
                     "NovelScripts 0\nFormulas 0\nNPCs 1\nSystem 0\nMessageTable 0\n"
                     "EventFloor 16\nResourceManager 1\nVersionControls 0\nStringTable 1\n");
    EXPECT_TRUE(database().starts_with("<Database>\r\n<CharacterList>"));
    EXPECT_TRUE(database().ends_with("</StringTable>\r\n</Database>\r\n"));
}

TEST_F(ProjectExportTest, ASecondLanguageBringsItsTexts)
{
    project.write("Data/System.xml",
                  "<System><data id=\"0\" supportSecondLanguage=\"1\"/></System>");
    ASSERT_TRUE(exportTo(u"out"));
    const std::string text = database();
    const std::size_t first = text.find(">Yado<"), second = text.find(">Hostel<");
    ASSERT_NE(second, std::string::npos);
    EXPECT_LT(first, second);
}

TEST_F(ProjectExportTest, EqualProjectsGiveEqualArchives)
{
    project.write("Scripts/b.txt", "b");
    project.write("Scripts/a.txt", "a");
    ASSERT_TRUE(exportTo(u"out"));
    const std::string first = project.read("out/GameData.gamedata");
    ASSERT_TRUE(exportTo(u"out"));
    EXPECT_EQ(project.read("out/GameData.gamedata"), first);
}

TEST_F(ProjectExportTest, AMapLeftOutStaysInTheHierarchy)
{
    ASSERT_TRUE(exportTo(u"out", {u"B1F"}));
    GameResourceFile archive;
    archive.load(u"out/GameData.gamedata");
    EXPECT_EQ(archive.getResource(u"Dungeon/B1F.map"), nullptr);
    EXPECT_EQ(archive.getResource(u"Dungeon/B1F.xml"), nullptr);
    EXPECT_NE(asChars(archive.getResource(u"Dungeon/MapHierarchy.ini")->content()).find("B1F"),
              std::string_view::npos);
}

TEST_F(ProjectExportTest, WhatIsMissingIsToldAndSkipped)
{
    std::filesystem::remove("Audio/a.ogg");
    std::filesystem::remove("Dungeon/B2F.xml");
    ASSERT_TRUE(exportTo(u"out"));
    EXPECT_EQ(host.messages, std::vector<WString>{u"Couldn't open this file.\r\nAudio/a.ogg"});
    GameResourceFile archive;
    archive.load(u"out/GameData.gamedata");
    EXPECT_EQ(archive.getResource(u"Dungeon/B2F.xml"), nullptr);
    EXPECT_NE(archive.getResource(u"Dungeon/B2F.map"), nullptr);
}

TEST_F(ProjectExportTest, TheTargetMustBeAFolder)
{
    project.write("plain", "");
    EXPECT_FALSE(exportTo(u"plain"));
    EXPECT_EQ(host.messages.back(), u"plain\r\nThis path is not directory");
    project.write("blocked/Data", "");
    EXPECT_FALSE(exportTo(u"blocked"));
    EXPECT_EQ(host.messages.back(), u"blocked/Data\r\nThis path is not directory");
    EXPECT_FALSE(confirmExportTarget(u"nowhere"));
    EXPECT_EQ(host.messages.back(), u"This directory is not found.");
    EXPECT_TRUE(confirmExportTarget(u"plain"));
}

TEST_F(ProjectExportTest, OnlyAMapWithAFileCanBeExported)
{
    const std::pair<const char*, bool> cases[] = {
        {"1 8192 B1F\n", false}, {"1 1 Gone\n", false}, {"1 1 Gone\n1 2 B1F\n", true}, {"", false}};
    for (const auto& [text, isPossible] : cases) {
        project.write("Dungeon/MapHierarchy.ini", text);
        ProjectSession session(settingsFile(), ProjectSession::Presence::Headless);
        EXPECT_EQ(canExportProject(session), isPossible) << text;
    }
    EXPECT_EQ(host.messages.size(), 3u);
    EXPECT_EQ(host.messages[0], u"There is no map that can be output");
}

TEST_F(ProjectExportTest, AStopLeavesTheOldArchive)
{
    project.write("out/GameData.gamedata", "old");
    ProjectSession session(settingsFile(), ProjectSession::Presence::Headless);
    const auto stop = [](std::uint64_t, std::uint64_t, WStringView) { return false; };
    EXPECT_FALSE(exportProject(session, {u"out", {}}, stop));
    EXPECT_EQ(project.read("out/GameData.gamedata"), "old");
    EXPECT_TRUE(host.questions.empty());
}

TEST_F(ProjectExportTest, ACopyOfATestRunIsTheNewerGrid)
{
    ProjectSession session(settingsFile(), ProjectSession::Presence::Headless);
    ASSERT_TRUE(session.start());
    project.write("machine/tmp/Varn's MapEditor/B1F.map", "newer");
    ASSERT_TRUE(exportProject(session, {u"out", {}}));
    GameResourceFile archive;
    archive.load(u"out/GameData.gamedata");
    EXPECT_EQ(asChars(archive.getResource(u"Dungeon/B1F.map")->content()), "newer");
    EXPECT_NE(archive.getResource(u"Dungeon/B1F.xml"), nullptr);
}

} // namespace varn
