#pragma once

#include "Context.h"

namespace varn::driver {

/// A line a row from the top: of each cell the bytes of north, east, south, west and floor as ten
/// hexadecimal digits, blanks between the cells. As JSON, a list of rows.
void printCells(Context& context, const WizMap& map);

} // namespace varn::driver
