#pragma once

#include "Util/Text.h"

#include <cstdint>
#include <vector>

namespace varn {

/// A fault of a script that was only typed.
struct ScriptFault
{
    WString file; ///< empty: the text itself; else the file that it includes
    std::uint32_t line = 1;
    WString text; ///< what is wrong

    /// "Line 3: ..." in the tool's language, with the file where it is another one.
    WString sentence() const;
};

/// Compiles a text as the game would, with the game's classes; empty: it is without fault.
std::vector<ScriptFault> checkScript(WStringView text);

} // namespace varn
