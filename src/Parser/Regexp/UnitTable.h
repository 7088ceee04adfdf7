#pragma once

#include "Parser/Regexp/UnitSet.h"

#include <array>
#include <vector>

namespace varn::regexp {

/// A set of units made ready for scanning text: a byte a unit for Latin-1, pages of bits for the
/// rest, and few ranges for comparing eight units at once.
class UnitTable
{
  public:
    explicit UnitTable(const UnitSet& set);

    bool has(char16_t unit) const
    {
        if (unit < kLow)
            return low[unit] != 0;
        const Page& page = pages[pageOf[unit >> 8]];
        return ((page[(unit >> 6) & 3] >> (unit & 63)) & 1) != 0;
    }

    /// The first unit of [from, end) that is in the set; `end` if none is.
    const char16_t* find(const char16_t* from, const char16_t* end) const;
    /// The first unit of [from, end) that is not in the set; `end` if all are.
    const char16_t* skip(const char16_t* from, const char16_t* end) const;
    /// The same, unit by unit; what the vector forms are held to.
    const char16_t* findPlain(const char16_t* from, const char16_t* end) const;
    const char16_t* skipPlain(const char16_t* from, const char16_t* end) const;

  private:
    using Page = std::array<std::uint64_t, 4>; // 256 units
    static constexpr std::size_t kLow = 256;

    enum class Shape : std::uint8_t
    {
        Everything,
        Ranges,        ///< inside one of `first` + 0 ... `span`
        OutsideRanges, ///< inside none of them
        Many,          ///< too many ranges to compare with
    };
    static constexpr std::size_t kMostRanges = 4;

    static unsigned fill(Page& page, unsigned unit, unsigned last);
    void setShape(const std::vector<UnitRange>& ranges, Shape shape);
    template <bool kWanted>
    const char16_t* scan(const char16_t* from, const char16_t* end) const;
    template <std::size_t kCount>
    const char16_t* scanRanges(const char16_t* from, const char16_t* end, bool inside) const;

    std::array<std::uint8_t, kLow> low{};
    std::array<std::uint16_t, 256> pageOf{};
    std::vector<Page> pages; // no two alike
    Shape shape = Shape::Many;
    std::size_t rangeCount = 0;
    std::array<char16_t, kMostRanges> first{};
    std::array<char16_t, kMostRanges> span{};
};

} // namespace varn::regexp
