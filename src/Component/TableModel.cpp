#include "Component/TableModel.h"

#include <algorithm>

namespace varn {

void TableModel::addTableModelListener(TableModelListener* listener)
{
    if (std::ranges::find(listeners, listener) == listeners.end())
        listeners.push_back(listener);
}

void TableModel::removeTableModelListener(TableModelListener* listener)
{
    std::erase(listeners, listener);
}

bool TableModel::fireTableChanged(const TableModelEvent& event) const
{
    const std::vector<TableModelListener*> heard = listeners;
    for (TableModelListener* const listener : heard)
        if (std::ranges::find(listeners, listener) != listeners.end()) // none before took it away
            listener->tableChanged(event);
    return !heard.empty();
}

} // namespace varn
