#include "Parser/Regexp/UnitSet.h"

#include "Parser/Regexp/CaseFolding.h"

#include <algorithm>

namespace varn::regexp {

UnitSet::UnitSet(std::vector<UnitRange> given)
{
    std::sort(given.begin(), given.end());
    for (const UnitRange& range : given) {
        if (!ranges.empty() && range.first <= ranges.back().last + 1)
            ranges.back().last = std::max(ranges.back().last, range.last);
        else
            ranges.push_back(range);
    }
}

bool UnitSet::has(char16_t unit) const
{
    return intersects(unit, unit);
}

bool UnitSet::intersects(char16_t first, char16_t last) const
{
    const auto found =
        std::lower_bound(ranges.begin(), ranges.end(), first,
                         [](const UnitRange& range, char16_t unit) { return range.last < unit; });
    return found != ranges.end() && found->first <= last;
}

int UnitSet::count() const
{
    int units = 0;
    for (const UnitRange& range : ranges)
        units += range.last - range.first + 1;
    return units;
}

UnitSet UnitSet::complement() const
{
    UnitSet result;
    int next = 0;
    for (const UnitRange& range : ranges) {
        if (range.first > next)
            result.ranges.push_back(
                {static_cast<char16_t>(next), static_cast<char16_t>(range.first - 1)});
        next = range.last + 1;
    }
    if (next <= 0xFFFF)
        result.ranges.push_back({static_cast<char16_t>(next), 0xFFFF});
    return result;
}

UnitSet UnitSet::operator|(const UnitSet& other) const
{
    if (isEmpty() || other.isAll())
        return other;
    if (other.isEmpty() || isAll())
        return *this;
    std::vector<UnitRange> both = ranges;
    both.insert(both.end(), other.ranges.begin(), other.ranges.end());
    return UnitSet(std::move(both));
}

UnitSet UnitSet::operator&(const UnitSet& other) const
{
    if (isAll() || other.isEmpty())
        return other;
    if (other.isAll() || isEmpty())
        return *this;
    UnitSet result;
    auto a = ranges.begin();
    auto b = other.ranges.begin();
    while (a != ranges.end() && b != other.ranges.end()) {
        const char16_t first = std::max(a->first, b->first);
        const char16_t last = std::min(a->last, b->last);
        if (first <= last)
            result.ranges.push_back({first, last});
        (a->last < b->last ? a : b)++;
    }
    return result;
}

UnitSet UnitSet::withCaseVariants() const
{
    std::vector<UnitRange> folded = ranges;
    for (const CaseRange& row : caseRanges()) {
        if (!intersects(row.first, row.last))
            continue;
        for (int unit = row.first; unit <= row.last; unit += row.stride)
            if (has(static_cast<char16_t>(unit)))
                folded.push_back({row.fold(unit), row.fold(unit)});
    }
    const UnitSet withFolds(std::move(folded));
    std::vector<UnitRange> variants = withFolds.ranges;
    for (const CaseRange& row : caseRanges()) {
        if (!withFolds.intersects(row.fold(row.first), row.fold(row.last)))
            continue;
        for (int unit = row.first; unit <= row.last; unit += row.stride)
            if (withFolds.has(row.fold(unit)))
                variants.push_back({static_cast<char16_t>(unit), static_cast<char16_t>(unit)});
    }
    return UnitSet(std::move(variants));
}

const UnitSet& wordUnits()
{
    static const UnitSet set{{u'0', u'9'}, {u'A', u'Z'}, {u'_', u'_'}, {u'a', u'z'}};
    return set;
}

const UnitSet& lineEndUnits()
{
    static const UnitSet set{{u'\n', u'\n'}, {u'\r', u'\r'}};
    return set;
}

} // namespace varn::regexp
