#pragma once

#include <cstdint>
#include <initializer_list>
#include <vector>

namespace varn::regexp {

/// First and last unit, both included.
struct UnitRange
{
    char16_t first;
    char16_t last;

    bool operator==(const UnitRange&) const = default;
    auto operator<=>(const UnitRange&) const = default;
};

/// A set of UTF-16 units: ranges in rising order that neither overlap nor touch.
class UnitSet
{
  public:
    UnitSet() = default;
    UnitSet(std::initializer_list<UnitRange> ranges) : UnitSet(std::vector<UnitRange>(ranges)) {}
    /// Ranges in any order, overlapping or not; each with first <= last.
    explicit UnitSet(std::vector<UnitRange> ranges);
    static UnitSet all() { return {{0, 0xFFFF}}; }
    static UnitSet of(char16_t unit) { return {{unit, unit}}; }

    bool has(char16_t unit) const;
    bool intersects(char16_t first, char16_t last) const;
    bool isEmpty() const { return ranges.empty(); }
    bool isAll() const { return ranges.size() == 1 && ranges[0] == UnitRange{0, 0xFFFF}; }
    /// How many units, 0 to 65536.
    int count() const;
    const std::vector<UnitRange>& getRanges() const { return ranges; }

    UnitSet complement() const;
    UnitSet operator|(const UnitSet& other) const;
    UnitSet operator&(const UnitSet& other) const;
    bool operator==(const UnitSet&) const = default;
    auto operator<=>(const UnitSet&) const = default;

    /// The set with every unit that differs from one of its own in case only.
    UnitSet withCaseVariants() const;

  private:
    std::vector<UnitRange> ranges;
};

/// A to Z, a to z, 0 to 9 and `_`.
const UnitSet& wordUnits();
/// CR and LF. A line ends with either, or with both in this order.
const UnitSet& lineEndUnits();

} // namespace varn::regexp
