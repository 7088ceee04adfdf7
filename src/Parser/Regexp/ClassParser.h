#pragma once

#include "Parser/Regexp/PatternReader.h"

namespace varn::regexp {

/// Characters beyond the basic plane, first and last included.
struct CodePointRange
{
    char32_t first;
    char32_t last;
};

/// What stands between [ and ].
struct ClassContents
{
    UnitSet units; ///< complemented already where the class is negated
    std::vector<CodePointRange>
        beyond; ///< as written: surrogate pairs to take, or not to begin with
    bool negated = false;
};

/// Reads a class; the reader stands behind its `[`. A `[` within opens a class of its own, whose
/// characters are added; where such a class never closes, it is a literal, as everywhere else after
/// it.
/// @throws PatternException
ClassContents parseClass(PatternReader& reader, bool ignoreCase);

/// The set of `\d`, `\D`, `\w`, `\W`, `\s`, `\S` by its letter; null for any other.
const UnitSet* classOfLetter(char16_t letter);

} // namespace varn::regexp
