#include "DatabaseDialog/FieldPane.h"

#include "Component/CheckBox.h"
#include "Component/ColorPicker.h"
#include "Component/ComboBox.h"
#include "Component/Table.h"
#include "Component/TextArea.h"
#include "Component/UpDownTextField.h"
#include "Component/native/Robot.h"
#include "DatabaseDialog/ListControls.h"
#include "DatabaseDialog/Mnemonics.h"
#include "Game/Database/EnemyTable.h"
#include "Game/Database/GameDatabase.h"
#include "Game/Database/MarkerDatabase.h"
#include "Game/Database/Npc.h"
#include "Game/Database/StateModel.h"
#include "Game/Database/StoryTables.h"
#include "Game/Database/WizCharClass.h"
#include "Game/Database/WizItem.h"
#include "Support/DemoProject.h"

#include <gtest/gtest.h>

namespace varn {
namespace {

/// What a person does to the control of a field.
using Gesture = void (*)(FieldControl& control);

template <class Window>
Window& windowOf(FieldControl& control)
{
    return dynamic_cast<Window&>(control.getWindow());
}

void chooseThird(FieldControl& control)
{
    robot::key(control.getWindow().getHandle(), kKeyHome);
    robot::key(control.getWindow().getHandle(), kKeyDown);
    robot::key(control.getWindow().getHandle(), kKeyDown);
}

class FieldPaneTest : public ::testing::Test
{
  protected:
    FieldPaneTest()
    {
        loadDatabaseTables();
        for (const WStringView tag :
             {u"FlagList", u"Formulas", u"NovelScripts", u"Markers", u"NPCs"})
            findTable(tag)->load(findTable(tag)->getInfo().fileName, 0);
        top.createTopLevel();
        top.setBounds(0, 0, 900, 900);
    }

