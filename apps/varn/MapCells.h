#pragma once

#include "Game/Map/WizMap.h"
#include "Output.h"

namespace varn::driver {

/// A line a row from the top: of each cell the bytes of north, east, south, west and floor as ten
/// hexadecimal digits, blanks between the cells.
void printCells(Output& output, const WizMap& map);

} // namespace varn::driver
