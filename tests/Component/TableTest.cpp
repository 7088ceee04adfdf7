#include "Component/Table.h"
#include "Component/Application.h"
#include "Component/GroupComponent.h"
#include "Component/native/Robot.h"

#include <gtest/gtest.h>

namespace varn {
namespace {

class Words final : public TableModel
{
  public:
    std::vector<WString> rows{u"pear", u"Apple", u"fig", u"banana"};

    int getRowCount() const override { return static_cast<int>(rows.size()); }
    int getColumnCount() const override { return 2; }
    WString getValueAt(int row, int column) const override
    {
        return column == 0 ? toDecimal(100 / (row + 1)) : rows[static_cast<std::size_t>(row)];
    }
    bool isNumber(int column) const override { return column == 0; }
};

class TableTest : public ::testing::Test
{
  protected:
    TableTest()
    {
        top.createTopLevel();
        table.create(&top);
        table.setColumns({{u"Number", 60}, {u"Word", 0}});
        table.setBounds(0, 0, 300, 200);
        table.setModel(&words);
        top.setBounds(0, 0, 320, 240);
        top.setVisible(true);
        Application::processMessages();
    }

    GroupComponent top;
    Table table;
    Words words;
};

TEST_F(TableTest, RowsAreThoseOfTheModelWhateverIsShown)
{
    EXPECT_EQ(table.getSelectedRow(), -1);
    table.setFilter(u"A"); // in any column, whatever the case
    table.selectRow(3);
    EXPECT_EQ(table.getSelectedRow(), 3);
    robot::key(table.getHandle(), kKeyUp); // "fig" is not shown
    EXPECT_EQ(table.getSelectedRow(), 1);
    robot::key(table.getHandle(), kKeyUp);
    EXPECT_EQ(table.getSelectedRow(), 0);
    table.setFilter(u"");
    robot::key(table.getHandle(), kKeyDown);
    robot::key(table.getHandle(), kKeyDown);
    EXPECT_EQ(table.getSelectedRow(), 2);
}

TEST_F(TableTest, SortsNumbersByValueAndKeepsTheSelection)
{
    table.setSortable(true);
    table.selectRow(0); // 100, 50, 33, 25: by letters 100 would come first
    table.sortBy(0);
    EXPECT_EQ(table.getSelectedRow(), 0);
    robot::key(table.getHandle(), kKeyHome, kHeldControl);
    EXPECT_EQ(table.getSelectedRow(), 3);
}

TEST_F(TableTest, AChangeOfTheModelKeepsTheSelectedRowAndTellsNobody)
{
    int told = 0;
    table.onAction([&] { ++told; });
    table.selectRow(2);
    EXPECT_EQ(told, 0); // the program's own choice
    words.rows.push_back(u"kiwi");
    words.fireTableChanged({TableModelEvent::Inserted, 4, -1});
    words.rows[2] = u"date";
    words.fireTableChanged({TableModelEvent::Changed, 2, 1});
    EXPECT_EQ(table.getSelectedRow(), 2);
    EXPECT_EQ(told, 0);
    words.rows.resize(1);
    words.fireTableChanged({TableModelEvent::Removed, 1, -1});
    EXPECT_EQ(table.getSelectedRow(), -1);
}

TEST_F(TableTest, SeveralRowsAndCheckedOnes)
{
    table.setMultipleSelection(true);
    table.selectRow(0);
    robot::key(table.getHandle(), kKeyDown, kHeldShift);
    EXPECT_EQ(table.getSelectedRows(), (std::vector<int>{0, 1}));
    Table boxes;
    boxes.create(&top, true, true);
    boxes.setColumns({{u"Number", 0}});
    boxes.setModel(&words);
    boxes.setRowChecked(1, true);
    EXPECT_TRUE(boxes.isRowChecked(1));
    boxes.setModel(nullptr);
    EXPECT_FALSE(boxes.isRowChecked(1)); // another model, other rows
}

TEST_F(TableTest, AModelMayDieFirst)
{
    auto brief = std::make_unique<Words>();
    table.setModel(brief.get());
    table.selectRow(1);
    brief.reset();
    EXPECT_EQ(table.getModel(), nullptr);
    Bitmap shown;
    robot::grab(table.getHandle(), shown); // paints an empty table
    table.destroy();
    table.setColumns({{u"Word", 0}});
    EXPECT_EQ(table.getSelectedRow(), -1);
}

} // namespace
} // namespace varn
