#pragma once

#include "Game/Database/AbilityLabels.h"
#include "Game/Database/GameDataList.h"

namespace varn {

/// The `.dat` record of a class.
struct WizCharClassData_
{
    FixedText<20> name;
    FixedText<9> shortName;
    std::uint8_t unused29;
    std::uint8_t abilityFlags;
    std::uint8_t unused31;
    std::uint8_t levelUpHP;
    std::uint8_t levelUpMP;
    std::uint8_t thiefLevel;
    std::uint8_t detectionLevel;
    std::uint16_t attackCountFormula;
    std::uint16_t acFormula;
    std::uint8_t alignmentFlags;
    std::uint8_t unused41[29];
    std::uint8_t baseAbility[kAbilityCount];
    std::uint8_t sex;
    std::uint8_t unused77[3];
    std::int32_t levelUpEXPs[25];
    std::uint8_t skillIDs[100];
    std::uint8_t skillLevels[100];
    std::uint8_t unused380[96];
};
static_assert(sizeof(WizCharClassData_) == 476);

class WizCharClassData final : public BaseDatabaseModel
{
    WizCharClassData_ record{};

  public:
    static const FieldTable& fieldTable();
    const FieldTable& getFieldTable() const override { return fieldTable(); }

    VARN_FIELD(ShortName, record.shortName)
    VARN_FIELD(AbilityFlags, record.abilityFlags)
    VARN_FIELD(LevelUpHP, record.levelUpHP)
    VARN_FIELD(LevelUpMP, record.levelUpMP)
    VARN_FIELD(ThiefLevel, record.thiefLevel)
    VARN_FIELD(DetectionLevel, record.detectionLevel)
    VARN_FIELD(AttackCountFormula, record.attackCountFormula)
    VARN_FIELD(AcFormula, record.acFormula)
    VARN_FIELD(AlignmentFlags, record.alignmentFlags)
    /// Least values, by ability.
    VARN_ARRAY_FIELD(BaseAbility, record.baseAbility)
    VARN_FIELD(Sex, record.sex)
    /// By level.
    VARN_ARRAY_FIELD(LevelUpEXPs, record.levelUpEXPs)
    /// The skills that the class can learn, and the level at which it learns the one of that index.
    VARN_ARRAY_FIELD(SkillIDs, record.skillIDs)
    VARN_ARRAY_FIELD(SkillLevels, record.skillLevels)
};

class WizCharClassList final : public GameDataList<WizCharClassData, WizCharClassList>
{
  public:
    static const TableInfo kInfo;
};

} // namespace varn
