#pragma once

#include "Game/Database/GameTable.h"

namespace varn {

/// Every table the system knows, in the documented order, `SystemDatabase` last.
std::span<GameTable* const> knownTables();

/// The document a file name of the data folder stands for: "State.dat" and "States.xml" are the
/// states, "Types.xml" is both type tables together. Case is ignored. Null: no table is kept there.
TableFile* findTableFile(WStringView fileName);
/// Such a file name as the table spells it, "States.xml" for "states.XML". Load by this one: a
/// table that is saved names its root after the file, and finds it by its tag, where case counts.
WString tableFileName(WStringView fileName);

/// The table of that tag ("States"), as fields name what they refer to; null for an unknown one.
GameTable* findTable(WStringView tagName);

/// A table as a load sequence met it.
struct LoadedTable
{
    WStringView fileName; ///< as it was asked for: "EnemyTable.dat"
    TableFile* table;
    std::size_t rows;
    bool result; ///< of the load
};

/// The tables that stand at the start of a session, in order, then the row counts.
std::vector<LoadedTable> loadStartupTables();
/// The rule tables of the database window; the characters only where the project has them.
std::vector<LoadedTable> loadDatabaseTables();
/// All tables that a finished game carries.
std::vector<LoadedTable> loadExportTables();

} // namespace varn
