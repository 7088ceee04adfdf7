#include "DatabaseDialog/StringTableDialog.h"

#include "Component/native/Robot.h"
#include "Support/DemoProject.h"

#include <gtest/gtest.h>

namespace varn {
namespace {

WString textInForce(WStringView key)
{
    loadStringTables();
    return StringTable::instance().get(key);
}

TEST(StringTableDialogTest, TextsAreWrittenForBothLanguagesAndTakenAwayAgain)
{
    const test::DemoProject project;
    StringTable::instance().clear();
    const std::string before = project.read("Data/StringTable.xml");
    const auto change = [](WStringView first, WStringView second, WStringView button) {
        StringTableDialog dialog;
        dialog.show(nullptr);
        dialog.selectKey(u"Choose Alignment");
        dialog.getText(0).setText(first);
        dialog.getText(1).setText(second);
        robot::click(robot::findByText(dialog.getHandle(), button), 3, 3);
    };
    change(u"Pick a side", u"Pick", u"Cancel");
    EXPECT_EQ(project.read("Data/StringTable.xml"), before);
    change(u"Pick a side", u"Pick", u"OK");
    StringTable first, second;
    first.load(u"Data/StringTable.xml");
    second.load(u"Data/StringTable2.xml");
    EXPECT_EQ(first.get(u"Choose Alignment"), u"Pick a side");
    EXPECT_EQ(second.get(u"Choose Alignment"), u"Pick");
    EXPECT_NE(textInForce(u"Choose Alignment"), u"Choose Alignment");
    change(u"", u"", u"OK");
    StringTable::instance().clear();
    EXPECT_EQ(textInForce(u"Choose Alignment"), u"Choose Alignment");
    StringTable::instance().clear();
}

} // namespace
} // namespace varn
