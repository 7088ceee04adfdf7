#pragma once

#include "Util/Text.h"

namespace varn {

/// Compiles a script as the game does. @return its faults, a line each; empty: there are none
WString checkScript(WStringView name, WStringView text);
/// The same of a formula, which may name all its arguments `a` to `z`.
WString checkFormula(WStringView name, WStringView text);

} // namespace varn
