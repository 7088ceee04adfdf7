#include "Component/TableColumn.h"

#include <algorithm>
#include <cstdlib>

namespace varn {

void TableColumnModel::setWidth(int column, int width, int clientWidth)
{
    const int count = getColumnCount();
    if (column < 0 || column >= count)
        return;
    width = std::max(width, kLeastWidth);
    if (column == count - 2) { // what the last but one gives or takes, the last one has
        TableColumn& last = getColumn(count - 1);
        last.width = std::max(kLeastWidth, clientWidth - getColumn(column).x - width);
    }
    getColumn(column).width = width;
    layOut(clientWidth);
}

void TableColumnModel::layOut(int clientWidth)
{
    int x = 0;
    for (TableColumn& column : columns) {
        column.x = x;
        x += column.width;
    }
    if (!columns.empty() && x < clientWidth)
        columns.back().width += clientWidth - x;
}

int TableColumnModel::findGrip(int x) const
{
    constexpr int kGripReach = 4;
    for (int column = getColumnCount() - 1; column >= 0; --column)
        if (std::abs(getColumn(column).x + getColumn(column).width - x) <= kGripReach)
            return column;
    return -1;
}

} // namespace varn
