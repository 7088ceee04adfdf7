#pragma once

#include <cstdint>
#include <span>

namespace varn::regexp {

/// Units first, first + stride, ... last, which fold to `unit + delta`.
struct CaseRange
{
    char16_t first;
    char16_t last;
    std::int32_t delta;
    std::int32_t stride;

    char16_t fold(int unit) const { return static_cast<char16_t>(unit + delta); }
};

/// Simple case folding of the basic plane, in rising order, after the Unicode Character Database's
/// CaseFolding.txt (statuses C and S). Letters beyond ASCII never fold into it: neither the Kelvin
/// sign nor the long s is a letter of a keyword.
std::span<const CaseRange> caseRanges();

/// The unit that stands for all that differ in case only; for letters with two cases the small one.
char16_t foldCase(char16_t unit);
/// The capital of a small letter; other units come back as they are.
char16_t capitalOf(char16_t unit);

} // namespace varn::regexp
