#pragma once

#include "Parser/Regexp/Pattern.h"

namespace varn::regexp {

inline constexpr std::size_t kLongestPattern = 65535; // units
inline constexpr int kDeepestNesting = 250; // groups, classes and quantifiers in one another

/// Reads a pattern. @param flags  of CRegexpT::Flag; the direction is left to who compiles the tree
/// @throws PatternException  the pattern is not well formed, too long or nested too deeply
Pattern parsePattern(WStringView pattern, int flags);

} // namespace varn::regexp
