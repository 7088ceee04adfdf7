#include "Parser/Regexp/UnitTable.h"

#include "Parser/Regexp/Vector.h"

#include <algorithm>

namespace varn::regexp {

namespace {

/// Most runs of a class are words: so many units are looked at one by one before the vectors start.
constexpr std::ptrdiff_t kPlainUnits = 8;

} // namespace

UnitTable::UnitTable(const UnitSet& set)
{
    std::vector<Page> bits(pageOf.size());
    for (const UnitRange& range : set.getRanges())
        for (unsigned unit = range.first; unit <= range.last;)
            unit = fill(bits[unit >> 8], unit, range.last);
    for (std::size_t high = 0; high < pageOf.size(); ++high) {
        auto place = std::find(pages.begin(), pages.end(), bits[high]);
        if (place == pages.end())
            place = pages.insert(pages.end(), bits[high]);
        pageOf[high] = static_cast<std::uint16_t>(place - pages.begin());
    }
    for (std::size_t unit = 0; unit < kLow; ++unit)
        low[unit] = set.has(static_cast<char16_t>(unit)) ? 1 : 0;

    const UnitSet outside = set.complement();
    if (set.isAll())
        shape = Shape::Everything;
    else if (set.getRanges().size() <= kMostRanges)
        setShape(set.getRanges(), Shape::Ranges);
    else if (outside.getRanges().size() <= kMostRanges)
        setShape(outside.getRanges(), Shape::OutsideRanges);
}

/// Sets the bits from `unit` to `last` that lie in the same word of the page; the unit behind them.
unsigned UnitTable::fill(Page& page, unsigned unit, unsigned last)
{
    const unsigned wordLast = std::min(last, unit | 63);
    const unsigned count = wordLast - unit + 1;
    page[(unit >> 6) & 3] |= (~std::uint64_t{0} >> (64 - count)) << (unit & 63);
    return wordLast + 1;
}

void UnitTable::setShape(const std::vector<UnitRange>& ranges, Shape newShape)
{
    shape = newShape;
    for (const UnitRange& range : ranges) {
        first[rangeCount] = range.first;
        span[rangeCount] = static_cast<char16_t>(range.last - range.first);
        ++rangeCount;
    }
}

const char16_t* UnitTable::findPlain(const char16_t* from, const char16_t* end) const
{
    while (from != end && !has(*from))
        ++from;
    return from;
}

const char16_t* UnitTable::skipPlain(const char16_t* from, const char16_t* end) const
{
    while (from != end && has(*from))
        ++from;
    return from;
}

/// The first of eight units at a time that lies inside one of the ranges, or inside none.
template <std::size_t kCount>
const char16_t* UnitTable::scanRanges(const char16_t* from, const char16_t* end, bool inside) const
{
    vector::Units firsts[kCount];
    vector::Units spans[kCount];
    for (std::size_t i = 0; i < kCount; ++i) {
        firsts[i] = vector::repeat(first[i]);
        spans[i] = vector::repeat(span[i]);
    }
    const unsigned flip = inside ? 0 : vector::kAllLanes;
    for (; end - from >= vector::kLanes; from += vector::kLanes) {
        const vector::Units units = vector::load(from);
        vector::Units hits = vector::isWithin(units, firsts[0], spans[0]);
        for (std::size_t i = 1; i < kCount; ++i)
            hits = vector::either(hits, vector::isWithin(units, firsts[i], spans[i]));
        if (const unsigned lanes = vector::lanesOf(hits) ^ flip)
            return from + vector::firstLane(lanes);
    }
    return from;
}

template <bool kWanted>
const char16_t* UnitTable::scan(const char16_t* from, const char16_t* end) const
{
    const char16_t* const plainEnd = end - from > kPlainUnits ? from + kPlainUnits : end;
    from = kWanted ? findPlain(from, plainEnd) : skipPlain(from, plainEnd);
    if (from != plainEnd || from == end)
        return from;
    if (shape == Shape::Everything)
        return kWanted ? from : end;
    const bool inside = (shape == Shape::Ranges) == kWanted;
    if (shape != Shape::Many) {
        switch (rangeCount) {
        case 1:
            from = scanRanges<1>(from, end, inside);
            break;
        case 2:
            from = scanRanges<2>(from, end, inside);
            break;
        case 3:
            from = scanRanges<3>(from, end, inside);
            break;
        case 4:
            from = scanRanges<4>(from, end, inside);
            break;
        default:
            break;
        }
    }
    return kWanted ? findPlain(from, end) : skipPlain(from, end);
}

const char16_t* UnitTable::find(const char16_t* from, const char16_t* end) const
{
    return scan<true>(from, end);
}

const char16_t* UnitTable::skip(const char16_t* from, const char16_t* end) const
{
    return scan<false>(from, end);
}

} // namespace varn::regexp
