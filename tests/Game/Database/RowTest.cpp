#include "Game/Database/GameDatabase.h"
#include "Game/Database/LanguageManager.h"
#include "Game/Database/Npc.h"
#include "Game/Database/SkillModel.h"
#include "Game/Database/StateModel.h"
#include "Game/Database/StoryTables.h"
#include "Game/Database/VersionControl.h"
#include "Game/Database/WizCharRace.h"
#include "Game/Database/WizFloor.h"
#include "Game/Database/WizItem.h"
#include "Parser/XMLParser.h"
#include "Support/RecordingHost.h"
#include "Support/TemporaryProject.h"

#include <gtest/gtest.h>
#include <set>

namespace varn::test {
namespace {

/// A row as a file has it, and what must and must not stand in the row as it is saved.
struct RowCase
{
    const char* name;
    WStringView tag;
    WStringView row;
    std::vector<WStringView> holds;
    std::vector<WStringView> lacks;
};

const RowCase kRowCases[] = {
    // What an attribute's text becomes.
    {"missing attributes", u"States", u"<data/>", {u"priority=\"0\"", u"name2=\"\""}, {u"icon"}},
    {"an icon of 0", u"States", u"<data icon='0'/>", {u"icon=\"0\""}, {}},
    {"bad numbers",
     u"States",
     u"<data priority='high' baseFee='12gp'/>",
     {u"priority=\"0\"", u"baseFee=\"12\""},
     {}},
    {"cut to the width",
     u"States",
     u"<data priority='300' nextStateID='-1' baseFee='65537'/>",
     {u"priority=\"44\"", u"nextStateID=\"65535\"", u"baseFee=\"1\""},
     {}},
    {"signed fields",
     u"Items",
     u"<data ac='200' breathResistance='-3' price='-2147483648'/>",
     {u"ac=\"-56\"", u"breathResistance=\"-3\"", u"price=\"-2147483648\""},
     {}},
    {"a name that does not fit",
     u"States",
     u"<data name='\u3042\u3044\u3046\u3048\u304A\u304B' name2='longer than eleven'/>",
     {u"name=\"\u3042\u3044\u3046\u3048\u304A\"", u"name2=\"longer than eleven\""},
     {}},
    {"half a character is no character",
     u"States",
     u"<data name='abcdefghi\u3042'/>",
     {u"name=\"abcdefghi\""},
     {}},
    {"limits below the room",
     u"Enemies",
     u"<data name='12345678901234567890'/>",
     {u"name=\"123456789012345678\""},
     {}},
    {"what the code page lacks",
     u"States",
     u"<data name='a\u00E9\U0001F600'/>",
     {u"name=\"a?"},
     {}},

    // Arrays and lists.
    {"a short array",
     u"Classes",
     u"<data levelUpEXPs='1,2,x'/>",
     {u"levelUpEXPs=\"1,2,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0\""},
     {}},
    {"a long array",
     u"Races",
     u"<data baseAbility='1,2,3,4,5,6,7,8'/>",
     {u"baseAbility=\"1,2,3,4,5,6\""},
     {}},
    {"an empty list", u"EnemyTables", u"<data enemyIDs=''/>", {u"enemyIDs=\"\""}, {}},
    {"a list of bytes",
     u"EnemyTables",
     u"<data enemyIDs='1,,256,-1'/>",
     {u"enemyIDs=\"1,0,0,255\""},
     {}},
    {"dice", u"Skills", u"<data effectValueDice='2,6'/>", {u"effectValueDice=\"2,6,0\""}, {}},

    // Written only at times.
    {"no marker", u"Races", u"<data id='7'/>", {u"id=\"7\" name="}, {u"marker"}},
    {"any marker but -1", u"Races", u"<data marker='-2'/>", {u"id=\"-1\" marker=\"-2\" name="}, {}},
    {"light source",
     u"Skills",
     u"<data specialType='6' halfDoorDetectionProbability='9'/>",
     {u"halfDoorDetectionProbability=\"9\"", u"lightSourceDecreaseInDarkness=\"0\""},
     {}},
    {"no light source",
     u"Skills",
     u"<data specialType='5' halfDoorDetectionProbability='9'/>",
     {},
     {u"DoorDetection", u"Darkness"}},
    {"curse of 7, formula type of 7",
     u"Items",
     u"<data curse='7' acFormulaType='7' usableForEquippableClasses='2'/>",
     {u"curse=\"1\"", u"acFormulaType=\"0\"", u"usableForEquippableClasses=\"1\""},
     {}},

    // Older spellings.
    {"older resistance wins",
     u"Races",
     u"<data stateResistance='9' stateRegistance='1,2'/>",
     {u"stateResistance=\"1,2,0,"},
     {u"Registance"}},
    {"older class arrays",
     u"Classes",
     u"<data skillID='4' skillLevel='2' levelUpEXP='100' skillIDs='9' skillLevels='9' "
     u"levelUpEXPs='9'/>",
     {u"levelUpEXPs=\"100,0,", u"skillIDs=\"4,0,", u"skillLevels=\"2,0,"},
     {u"skillID="}},
    {"newer class arrays without the older key",
     u"Classes",
     u"<data levelUpEXP='100' levelUpEXPs='9'/>",
     {u"levelUpEXPs=\"9,0,"},
     {}},
    {"older skill on use alone",
     u"Items",
     u"<data skillIDOnUse='12'/>",
     {u"skillOnUse=\"12\""},
     {u"skillIDOnUse"}},
    {"newer skill on use wins",
     u"Items",
     u"<data skillIDOnUse='12' skillOnUse='13'/>",
     {u"skillOnUse=\"13\""},
     {}},
    {"dropped item, misspelt",
     u"Enemies",
     u"<data dorpItemID='5' dorpItemRate='50'/>",
     {u"dropItemID=\"5\"", u"dropItemRate=\"50\""},
     {u"dorp"}},
    {"dropped item as it is saved",
     u"Enemies",
     u"<data dropItemID='5' dropItemRate='50'/>",
     {u"dropItemID=\"0\"", u"dropItemRate=\"0\""},
     {}},
    {"older traits",
     u"Items",
     u"<data attributeFlags='5' statusFlags='-2147483648' statusChangeRate='30'><traits>"
     u"<any type='4' targets='63' value='-5'/></traits></data>",
     {u"<traits>\r\n\t\t<trait type=\"4\" targets=\"63\" value=\"-5\" />\r\n"
      u"\t\t<trait type=\"3\" targets=\"\" value=\"30\" />\r\n"
      u"\t\t<trait type=\"2\" targets=\"0,2\" value=\"100\" />\r\n"
      u"\t\t<trait type=\"3\" targets=\"31\" value=\"100\" />\r\n\t</traits>"},
     {u"attributeFlags", u"status"}},
    {"older traits that say nothing",
     u"Items",
     u"<data attributeFlags='0'/>",
     {u"\t<traits></traits>"},
     {}},
    {"only the first traits",
     u"Items",
     u"<data><traits/><traits><trait type='1'/></traits></data>",
     {u"<traits></traits>"},
     {}},

    // Children.
    {"state messages",
     u"States",
     u"<data><message><language>a\\nb\n&amp;amp;c</language><language>B</language><language>x"
     u"</language></message><other/><message/></data>",
     {u"<language>a\r\nb\r\n&amp;c</language>\r\n\t\t<language>B</language>\r\n"},
     {u"<language>x"}},
    {"five state messages",
     u"States",
     u"<data><message/><message/><message/><message/><message><language>fifth</language></message>"
     u"</data>",
     {},
     {u"fifth"}},
    {"message texts",
     u"MessageTable",
     u"<message id='3' name='A' name2='B'><![CDATA[]]><x/><![CDATA[a]]]]><![CDATA[>]]></message>",
     {u"<message id=\"3\" name=\"A\">\r\n\t<![CDATA[]]>", u"<![CDATA[a]]]]>"},
     {u"name2", u"[>]"}},
    {"the end of a section",
     u"Scripts",
     u"<data><![CDATA[a]]&gt;b\n&amp;\\n]]></data>",
     {u"<![CDATA[a]]&gt;b\n&amp;\\n]]>"},
     {}},
    {"a script as plain text",
     u"Scripts",
     u"<data id='1'>x &lt; y</data>",
     {u"<![CDATA[x < y]]>"},
     {}},
    {"no script", u"Formulas", u"<data id='1'/>", {u"<![CDATA[]]>\r\n</data>"}, {}},
    {"an event floor of before",
     u"EventFloor",
     u"<data name='Pit'/>",
     {u"visibility2D=\"0\"", u"useEditDialog=\"0\"", u"<header></header>"},
     {}},
    {"flags of any value",
     u"EventFloor",
     u"<data dark='256' warp='-1'><a>head</a>text<b>foot <i>er</i></b><c>no</c></data>",
     {u"dark=\"1\"", u"warp=\"1\"", u"<header>head</header>\r\n\t<footer>foot er</footer>"},
     {u"no</"}},
    {"a trap that leads nowhere", u"TrapList", u"<Trap scriptID='-7'/>", {u"scriptID=\"-7\""}, {}},
    {"an NPC with nothing",
     u"NPCs",
     u"<NPC name='Ann'/>",
     {u"<NPC name=\"Ann\" name2=\"\" id=\"0\" enemyId=\"0\"></NPC>"},
     {}},
    {"talk",
     u"NPCs",
     u"<NPC><message type='1' bgm='b' enemyId='3'><Condition id='20' gold='9'/><Condition id='10' "
     u"flagId='4' flagEnabled='1'/></message><item id='2' gold='5'/></NPC>",
     {u"<item id=\"2\" gold=\"5\" />\r\n\t<message id=\"0\" novel=\"-1\"",
      u"<Condition id=\"10\" flagId=\"4\" flagValue=\"0\" flagEnabled=\"1\"></Condition>"},
     {u"gold=\"9\"", u"bgm", u"enemyId=\"3\"", u"giveItemId"}},
    {"gold and gift",
     u"NPCs",
     u"<NPC><message type='2'><Condition id='20' gold='9'/></message><message type='3'><Condition "
     u"id='30' giveItemId='1'/></message></NPC>",
     {u"<Condition id=\"20\" gold=\"9\"></Condition>",
      u"<Condition id=\"30\" giveItemId=\"1\" takeItemId=\"-1\"></Condition>"},
     {}},
    {"a fight",
     u"NPCs",
     u"<NPC><message type='4' bgm='b.ogg' enemyId='0'/></NPC>",
     {u"bgm=\"b.ogg\" enemyId=\"0\""},
     {}},
    {"a fight without enemy and music",
     u"NPCs",
     u"<NPC><message type='4' bgm=''/></NPC>",
     {u"memorizable=\"0\">"},
     {u"bgm"}},
    {"children told by what they carry",
     u"CharacterList",
     u"<Character party='1' class='2'><Thing itemID='3' itemState='1'/><x skillID='4'/><y "
     u"ability='5'/><z/></Character>",
     {u"class=\"2\"", u"<item itemID=\"3\" itemState=\"1\" />\r\n\t<skill skillID=\"4\" />\r\n"
                      u"\t<ability ability=\"5\" />\r\n</Character>"},
     {}},
};

/// The table after loading one row, without its root.
WString saved(GameTable& table, WStringView row)
{
    const WString tag(table.getTagName());
    XMLParser parser;
    if (!parser.parse(u"<" + tag + u">" + WString(row) + u"</" + tag + u">"))
        return u"(the row of the case is no document)";
    table.load(parser.getRootElement(), 0);
    const WString text = replaceAll(table.composeElement(), u"\r\n\t", u"\r\n");
    table.clear();
    return text.substr(tag.size() + 4, text.size() - 2 * tag.size() - 9);
}

TEST(Row, KeepsTheRulesOfItsFields)
{
    RecordingHost host;
    for (const RowCase& c : kRowCases) {
        const WString text = saved(*findTable(c.tag), c.row);
        for (const WStringView part : c.holds)
            EXPECT_NE(text.find(part), WString::npos)
                << c.name << ": " << toUtf8(part) << " is missing in\n"
                << toUtf8(text);
        for (const WStringView part : c.lacks)
            EXPECT_EQ(text.find(part), WString::npos)
                << c.name << ": " << toUtf8(part) << " stands in\n"
                << toUtf8(text);
    }
    EXPECT_TRUE(host.messages.empty());
}

TEST(Row, FaultsStopTheSmallestPart)
{
    RecordingHost host;
    NPCList& npcs = NPCList::instance();
    XMLParser parser;
    ASSERT_TRUE(parser.parse(
        u"<NPCs><NPC name='A'><message id='1' type='2'><Condition id='20' gold='5'/><Condition "
        u"id='40'/>"
        u"<Condition id='10' flagId='8'/><![CDATA[lost]]></message><message id='2'><![CDATA[kept]]>"
        u"</message></NPC><NPC name='B'/></NPCs>"));
    EXPECT_TRUE(npcs.load(parser.getRootElement(), 0));
    EXPECT_EQ(host.messages,
              std::vector<WString>{u"InvalidIdException: NPC message condition id is invalid"});
    ASSERT_EQ(npcs.size(), 2u);
    const NPC& npc = npcs.at(0);
    ASSERT_EQ(npc.messages.size(), 2u);
    EXPECT_EQ(npc.messages[0].conditions.at(NPC::Message::Condition::Gold).getGold(), 5);
    EXPECT_EQ(npc.messages[0].conditions.at(NPC::Message::Condition::Flag).getFlagId(), 0);
    EXPECT_EQ(npc.messages[0].getText(0), u"");
    EXPECT_EQ(npc.messages[1].getText(0), u"kept");

    host.messages.clear();
    const WString text =
        saved(*findTable(u"CharacterList"), u"<Character name='Bob'><x skillID='4'/></Character>");
    EXPECT_EQ(host.messages, std::vector<WString>{u"Exception: the Character element doesn't have "
                                                  u"the party attribute."});
    EXPECT_NE(text.find(u"skillID=\"4\""), WString::npos);
}

TEST(Row, BlankRowsHaveTheirConstructorsValues)
{
    EXPECT_EQ(StateModel().getIcon(), -1);
    EXPECT_EQ(WizCharRaceData().getMarker(), -1);
    EXPECT_TRUE(WizFloorData().getVisibility2D());
    EXPECT_TRUE(WizFloorData().getUseEditDialog());
    EXPECT_EQ(NPC::Message().getNovel(), -1);
    EXPECT_EQ(WizItemModel().getDataSize(), 172u);
    EXPECT_EQ(FormulaData().getDataSize(), 0u);
}

TEST(Row, GettersReadTheRecordAndStayInsideArrays)
{
    WizCharRaceData race;
    race.setBaseAbility(5, 18);
    race.setBaseAbility(6, 99);
    race.setShortName("longest");
    EXPECT_EQ(race.getBaseAbility(5), 18);
    EXPECT_EQ(race.getBaseAbility(6), 0);
    EXPECT_EQ(race.getShortName(), "longes");
    EXPECT_EQ(race.getStateResistance(0), 0);

    const Field& field = *race.getFieldTable().find(u"baseAbility");
    EXPECT_EQ(getNumber(race, field, 5), 18);
    EXPECT_EQ(getNumber(race, field, 6), 0);
    setNumber(race, field, 7, 6);
    setNumber(race, field, 7, 0);
    EXPECT_EQ(getText(race, field), u"7,0,0,0,0,18");

    VersionControlModel version;
    version.setItemIdCorrespondenceTable(u"3:5,junk,1:-1");
    EXPECT_EQ(version.getCorrespondences(),
              (std::map<std::int32_t, std::int32_t>{{1, -1}, {3, 5}}));
    version.setCorrespondences({{2, 9}, {1, 4}});
    EXPECT_EQ(version.getItemIdCorrespondenceTable(), u"1:4,2:9");
}

/// Every label of a table and of the rows within its rows.
void collectLabels(const FieldTable& table, std::set<WString>& labels)
{
    for (const Field& field : table.fields) {
        labels.insert(WString(field.label));
        for (const WStringView choice : field.choices)
            labels.insert(WString(choice));
        if (field.children)
            collectLabels(field.children->table(), labels);
    }
}

TEST(FieldTable, SpeaksOfTablesAndTextsThatThereAre)
{
    std::set<WString> labels;
    for (GameTable* const table : knownTables()) {
        collectLabels(table->getFieldTable(), labels);
        for (const Field& field : table->getFieldTable().fields)
            EXPECT_TRUE(field.refersTo.empty() || findTable(field.refersTo))
                << toUtf8(field.refersTo);
    }
    for (const char* const language : {"English", "Japanese"}) {
        TemporaryProject project;
        project.write("Languages/Tested.xml",
                      readSource(std::string("assets/Languages/") + language + ".xml"));
        LanguageManager manager;
        ASSERT_TRUE(manager.load(u"Languages/Tested.xml"));
        for (const WString& label : labels)
            EXPECT_TRUE(manager.getDisplayTexts().contains(label)) << language << toUtf8(label);
    }
}

} // namespace
} // namespace varn::test
