#pragma once

#include "Util/Text.h"

namespace varn {

/// The order of abilities everywhere: six values of a character, and what the editors list behind.
inline constexpr WStringView kAbilityLabels[] = {
    u"STR", u"INT", u"PIE", u"VIT", u"AGI", u"LUK", u"HP", u"MP", u"A.C.", u"LV",
};
inline constexpr std::size_t kAbilityCount = 6;

} // namespace varn
