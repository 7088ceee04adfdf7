#include "Game/Database/GameDatabase.h"
#include "Game/Database/TypeDatabase.h"
#include "Support/RecordingHost.h"
#include "Support/TemporaryProject.h"

#include <gtest/gtest.h>

namespace varn::test {
namespace {

std::string describe(const std::vector<LoadedTable>& tables)
{
    std::string out;
    for (const LoadedTable& table : tables)
        out += toUtf8(table.fileName) + " " + std::to_string(table.rows) + "\n";
    return out;
}

TEST(GameDatabase, FindsTablesByTheirFiles)
{
    const std::pair<WStringView, WStringView> cases[] = {
        {u"State.dat", u"States"},
        {u"states.XML", u"States"},
        {u"TrapList.xml", u"TrapList"},
        {u"EnemyTables.xml", u"EnemyTables"},
        {u"System.xml", u"System"},
        {u"TreasureBoxList.xml", u"TreasureBoxList"},
        {u"CharacterList.xml", u"CharacterList"},
    };
    for (const auto& [file, tag] : cases)
        EXPECT_EQ(findTableFile(file), findTable(tag)) << toUtf8(file);
    EXPECT_EQ(findTableFile(u"Types.xml"), &TypesFile::instance());
    EXPECT_EQ(findTableFile(u"States"), nullptr);
    EXPECT_EQ(findTableFile(u""), nullptr);
    EXPECT_EQ(findTable(u""), nullptr);
}

TEST(GameDatabase, LoadsInOrderAndPads)
{
    TemporaryProject project;
    RecordingHost host;
    EXPECT_EQ(describe(loadStartupTables()),
              "System.xml 0\nVersionControls.xml 0\nMarkers.xml 0\nFlagList.xml 0\nScripts.xml 0\n"
              "NovelScripts.xml 0\nFormulas.xml 0\nEventFloor.xml 0\nEnemyTable.dat 64\n");
    const std::string rules =
        "Types.xml 0\nAttribute.dat 16\nState.dat 16\nRace.dat 64\nClass.dat 16\nSkill.dat 255\n"
        "Item.dat 255\nAction.dat 255\nEnemy.dat 255\nEnemyTable.dat 64\nItemTable.dat 64\n";
    EXPECT_EQ(describe(loadDatabaseTables()), rules);
    project.write("Data/CharacterList.xml",
                  "<CharacterList><Character party='1'/></CharacterList>");
    project.write("Data/EventFloor.xml", "<EventFloor/>");
    EXPECT_EQ(describe(loadDatabaseTables()), rules + "CharacterList.xml 1\n");
    EXPECT_EQ(
        describe(loadExportTables()),
        "Attribute.dat 16\nState.dat 16\nRace.dat 64\nClass.dat 16\nSkill.dat 255\nItem.dat 255\n"
        "Enemy.dat 255\nItemTable.dat 64\nAction.dat 255\nEnemyTable.dat 64\nTrapList.xml 16\n"
        "EventFloor.xml 16\nCharacterList.xml 1\nNPCs.xml 1\nSystem.xml 0\nMessageTable.xml 0\n"
        "FlagList.xml 0\nScripts.xml 0\nNovelScripts.xml 0\nFormulas.xml 0\nTypes.xml 0\n"
        "VersionControls.xml 0\n");
    EXPECT_TRUE(host.messages.empty());
}

} // namespace
} // namespace varn::test
