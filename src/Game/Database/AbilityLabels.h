#pragma once

#include "Util/Text.h"

namespace varn {

/// The order of abilities everywhere: six values of a character, and what the editors list behind.
inline constexpr WStringView kAbilityLabels[] = {
    u"STR", u"INT", u"PIE", u"VIT", u"AGI", u"LUK", u"HP", u"MP", u"A.C.", u"LV",
};
inline constexpr std::size_t kAbilityCount = 6;

/// Bits of the alignments that are permitted.
inline constexpr WStringView kAlignmentLabels[] = {u"Good", u"Neutral", u"Evil"};
/// Who may use an item or be of a class.
inline constexpr WStringView kSexLabels[] = {u"Unspecified", u"Male", u"Female", u"OtherSex"};

} // namespace varn
