#include "Component/Application.h"
#include "Component/BaseDataTable.h"
#include "Component/native/Robot.h"
#include "Support/RecordingHost.h"

#include <gtest/gtest.h>

namespace varn {
namespace {

class Numbers final : public TableModel
{
  public:
    std::vector<int> rows;
    explicit Numbers(int count = 0)
    {
        for (int i = 0; i < count; ++i)
            rows.push_back(i);
    }
    int getRowCount() const override { return static_cast<int>(rows.size()); }
    int getColumnCount() const override { return 3; }
    WString getValueAt(int row, int column) const override
    {
        return toDecimal(rows[static_cast<std::size_t>(row)] * 10 + column);
    }
};

class Parent : public GroupComponent
{
  public:
    std::vector<int> codes;
    bool onNotify(int, int code) override
    {
        codes.push_back(code);
        return true;
    }
};

class TableComponentTest : public ::testing::Test
{
  protected:
    TableComponentTest()
    {
        parent.createTopLevel();
        table.createChild(&parent, 0, 0, 300, 150);
        table.setColumns({{u"A", 50}, {u"B", 60}, {u"C", 0}});
        table.setModel(&numbers);
        parent.setBounds(0, 0, 320, 200);
        parent.setVisible(true);
        Application::processMessages();
    }

    int clientRight() const { return table.isScrollNeeded() ? 300 - Scrollbar::kThickness : 300; }
    int lastRight()
    {
        const TableColumn& last = table.getColumnModel().getColumn(2);
        return last.x + last.width;
    }
    int yOf(int row) const
    {
        return table.getHeaderHeight() + (row - table.getScrollPosition()) * table.getRowHeight() +
               2;
    }

