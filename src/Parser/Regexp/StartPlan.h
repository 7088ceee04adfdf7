#pragma once

#include "Util/Text.h"

#include <array>
#include <cstdint>

namespace varn::regexp {

struct Pattern;
struct Program;
class UnitSet;

/// Two places of every match where only few units can stand: what to search for eight units at a
/// time.
struct Probe
{
    static constexpr std::size_t kMostUnits = 4;

    struct Place
    {
        int offset = 0; ///< units from the match's start
        std::size_t count = 0;
        std::array<char16_t, kMostUnits> units{};
    };
    Place first;
    Place second;
    int length = 0; ///< units from the match's start to behind the later place

    /// The first place in [from, end) where a match may start; null if there is none.
    const char16_t* find(const char16_t* from, const char16_t* end) const;
    /// The same, unit by unit; what the vector form is held to.
    const char16_t* findPlain(const char16_t* from, const char16_t* end) const;
};

/// Where in the text a match can start at all.
struct StartPlan
{
    enum class Kind : std::uint8_t
    {
        Everywhere,
        TextBegin,
        SearchStart,
        LineBegin,
        FirstUnit, ///< before a unit of table `firstUnits`; or at the end, where no unit is needed
        WordBegin, ///< the same, behind no word unit
        Probe,
    };
    Kind kind = Kind::Everywhere;
    std::uint32_t firstUnits = 0;
    regexp::Probe probe;
    /// The stretch of the run that every match enters once it took `leadingUnits` units, if there
    /// is such a run: where the run failed, no match goes on.
    std::uint32_t leadingStretch = UINT32_MAX;
    int leadingUnits = 0;
};

/// Chooses from the compiled code and the tree it was made of.
StartPlan planStart(const Pattern& pattern, const Program& program, const UnitSet& firstUnits,
                    std::uint32_t firstUnitsTable);

} // namespace varn::regexp
