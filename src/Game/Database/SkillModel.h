#pragma once

#include "Game/Database/GameDataList.h"

namespace varn {

/// The `.dat` record of a skill.
struct WizCharSkillData_
{
    FixedText<20> name;
    FixedText<60, 59> description;
    std::uint8_t type;
    std::uint8_t specialType;
    std::uint8_t mpCost;
    std::uint8_t range;
    std::uint8_t usablePlace;
    std::uint8_t successRate;
    std::uint16_t stateFlags;
    std::uint16_t abilityIndex;
    std::uint16_t attributeFlags;
    Dice effectValueDice;
    std::uint8_t unused95[5];
    std::uint8_t rank;
    std::uint8_t unused101[3];
    std::uint16_t flagId;
    std::uint8_t halfDoorDetectionProbability;
    std::uint8_t secretDoorDetectionProbability;
    std::uint8_t lightSourceDecreaseInDarkness;
    std::uint8_t unused109[11];
};
static_assert(sizeof(WizCharSkillData_) == 120);

/// A spell or skill.
class SkillModel final : public BaseDatabaseModel
{
    WizCharSkillData_ record{};
    std::int32_t resistanceFormula = 0;
    WString description2;

  public:
    /// The `specialType` whose rows carry the two detection chances and the loss of light.
    static constexpr std::uint8_t kLightSource = 6;

    static const FieldTable& fieldTable();
    const FieldTable& getFieldTable() const override { return fieldTable(); }

    VARN_FIELD(Description, record.description)
    VARN_FIELD(Type, record.type)
    VARN_FIELD(SpecialType, record.specialType)
    VARN_FIELD(MpCost, record.mpCost)
    VARN_FIELD(Range, record.range)
    VARN_FIELD(UsablePlace, record.usablePlace)
    VARN_FIELD(SuccessRate, record.successRate)
    /// Bits by state row.
    VARN_FIELD(StateFlags, record.stateFlags)
    VARN_FIELD(AbilityIndex, record.abilityIndex)
    /// Bits by attribute row.
    VARN_FIELD(AttributeFlags, record.attributeFlags)
    VARN_FIELD(EffectValueDice, record.effectValueDice)
    VARN_FIELD(Rank, record.rank)
    VARN_FIELD(FlagId, record.flagId)
    VARN_FIELD(HalfDoorDetectionProbability, record.halfDoorDetectionProbability)
    VARN_FIELD(SecretDoorDetectionProbability, record.secretDoorDetectionProbability)
    VARN_FIELD(LightSourceDecreaseInDarkness, record.lightSourceDecreaseInDarkness)
    VARN_FIELD(ResistanceFormula, resistanceFormula)
    VARN_FIELD(Description2, description2)
};

class SkillDatabase final : public GameDataList<SkillModel, SkillDatabase>
{
  public:
    static const TableInfo kInfo;
};

} // namespace varn
