#pragma once

#include "Game/Database/FieldTable.h"

namespace varn::test {

/// Gives every field of a row a value that is not its default and that differs from field to field;
/// child rows get two entries of their own. `seed` makes rows differ from each other.
void fillRow(GameRow& row, std::int32_t seed);

/// Everything a row holds as text, field by field, child rows included. What is written under one
/// key and read only under another shows as its default.
WString describeRow(const GameRow& row);

} // namespace varn::test