    Parent parent;
    TableComponent table;
    Numbers numbers{40};
};

TEST_F(TableComponentTest, ColumnsKeepTheirLeastWidthAndTheLastReachesTheEdge)
{
    struct Case
    {
        const char* name;
        int column, width, stored;
    };
    constexpr Case kCases[] = {
        {"narrow", 0, 10, 24}, {"at the limit", 0, 24, 24},   {"one above", 0, 25, 25},
        {"wide", 0, 90, 90},   {"last but one", 1, 100, 100}, {"last, too short", 2, 30, -1},
    };
    for (const Case& c : kCases) {
        table.setColumnWidth(c.column, c.width);
        if (c.stored >= 0) {
            EXPECT_EQ(table.getColumnModel().getColumn(c.column).width, c.stored) << c.name;
        }
        EXPECT_GE(lastRight(), clientRight()) << c.name;
        EXPECT_EQ(table.getColumnModel().getColumn(1).x, table.getColumnModel().getColumn(0).width);
    }
    table.setColumnWidth(1, 70); // what the last but one gives, the last one has
    const int right = std::max(clientRight(), table.getColumnModel().getColumn(2).x + 24);
    EXPECT_EQ(lastRight(), right);
    table.setColumnWidth(3, 500); // past the count
    EXPECT_EQ(lastRight(), right);
    table.setSize(400, 150);
    EXPECT_EQ(lastRight(), 400 - Scrollbar::kThickness);
}

TEST_F(TableComponentTest, RowsScrollIntoViewWithOneMoreBelow)
{
    const int shown = static_cast<int>(table.windowProc(table.getHandle(), 0x1028, 0, 0));
    ASSERT_GT(shown, 2);
    table.ensureRowVisible(shown - 1);
    EXPECT_EQ(table.getScrollPosition(), 0);
    table.ensureRowVisible(shown);
    EXPECT_EQ(table.getScrollPosition(), 2);
    table.ensureRowVisible(39);
    EXPECT_EQ(table.getScrollPosition(), 40 - shown);
    table.ensureRowVisible(3);
    EXPECT_EQ(table.getScrollPosition(), 3);
    table.ensureRowVisible(40);
    EXPECT_EQ(table.getScrollPosition(), 3);
    numbers.rows.resize(2);
    numbers.fireTableChanged({TableModelEvent::Removed, 2, -1});
    EXPECT_EQ(table.getScrollPosition(), 0);
    EXPECT_FALSE(table.isScrollNeeded());
}

TEST_F(TableComponentTest, KeysSelectNotifyAndNavigate)
{
    robot::key(table.getHandle(), 'A', kHeldControl);
    EXPECT_EQ(table.getSelectedRows().size(), 40U);
    table.selectRow(0);
    parent.codes.clear();
    robot::key(table.getHandle(), kKeyReturn);
    robot::key(table.getHandle(), kKeyDelete);
    EXPECT_EQ(parent.codes, (std::vector<int>{kReturnCode, kKeyDownCode}));
    EXPECT_EQ(table.getNotifiedKey(), kKeyDelete);
    robot::key(table.getHandle(), kKeyDown);
    robot::key(table.getHandle(), kKeyDown, kHeldShift);
    EXPECT_EQ(table.getSelectedRows(), (std::vector<int>{1, 2}));

    parent.codes.clear();
    int heard = 0;
    table.on(kKeyListener, [&](const EventObject&) { ++heard; });
    robot::key(table.getHandle(), kKeyReturn);
    EXPECT_EQ(heard, 1);
    EXPECT_TRUE(parent.codes.empty());

    table.setModel(nullptr);
    robot::key(table.getHandle(), 'A', kHeldControl);
    EXPECT_TRUE(table.getSelectedRows().empty());
    EXPECT_EQ(table.getRowCount(), 0);
}

TEST_F(TableComponentTest, ClicksTakeRowsAndASecondOneEdits)
{
    robot::click(table.getHandle(), 20, yOf(2));
    EXPECT_EQ(table.getSelectedRow(), 2);
    EXPECT_EQ(table.getState(), TableComponent::State::Idle);
    parent.codes.clear();
    robot::click(table.getHandle(), 20, yOf(2));
    EXPECT_EQ(table.getState(), TableComponent::State::Editing);
    EXPECT_EQ(parent.codes, (std::vector<int>{kItemEditCode}));
    EXPECT_EQ(table.getEditPoint().y, yOf(2) + 20);
    numbers.rows.resize(3);
    numbers.fireTableChanged({TableModelEvent::Removed, 3, -1});
    robot::click(table.getHandle(), 20, yOf(3)); // below the last one
    EXPECT_EQ(table.getSelectedRow(), 2);
    robot::click(table.getHandle(), 20, yOf(0), robot::Button::Left, kHeldControl);
    EXPECT_EQ(table.getSelectedRows(), (std::vector<int>{0, 2}));
}

TEST_F(TableComponentTest, GripsOfTheHeaderMoveTheEdge)
{
    const int grip = table.getColumnModel().getColumn(0).width;
    robot::press(table.getHandle(), grip - 2, 3);
    robot::move(table.getHandle(), grip + 28, 3, kHeldLeft);
    robot::release(table.getHandle(), grip + 28, 3);
    EXPECT_EQ(table.getColumnModel().getColumn(0).width, grip + 30);
    EXPECT_EQ(table.getState(), TableComponent::State::Idle);
    robot::press(table.getHandle(), 20, 3); // no grip: no selection either
    EXPECT_EQ(table.getSelectedRow(), -1);
}

TEST_F(TableComponentTest, AnswersAsAListViewButForTheItemCount)
{
    test::RecordingHost host;
    const auto ask = [&](std::uint32_t message, WordParam wParam, LongParam lParam = 0) {
        return table.windowProc(table.getHandle(), message, wParam, lParam);
    };
    table.selectRow(4);
    EXPECT_EQ(ask(0x1004, 0), 40);                         // item count
    EXPECT_EQ(ask(0x100C, static_cast<WordParam>(-1)), 4); // next selected
    EXPECT_EQ(ask(0x100C, 4), -1);
    EXPECT_EQ(ask(0x101E, 0, 10), 1); // column width
    EXPECT_EQ(ask(0x101D, 0), 24);
    EXPECT_EQ(ask(0x102F, 7), 0);
    EXPECT_EQ(host.messages, (std::vector<WString>{u"LVM_SETITEMCOUNT is not supported"}));
    EXPECT_EQ(table.getRowCount(), 40);
    EXPECT_EQ(table.toString(), u"This component is Table.");
}

TEST_F(TableComponentTest, TheScrollBarTurnsPagesAndFollowsItsThumb)
{
    const int x = 300 - 4;
    robot::click(table.getHandle(), x, 148); // below the thumb
    const int page = table.getScrollPosition();
    EXPECT_EQ(page, table.getPageSize());
    robot::wheel(table.getHandle(), 10, 60, 1);
    EXPECT_EQ(table.getScrollPosition(), page - 3);
    table.scrollTo(0);
    robot::press(table.getHandle(), x, table.getHeaderHeight() + 3);
    robot::move(table.getHandle(), x, 400, kHeldLeft);
    EXPECT_EQ(table.getScrollPosition(), table.getMaximumPosition());
    robot::release(table.getHandle(), x, 400);
    robot::move(table.getHandle(), x, 60);
    EXPECT_EQ(table.getScrollPosition(), table.getMaximumPosition());
}

class NumberTable final : public BaseDataTable
{
  public:
    Numbers numbers{3};
    void onCreate() override
    {
        BaseDataTable::onCreate();
        getTable().setColumns({{u"A", 40}, {u"B", 40}, {u"C", 0}});
        getTable().setModel(&numbers);
    }

  protected:
    bool addRow(int row) override
    {
        if (numbers.rows.size() == 4)
            return false;
        numbers.rows.insert(numbers.rows.begin() + row + 1, 9);
        return true;
    }
    void removeRow(int row) override { numbers.rows.erase(numbers.rows.begin() + row); }
    void swapRows(int first, int second) override
    {
        std::swap(numbers.rows[static_cast<std::size_t>(first)],
                  numbers.rows[static_cast<std::size_t>(second)]);
    }
};

TEST_F(TableComponentTest, ADataTableChangesItsRowsByItsButtons)
{
    NumberTable data;
    data.create(&parent);
    int told = 0;
    data.onAction([&] { ++told; });
    EXPECT_FALSE(data.getToolbar().getMinus().isEnabled());
    data.getTable().selectRow(1);
    data.plusPressed(data.getToolbar());
    EXPECT_EQ(data.numbers.rows, (std::vector<int>{0, 1, 9, 2}));
    EXPECT_EQ(data.getTable().getSelectedRow(), 2);
    EXPECT_TRUE(data.getToolbar().getMinus().isEnabled());
    data.getToolbar().getUp().press();
    EXPECT_EQ(data.numbers.rows, (std::vector<int>{0, 9, 1, 2}));
    data.getToolbar().getPlus().press(); // full
    EXPECT_EQ(data.numbers.rows.size(), 4U);
    data.getToolbar().getMinus().press();
    EXPECT_EQ(data.numbers.rows, (std::vector<int>{0, 1, 2}));
    EXPECT_EQ(told, 3);
}

} // namespace
} // namespace varn
