#include "Component/BaseDataTable.h"

#include "Component/Layout.h"

#include <algorithm>

namespace varn {

BaseDataTable::BaseDataTable(bool ordered) : toolbar(ordered) {}

void BaseDataTable::onCreate()
{
    constexpr int kLeastWidth = 200, kLeastHeight = 110;
    BoxLayout column(*this, BoxLayout::Axis::Column, BoxLayout::Margin::None);
    column.add(table, 1).add(toolbar);
    table.setMinimumSize(kLeastWidth, kLeastHeight);
    table.addActionListener(this);
    toolbar.setListener(this);
    fitButtons();
}

void BaseDataTable::handleEvent(const EventObject&)
{
    fitButtons();
    rowSelected(table.getSelectedRow());
}

void BaseDataTable::plusPressed(TableToolbar&)
{
    const int row = table.getSelectedRow();
    if (addRow(row))
        rowsChanged(row < 0 ? table.getRowCount() : row + 1);
}

void BaseDataTable::minusPressed(TableToolbar&)
{
    const int row = table.getSelectedRow();
    if (row < 0)
        return;
    removeRow(row);
    rowsChanged(row);
}

void BaseDataTable::directionPressed(TableToolbar&, bool upwards)
{
    const int row = table.getSelectedRow();
    const int other = upwards ? row - 1 : row + 1;
    if (row < 0 || other < 0 || other >= table.getRowCount())
        return;
    swapRows(row, other);
    rowsChanged(other);
}

void BaseDataTable::rowsChanged(int select)
{
    showRows(select);
    fireAction();
}

void BaseDataTable::showRows(int select)
{
    if (const TableModel* const model = table.getModel())
        model->fireTableChanged({TableModelEvent::Changed, -1, -1});
    table.selectRow(std::min(select, table.getRowCount() - 1));
    fitButtons();
    rowSelected(table.getSelectedRow());
}

void BaseDataTable::fitButtons()
{
    const int row = table.getSelectedRow();
    toolbar.getMinus().setEnabled(row >= 0);
    toolbar.getUp().setEnabled(row > 0);
    toolbar.getDown().setEnabled(row >= 0 && row + 1 < table.getRowCount());
}

} // namespace varn
