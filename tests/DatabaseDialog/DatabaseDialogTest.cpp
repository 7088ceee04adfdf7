#include "DatabaseDialog/DatabaseDialog.h"

#include "Component/Application.h"
#include "Component/UpDownTextField.h"
#include "Component/native/Robot.h"
#include "DatabaseDialog/DatabaseWindow.h"
#include "DatabaseDialog/TextCheck.h"
#include "Game/Database/GameDatabase.h"
#include "Game/Database/MarkerDatabase.h"
#include "Game/Database/StoryTables.h"
#include "Game/Database/WizEnemy.h"
#include "Game/Database/WizItem.h"
#include "Support/DemoProject.h"
#include "Support/RecordingHost.h"

#include <gtest/gtest.h>

namespace varn {
namespace {

/// Every file of the data folder with its bytes.
std::map<std::string, std::string> dataFiles(const test::TemporaryProject& project)
{
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(project.root() / "Data")) {
        const std::filesystem::path path = "Data" / entry.path().filename();
        files[path.string()] = project.read(path);
    }
    return files;
}

class DatabaseDialogTest : public ::testing::Test
{
  protected:
    DatabaseDialogTest()
    {
        loadDatabaseTables();
        MarkerDatabase::instance().load(u"Markers.xml", 0);
    }

    static std::vector<PageOutline> items() { return {{u"Items", &WizItemList::instance()}}; }
    static void press(Dialog& dialog, WStringView button)
    {
        robot::click(robot::findByText(dialog.getHandle(), button), 3, 3);
    }