    test::DemoProject project;
    GroupComponent top;
};

TEST_F(FieldPaneTest, EachKindOfControlGivesItsFieldTheValueOfThePerson)
{
    struct Case
    {
        const char* name;
        GameTable& table;
        std::size_t row;
        WStringView key;
        Gesture gesture;
        WStringView text; ///< of the field's attribute afterwards
    };
    const Case kCases[] = {
        {"number", WizItemList::instance(), 1, u"price",
         [](FieldControl& c) { windowOf<UpDownTextField>(c).setValue(1234); }, u"1234"},
        {"number at its limit", WizItemList::instance(), 1, u"ac",
         [](FieldControl& c) { windowOf<UpDownTextField>(c).setValue(-500); }, u"-128"},
        {"percent", StateDatabase::instance(), 1, u"recoverRateOnStep",
         [](FieldControl& c) { windowOf<UpDownTextField>(c).setValue(35); }, u"35"},
        {"yes or no", WizItemList::instance(), 0, u"curse",
         [](FieldControl& c) { robot::key(c.getWindow().getHandle(), kKeySpace); }, u"1"},
        {"label", WizItemList::instance(), 1, u"type", chooseThird, u"2"},
        {"row of a table", WizItemList::instance(), 1, u"skillOnUse", chooseThird, u"2"},
        {"bits by labels", WizItemList::instance(), 0, u"alignmentFlags",
         [](FieldControl& c) {
             windowOf<Table>(c).setRowChecked(0, false);
             windowOf<Table>(c).setRowChecked(1, false);
             windowOf<Table>(c).setRowChecked(2, true);
         },
         u"4"},
        {"text", WizItemList::instance(), 1, u"name",
         [](FieldControl& c) {
             windowOf<TextField>(c).setText(u"");
             robot::type(c.getWindow().getHandle(), u"Lamp");
         },
         u"Lamp"},
        {"text of too many bytes", StateDatabase::instance(), 1, u"name",
         [](FieldControl& c) {
             windowOf<TextField>(c).setText(u"");
             robot::type(c.getWindow().getHandle(), u"Bewildered by owls");
         },
         u"Bewildered"},
        {"colour", MarkerDatabase::instance(), 0, u"backgroundColor",
         [](FieldControl& c) { windowOf<ColorPicker>(c).setColor(0x00102030); }, u"1056816"},
        {"parallel lists", EnemyTableDatabase::instance(), 63, u"enemyIDs",
         [](FieldControl& c) {
             auto& list = dynamic_cast<ListControl&>(c);
             list.getTable().getToolbar().getPlus().press();
             list.getTable().getToolbar().getPlus().press();
         },
         u"0,0"},
    };
    for (const Case& c : kCases) {
        GameRow& row = c.table.rowAt(c.row);
        FieldPane pane(c.table.getFieldTable());
        pane.create(&top);
        pane.show(&row);
        FieldControl* const control = pane.findControl(c.key);
        ASSERT_NE(control, nullptr) << c.name;
        const std::unique_ptr<GameRow> before = c.table.getFieldTable().clone(row);
        c.gesture(*control);
        pane.store();
        const Field& field = *c.table.getFieldTable().find(c.key);
        EXPECT_EQ(getText(row, field), c.text) << c.name;
        // Nothing else changed, but the list that runs with it.
        for (const Field& other : c.table.getFieldTable().fields)
            if (&other != &field && !other.besideLast && other.place) {
                EXPECT_EQ(getText(row, other), getText(*before, other)) << c.name;
            }
    }
}

TEST_F(FieldPaneTest, ShowingAndStoringChangesNothingInAnyRow)
{
    for (GameTable* const table : knownTables()) {
        if (table->empty())
            continue;
        const WString before = table->compose();
        FieldPane pane(table->getFieldTable());
        pane.create(&top);
        for (std::size_t row = 0; row < std::min<std::size_t>(table->size(), 12); ++row) {
            pane.show(&table->rowAt(row));
            pane.store();
        }
        EXPECT_TRUE(table->compose() == before) << narrow(table->getInfo().className);
    }
}

TEST_F(FieldPaneTest, NumbersThatLeadNowhereAndOddTruthsSurvive)
{
    WizItemModel& item = WizItemList::instance().at(2);
    const FieldTable& table = WizItemModel::fieldTable();
    setText(item, *table.find(u"subtype"), u"4711");
    setText(item, *table.find(u"registerable"), u"7");
    setText(item, *table.find(u"alignmentFlags"), u"248"); // bits without a label
    FieldPane pane(table);
    pane.create(&top);
    pane.show(&item);
    EXPECT_EQ(pane.findControl(u"subtype")->getWindow().getText(), u"4711: ???");
    windowOf<Table>(*pane.findControl(u"alignmentFlags")).setRowChecked(0, true);
    pane.store();
    EXPECT_EQ(getText(item, *table.find(u"subtype")), u"4711");
    EXPECT_EQ(getText(item, *table.find(u"registerable")), u"7");
    EXPECT_EQ(getText(item, *table.find(u"alignmentFlags")), u"249");
}

TEST_F(FieldPaneTest, ATextThatIsCutSaysSoBesideItsField)
{
    FieldPane pane(StateModel::fieldTable());
    pane.create(&top);
    pane.show(&StateDatabase::instance().at(0));
    BaseWindow& name = pane.findControl(u"name")->getWindow();
    name.setText(u"");
    robot::type(name.getHandle(), u"\u6BD2\u6BD2\u6BD2\u6BD2\u6BD2"); // 10 bytes
    const WString told = u"\u26A0 Only the first 10 bytes are kept.";
    EXPECT_EQ(robot::findByText(pane.getHandle(), told), nullptr);
    robot::type(name.getHandle(), u"!");
    EXPECT_NE(robot::findByText(pane.getHandle(), told), nullptr);
}

TEST_F(FieldPaneTest, TextsOfACodecAndOfDocumentsKeepTheirLineEnds)
{
    StateModel& state = StateDatabase::instance().at(1);
    state.setMessage(0, 0, u"one\ntwo");
    state.setMessage(1, 0, u"one\r\ntwo");
    FieldPane pane(StateModel::fieldTable());
    pane.create(&top);
    pane.show(&state);
    for (const std::size_t index : {0, 2, 7})
        windowOf<TextArea>(*pane.findControl(u"message", index)).setText(u"a\nb");
    pane.store();
    EXPECT_EQ(state.getMessage(0, 0), u"a\nb");
    EXPECT_EQ(state.getMessage(1, 0), u"a\r\nb");
    EXPECT_EQ(state.getMessage(3, 1), u"a\r\nb");
}

TEST_F(FieldPaneTest, ChildRowsAreAddedEditedMovedAndRemoved)
{
    NPC npc;
    npc.messages.resize(1);
    npc.messages[0].setText(0, u"Welcome");
    FieldPane pane(NPC::fieldTable());
    pane.create(&top);
    pane.show(&npc);
    auto& items = dynamic_cast<ChildRowsControl&>(*pane.findControl(u"items"));
    auto& messages = dynamic_cast<ChildRowsControl&>(*pane.findControl(u"messages"));
    items.getTable().getToolbar().getPlus().press();
    chooseThird(*items.getPane().findControl(u"id"));
    windowOf<UpDownTextField>(*items.getPane().findControl(u"gold")).setValue(70);
    items.getTable().getToolbar().getPlus().press();
    items.getTable().getToolbar().getUp().press();
    ASSERT_EQ(npc.items.size(), 2U);
    EXPECT_EQ(npc.items[1].getId(), 2);
    EXPECT_EQ(npc.items[1].getGold(), 70);
    items.getTable().getToolbar().getMinus().press();
    ASSERT_EQ(npc.items.size(), 1U);
    EXPECT_EQ(npc.items[0].getGold(), 70);

    messages.getTable().getToolbar().getPlus().press();
    ASSERT_EQ(npc.messages.size(), 2U);
    EXPECT_EQ(npc.messages[1].getId(), 1); // one that no other has
    EXPECT_EQ(npc.messages[0].getText(0), u"Welcome");
    FieldPane& message = messages.getPane();
    auto& conditions = dynamic_cast<ChildRowsControl&>(*message.findControl(u"conditions"));
    EXPECT_FALSE(conditions.getTable().getToolbar().isVisible()); // the type says which there are
    EXPECT_FALSE(message.findControl(u"bgm")->getWindow().isVisible());
    chooseThird(*message.findControl(u"type")); // On Give Gold
    message.show(message.getRow());
    EXPECT_EQ(conditions.getTable().getTable().getRowCount(), 2);
    robot::key(message.findControl(u"type")->getWindow().getHandle(), kKeyEnd); // On Fight
    EXPECT_TRUE(message.findControl(u"bgm")->getWindow().isVisible());
    EXPECT_EQ(npc.messages[1].getType(), NPC::Message::OnFight);
}

TEST_F(FieldPaneTest, LearnedSkillsStandBesideTheirLevels)
{
    WizCharClassData row;
    FieldPane pane(WizCharClassData::fieldTable());
    pane.create(&top);
    pane.show(&row);
    auto& skills = dynamic_cast<ListControl&>(*pane.findControl(u"skillIDs"));
    EXPECT_EQ(skills.getEntryCount(), 100U);
    EXPECT_FALSE(skills.getTable().getToolbar().isVisible()); // an array keeps its length
    EXPECT_EQ(pane.findControl(u"skillLevels"), nullptr);
}

TEST(MnemonicsTest, LettersAreGivenOnce)
{
    Mnemonics mnemonics;
    EXPECT_EQ(mnemonics.mark(u"Name"), u"&Name");
    EXPECT_EQ(mnemonics.mark(u"Novel"), u"N&ovel");
    EXPECT_EQ(mnemonics.mark(u"\u540D\u524D"), u"\u540D\u524D(&A)");
    EXPECT_EQ(mnemonics.mark(u"No"), u"No");
    EXPECT_EQ(mnemonics.mark(u"A & B"), u"A && &B");
}

} // namespace
} // namespace varn
