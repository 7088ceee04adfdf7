#pragma once

#include "Game/Database/GameTable.h"

namespace varn {

/// The process-wide table of a list class, loaded from the project where it holds nothing yet.
template <class List>
List& loadedTable()
{
    List& table = List::instance();
    if (table.empty())
        table.load(List::kInfo.fileName, List::kInfo.minRows);
    return table;
}

} // namespace varn
