#pragma once

#include "Game/Database/GameTable.h"

namespace varn {

/// An entry of a list that a number is chosen from.
struct Choice
{
    std::int32_t value = 0;
    WString text; ///< in the language in force
};

/// "003: Long Sword".
WString numberedText(std::size_t number, WStringView name);
/// What a row is called; a spell type without a name by its default one.
WString rowName(const GameTable& table, std::size_t row);
/// The rows of a table by its tag, numbered; none for an unknown tag.
std::vector<Choice> rowChoices(WStringView tag);
/// A field's own labels, or the rows it refers to.
/// @param row  null: where the table depends on the row, none
std::vector<Choice> choicesOf(const Field& field, const GameRow* row);

/// Loads the tables that the fields of these refer to and that hold no rows yet; not the given ones
/// themselves.
void loadReferredTables(std::span<GameTable* const> tables);

} // namespace varn
