#pragma once

#include "Game/Database/AbilityLabels.h"
#include "Game/Database/GameDataList.h"
#include "Game/Database/WizAttributeData.h"

namespace varn {

/// The `.dat` record of a race.
struct WizCharRaceData_
{
    FixedText<20> name;
    FixedText<7> shortName;
    std::uint8_t unused27;
    std::uint8_t baseAbility[kAbilityCount];
    std::uint16_t attributeEffectivenessRates[kAttributeCount];
    std::uint8_t stateResistance[16];
    std::uint8_t flags;
    std::uint8_t unused83[19];
};
static_assert(sizeof(WizCharRaceData_) == 102);

class WizCharRaceData final : public BaseDatabaseModel
{
    WizCharRaceData_ record{};

  public:
    static const FieldTable& fieldTable();
    const FieldTable& getFieldTable() const override { return fieldTable(); }

    VARN_FIELD(ShortName, record.shortName)
    /// By ability.
    VARN_ARRAY_FIELD(BaseAbility, record.baseAbility)
    /// Percent by attribute row.
    VARN_ARRAY_FIELD(AttributeEffectivenessRates, record.attributeEffectivenessRates)
    /// By state row.
    VARN_ARRAY_FIELD(StateResistance, record.stateResistance)
    VARN_FIELD(Flags, record.flags)
};

/// The table of races.
class WizCharRace final : public GameDataList<WizCharRaceData, WizCharRace>
{
  public:
    static const TableInfo kInfo;
};

} // namespace varn