    test::DemoProject project;
    test::RecordingHost host;
    WizItemList& table = WizItemList::instance();
};

TEST_F(DatabaseDialogTest, EveryWindowOpensAndEscapeLeavesTheFilesAlone)
{
    const auto before = dataFiles(project);
    for (const int command : {221, 223, 224, 226, 227, 232, 233, 234, 235, 236, 237, 238}) {
        bool wasOpen = false;
        robot::later(30, [&] {
            wasOpen = robot::frontDialog() != nullptr;
            robot::key(robot::frontDialog(), kKeyEscape);
        });
        EXPECT_TRUE(showDatabaseWindow(nullptr, command)) << command;
        EXPECT_TRUE(wasOpen) << command;
    }
    EXPECT_FALSE(showDatabaseWindow(nullptr, 222));
    EXPECT_EQ(dataFiles(project), before);
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(DatabaseDialogTest, ConfirmingWritesTheDocumentThatTheChangedRowGives)
{
    const auto before = dataFiles(project);
    const WString name = table.at(3).getName();
    DatabaseDialog dialog(u"Database",
                          {{u"Items", &table}, {u"Enemies", &WizEnemyList::instance()}});
    dialog.show(nullptr);
    DatabasePage& page = dialog.ensurePage(0);
    page.selectRow(3);
    dynamic_cast<UpDownTextField&>(page.getFields().findControl(u"price")->getWindow())
        .setValue(777);
    dialog.selectPage(1); // the other table is only looked at
    press(dialog, u"OK");

    auto after = dataFiles(project);
    EXPECT_EQ(after["Data/Enemies.xml"], before.at("Data/Enemies.xml"));
    project.write("Data/Items.xml", before.at("Data/Items.xml"));
    table.load(u"Item.dat", 255);
    setText(table.at(3), *WizItemModel::fieldTable().find(u"price"), u"777");
    table.save();
    EXPECT_EQ(project.read("Data/Items.xml"), after["Data/Items.xml"]);
    EXPECT_NE(after["Data/Items.xml"], before.at("Data/Items.xml"));
}

TEST_F(DatabaseDialogTest, RowsAreCopiedPastedAndCleared)
{
    DatabaseDialog dialog(u"Database", items());
    dialog.show(nullptr);
    DatabasePage& page = dialog.ensurePage(0);
    const Field& id = *WizItemModel::fieldTable().find(u"id");
    const Field& marker = *WizItemModel::fieldTable().find(u"marker");
    setNumber(table.at(5), id, 55);
    setNumber(table.at(5), marker, 0);
    page.selectRow(5);
    page.pasteRow(); // nothing was copied
    const WString first = table.at(1).getName(), second = table.at(2).getName();
    page.selectRow(1);
    page.copyRow();
    page.selectRow(2);
    page.copyRow(); // replaces the first copy
    page.selectRow(5);
    page.pasteRow();
    EXPECT_EQ(table.at(5).getName(), second);
    EXPECT_EQ(getNumber(table.at(5), id), 55);
    page.selectRow(2);
    page.pasteRow(); // onto itself
    EXPECT_EQ(table.at(2).getName(), second);
    page.selectRow(5);
    page.markRow(0);
    EXPECT_EQ(getNumber(table.at(5), marker), 0);
    page.clearRow();
    EXPECT_EQ(table.at(5).getName(), u"");
    EXPECT_EQ(getNumber(table.at(5), id), 55);
    EXPECT_EQ(getNumber(table.at(5), marker), -1);
    EXPECT_EQ(table.at(1).getName(), first);
    page.selectRow(-1);
    page.copyRow();
    page.pasteRow();
    page.clearRow();
    EXPECT_EQ(host.messages, (std::vector<WString>{u"Couldn't copy data.", u"Couldn't paste data.",
                                                   u"Couldn't clear data."}));
}

TEST_F(DatabaseDialogTest, TheMaximumHasALimitAndBlankRowsCome)
{
    DatabaseDialog dialog(u"Database", items());
    dialog.show(nullptr);
    DatabasePage& page = dialog.ensurePage(0);
    page.selectRow(254);
    page.setMaximum(kMaximumRows + 1);
    EXPECT_EQ(host.messages, (std::vector<WString>{u"Exception: Too much data"}));
    EXPECT_EQ(table.size(), 255U);
    EXPECT_EQ(page.getSelectedRow(), 254);
    page.setMaximum(300);
    EXPECT_EQ(page.getShownRows().size(), 300U);
    page.selectRow(299);
    page.setMaximum(10);
    EXPECT_EQ(page.getSelectedRow(), 9);
    page.setMaximum(0);
    EXPECT_EQ(page.getSelectedRow(), -1);
    page.store(); // no row, nothing to store
    press(dialog, u"Cancel");
    EXPECT_EQ(project.read("Data/Items.xml"), test::readSource("demo/Data/Items.xml"));
}

TEST_F(DatabaseDialogTest, FiltersNarrowTheListAndKeepRowNumbers)
{
    DatabaseDialog dialog(u"Database", items());
    dialog.show(nullptr);
    DatabasePage& page = dialog.ensurePage(0);
    const WString name = table.at(4).getName();
    page.getFilter().setText(name);
    ASSERT_FALSE(page.getShownRows().empty());
    EXPECT_TRUE(std::ranges::count(page.getShownRows(), 4) == 1);
    EXPECT_LT(page.getShownRows().size(), 20U);
    page.getFilter().setText(u"004: ");
    EXPECT_EQ(page.getShownRows(), (std::vector<int>{4}));
    page.getFilter().setText(u"");
    page.getFilter().chooseFilter(u"type", 1);
    for (const int row : page.getShownRows())
        EXPECT_EQ(table.at(static_cast<std::size_t>(row)).getType(), 1);
    EXPECT_FALSE(page.getShownRows().empty());
}

TEST_F(DatabaseDialogTest, ADocumentThatCouldNotBeReadIsReplacedOnlyWhenThePersonSaysSo)
{
    project.write("Data/Items.xml", "<?xml version=\"1.0\"?><Items><data ");
    table.load(u"Item.dat", 255);
    ASSERT_TRUE(table.wasRefused());
    const std::string broken = project.read("Data/Items.xml");
    host.questions.clear(); // of the load
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        DatabaseDialog dialog(u"Database", items());
        dialog.show(nullptr);
        dialog.ensurePage(0).markRow(answer == Answer::No ? 0 : 1);
        host.answers = {answer};
        press(dialog, u"OK");
        EXPECT_EQ(project.read("Data/Items.xml") == broken, answer == Answer::No);
    }
    EXPECT_EQ(host.questions.size(), 2U);
}

TEST_F(DatabaseDialogTest, ChecksTellTheFaultAndItsLine)
{
    EXPECT_EQ(checkScript(u"Bell", u"var a = 1;\ntrace(a);"), u"");
    const WString fault = checkScript(u"Bell", u"var a = 1;\nvar b = ;");
    EXPECT_NE(fault.find(u"\"Bell\"(2)"), WString::npos) << toUtf8(fault);
    EXPECT_EQ(checkFormula(u"Hits", u"1 + 2 * 3"), u"");
    EXPECT_NE(checkFormula(u"Hits", u"1 + nobody"), u"");
    for (std::size_t row = 0; row < FormulaDatabase::instance().size(); ++row) {
        const FormulaData& formula = FormulaDatabase::instance().at(row);
        EXPECT_EQ(checkFormula(u"Formula", formula.getFormula()), u"") << row;
    }
}

} // namespace
} // namespace varn
