#include "Game/Database/EnemyAction.h"
#include "Game/Database/FlagDatabase.h"
#include "Game/Database/Language.h"
#include "Game/Database/StateModel.h"
#include "Game/Database/SystemDatabase.h"
#include "Game/Database/TreasureBox.h"
#include "Game/Database/TypeDatabase.h"
#include "Game/Database/WizCharacter.h"
#include "Parser/XMLParser.h"
#include "Support/RecordingHost.h"
#include "Support/TemporaryProject.h"
#include "Util/Exception.h"

#include <gtest/gtest.h>

namespace varn::test {
namespace {

using namespace std::string_literals;

/// An empty project with tables that hold nothing yet.
class GameTableTest : public ::testing::Test
{
  protected:
    TemporaryProject project;
    RecordingHost host;
    StateDatabase& states = StateDatabase::instance();
    TreasureBoxTrapList& traps = TreasureBoxTrapList::instance();

    void SetUp() override
    {
        states.clear();
        traps.clear();
    }
    void TearDown() override { language() = {}; }
};

std::string stateRecords(std::size_t count, std::size_t stray = 0)
{
    std::string file = "\x20\x00"s;
    for (std::size_t i = 0; i < count; i++)
        file += "State" + std::to_string(i) + std::string(32 - 6, '\0');
    return file + std::string(stray, 'x');
}

struct DatCase
{
    const char* name;
    std::string file;
    std::size_t rows; ///< padded to 4
    WStringView lastName;
    WStringView message;
};

TEST_F(GameTableTest, ReadsTheBinaryFormToItsEnd)
{
    const DatCase cases[] = {
        {"empty", "", 4, u"", u""},
        {"one byte", "\x20", 4, u"", u""},
        {"size only", stateRecords(0), 4, u"", u""},
        {"another size", "\x28\x00"s + std::string(40, 'x'), 4, u"",
         u"Exception: dataSize is different. 40 != 32"},
        {"another size, no record", "\x28\x00"s, 4, u"",
         u"Exception: dataSize is different. 40 != 32"},
        {"as many as there are", stateRecords(5), 5, u"State4", u""},
        {"a short last record", stateRecords(3, 5), 4, u"xxxxx", u""},
    };
    for (const DatCase& c : cases) {
        project.write("Data/State.dat", c.file);
        host.messages.clear();
        EXPECT_TRUE(states.load(u"State.dat", 4)) << c.name;
        ASSERT_EQ(states.size(), c.rows) << c.name;
        EXPECT_EQ(states.at(c.rows - 1).getName(), c.lastName) << c.name;
        EXPECT_EQ(host.messages, c.message.empty() ? std::vector<WString>()
                                                   : std::vector<WString>{WString(c.message)})
            << c.name;
        EXPECT_EQ(states.wasRefused(), !c.message.empty()) << c.name;
        EXPECT_EQ(states.getFileName(), u"States.xml");
    }
}

TEST_F(GameTableTest, PadsWhereThereIsNoFile)
{
    EXPECT_TRUE(states.load(u"State.dat", 16));
    EXPECT_EQ(states.size(), 16u);
    EXPECT_TRUE(traps.load(u"TrapList.xml", 16));
    EXPECT_EQ(traps.size(), 16u);
    EXPECT_FALSE(traps.wasRefused());
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(GameTableTest, RefusesABinaryFileOfATableWithoutThatForm)
{
    project.write("Data/TrapList.dat", "\x20\x00"s);
    EXPECT_TRUE(traps.load(u"TrapList.dat", 2));
    EXPECT_EQ(traps.size(), 2u);
    EXPECT_EQ(host.messages, std::vector<WString>{u"Exception: .dat file is not supported."});
}

TEST_F(GameTableTest, PrefersTheDocument)
{
    project.write("Data/State.dat", stateRecords(3));
    project.writeUtf16("Data/states.xml",
                       u"<States><data name=\"Poison\"/>noise<x name='Sleep'/></States>");
    EXPECT_TRUE(states.load(u"State.dat", 1));
    ASSERT_EQ(states.size(), 2u);
    EXPECT_EQ(states.at(1).getName(), u"Sleep");
    EXPECT_TRUE(states.load(u"State.dat", 5));
    EXPECT_EQ(states.size(), 5u);
}

TEST_F(GameTableTest, FindsTheTableBelowAnotherRoot)
{
    project.write("Data/States.xml",
                  "<Database><a/><b><States><data name='Sleep'/></States></b></Database>");
    EXPECT_TRUE(states.load(u"States.xml", 0));
    EXPECT_EQ(states.size(), 1u);
    project.write("Data/States.xml", "<Other><data name='Sleep'/></Other>");
    EXPECT_FALSE(states.load(u"States.xml", 16));
    EXPECT_EQ(states.size(), 0u);
    EXPECT_TRUE(states.wasRefused()) << "a save would empty the document";
}

TEST_F(GameTableTest, ReportsARefusedDocumentAndPads)
{
    project.write("Data/TrapList.xml", "<TrapList><Trap name='Needle'/></Trap>");
    EXPECT_TRUE(traps.load(u"TrapList.xml", 16));
    EXPECT_EQ(traps.size(), 16u);
    EXPECT_EQ(host.questions.size() + host.messages.size(), 1u);
    EXPECT_TRUE(traps.wasRefused());
    EXPECT_TRUE(traps.save());
    EXPECT_TRUE(traps.load(u"TrapList.xml", 16));
    EXPECT_FALSE(traps.wasRefused());
}

TEST_F(GameTableTest, SavesUnderTheNameOfTheLoad)
{
    EXPECT_TRUE(states.load(u"State.dat", 1));
    EXPECT_TRUE(states.save());
    EXPECT_TRUE(project.has("Data/States.xml"));
    EXPECT_FALSE(project.has("Data/State.dat"));

    EXPECT_TRUE(traps.load(u"Old Traps.xml", 1));
    traps.at(0).setName(u"Needle");
    EXPECT_TRUE(traps.save());
    const std::string expected = "\xFF\xFE";
    const std::string bytes = project.read("Data/Old Traps.xml");
    EXPECT_EQ(bytes.substr(0, 2), expected);
    WString text;
    for (std::size_t i = 2; i + 1 < bytes.size(); i += 2)
        text += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                      static_cast<unsigned char>(bytes[i + 1]) << 8);
    EXPECT_EQ(text, u"<?xml version=\"1.0\" encoding=\"UTF-16\"?>\r\n"
                    u"<Old Traps>\r\n"
                    u"\t<Trap name=\"Needle\" name2=\"\" skillID=\"0\" scriptID=\"0\" target=\"0\" "
                    u"contentsObtainable=\"0\" />\r\n"
                    u"</Old Traps>\r\n");
    EXPECT_EQ(text, traps.compose());
}

TEST_F(GameTableTest, LoadsFromAnElement)
{
    XMLParser parser;
    ASSERT_TRUE(parser.parse(u"<Database><TrapList><Trap name='A'/></TrapList></Database>"));
    EXPECT_TRUE(traps.load(u"Named.xml", 0));
    EXPECT_TRUE(traps.load(parser.getRootElement(), 2));
    EXPECT_EQ(traps.size(), 2u);
    EXPECT_EQ(traps.getFileName(), u"");
    EXPECT_TRUE(traps.save());
    EXPECT_TRUE(project.has("Data/TrapList.xml"));
    EXPECT_TRUE(traps.composeElement().starts_with(u"<TrapList>\r\n\t<Trap"));
    EXPECT_TRUE(traps.composeElement().ends_with(u"</TrapList>"));
    EXPECT_FALSE(states.load(parser.getRootElement(), 2));
    EXPECT_EQ(states.size(), 0u);
    EXPECT_FALSE(states.load(nullptr, 2));
}

TEST_F(GameTableTest, NeedsANameToSave)
{
    WizPartyList& parties = WizPartyList::instance();
    XMLParser parser;
    ASSERT_TRUE(parser.parse(u"<Anything><data name='A'/></Anything>"));
    EXPECT_TRUE(parties.load(parser.getRootElement(), 0));
    EXPECT_EQ(parties.size(), 1u);
    EXPECT_FALSE(parties.save());
    EXPECT_EQ(host.messages,
              std::vector<WString>{u"Exception: database fileName and tagName are empty."});
    host.messages.clear();
    project.write("Data", "a file where the folder belongs");
    EXPECT_FALSE(traps.save());
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(GameTableTest, ResizesWithinTheGreatestCount)
{
    states.resize(3);
    states.at(0).setName(u"Sleep");
    states.resize(1);
    EXPECT_EQ(states.size(), 1u);
    EXPECT_THROW(states.resize(kMaximumRows + 1), Exception);
    EXPECT_EQ(states.size(), 1u);
    EXPECT_EQ(states.findRow(-1), nullptr);
    EXPECT_EQ(states.findRow(1), nullptr);
    EXPECT_THROW(states.at(1), std::out_of_range);
}

TEST_F(GameTableTest, SystemTableStaysEmptyWithoutItsFile)
{
    SystemDatabase& system = SystemDatabase::instance();
    EXPECT_FALSE(system.load(u"System.xml", 1));
    EXPECT_EQ(system.getData(), nullptr);
    project.write("Data/System.xml",
                  "<System><data supportSecondLanguage='1' title='T'/></System>");
    EXPECT_TRUE(system.load(u"System.xml", 1));
    EXPECT_TRUE(language().supported);
    EXPECT_EQ(system.getData()->getTitle(), "T");
    EXPECT_TRUE(system.save());
    EXPECT_TRUE(project.read("Data/System.xml").starts_with("\xFF\xFE"));
    EXPECT_FALSE(system.load(nullptr, 1));
    EXPECT_EQ(system.size(), 1u);
    EXPECT_FALSE(language().supported);
}

TEST_F(GameTableTest, TypesShareOneDocument)
{
    SpellTypeDatabase& spells = SpellTypeDatabase::instance();
    WeaponTypeDatabase& weapons = WeaponTypeDatabase::instance();
    project.write("Data/Types.xml",
                  "<Types><SpellTypes><data name='Fire'/></SpellTypes><WeaponTypes>"
                  "<data name='Sword' holdtype='2' equippableClasses='0,3'/>"
                  "<data name='Bow'/></WeaponTypes></Types>");
    EXPECT_TRUE(spells.load(u"Types.xml", 2));
    EXPECT_EQ(spells.size(), 2u);
    ASSERT_EQ(weapons.size(), 2u);
    EXPECT_EQ(weapons.at(0).getEquippableClasses(), (std::vector<std::int32_t>{0, 3}));
    spells.at(0).setName(u"Ice");
    EXPECT_TRUE(spells.save());
    EXPECT_TRUE(weapons.load(u"Types.xml", 0));
    EXPECT_EQ(spells.at(0).getName(), u"Ice");
    EXPECT_EQ(weapons.at(1).getName(), u"Bow");
    EXPECT_EQ(weapons.compose(), spells.compose());

    // Without the elements the root stands for either table.
    project.write("Data/Types.xml", "<Types><data name='Both'/></Types>");
    EXPECT_TRUE(TypesFile::instance().load(u"Types.xml", 0));
    EXPECT_EQ(spells.at(0).getName(), u"Both");
    EXPECT_EQ(weapons.at(0).getName(), u"Both");
}

TEST_F(GameTableTest, NamesChangePlacesInTheSecondLanguage)
{
    states.resize(1);
    states.at(0).setName(u"Sleep");
    states.at(0).setName2(u"\u7720\u308A");
    language() = {true, 1};
    EXPECT_EQ(states.at(0).getName(), u"\u7720\u308A");
    EXPECT_EQ(states.at(0).getName2(), u"Sleep");
    EXPECT_EQ(states.at(0).getName(0), "Sleep");
    EXPECT_EQ(states.findByName(u"Sleep"), 0u);
    EXPECT_EQ(language().current, 1);
    states.at(0).setName(u"a second name of any length");

    // Saved in the second language, the names come back the other way round.
    EXPECT_TRUE(states.save());
    EXPECT_TRUE(states.load(u"States.xml", 1));
    language() = {};
    EXPECT_EQ(states.at(0).getName(), u"a second n");
    EXPECT_EQ(states.at(0).getName2(), u"Sleep");

    // A row with one name keeps it.
    FlagModel flag;
    flag.setName(u"Door");
    language() = {true, 1};
    EXPECT_EQ(flag.getName(), u"Door");
}

} // namespace
} // namespace varn::test
