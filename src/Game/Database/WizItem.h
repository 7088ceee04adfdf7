#pragma once

#include "Game/Database/AbilityLabels.h"
#include "Game/Database/GameDataList.h"
#include "Game/Database/TraitModel.h"

namespace varn {

/// The `.dat` record of an item.
struct WizItemData_
{
    FixedText<24> name;
    FixedText<24> uncertainName;
    FixedText<60> description;
    std::uint8_t type;
    std::uint8_t unused109[3];
    std::int32_t price;
    std::uint8_t stock;
    std::uint8_t unused117[2];
    std::uint8_t brokenRateOnUse;
    std::uint8_t skillOnUse;
    std::uint8_t ability[kAbilityCount];
    std::int8_t ac;
    Dice damageDice;
    std::uint8_t st;
    std::uint8_t unused132[4];
    std::uint8_t alignmentFlags;
    std::uint8_t sex;
    std::uint8_t unused138[6];
    std::uint8_t curse;
    std::uint8_t healingPoint;
    std::uint8_t at;
    std::uint8_t range;
    std::uint8_t unused148[2];
    std::uint16_t subtype;
    std::uint8_t usableForEquippableClasses;
    std::uint8_t acFormulaType;
    std::int8_t breathResistance;
    std::uint8_t unused155[17];
};
static_assert(sizeof(WizItemData_) == 172);

class WizItemModel final : public BaseDatabaseModel
{
    WizItemData_ record{};
    std::uint8_t registerable = 0;
    std::int32_t specialPower = 0;
    std::int32_t equipmentFlags = 0;
    std::int32_t skillFlags = 0;
    WString uncertainName2;
    WString description2;

  public:
    static const FieldTable& fieldTable();
    const FieldTable& getFieldTable() const override { return fieldTable(); }

    VARN_FIELD(Registerable, registerable)
    /// The name before identification.
    VARN_FIELD(UncertainName, record.uncertainName)
    VARN_FIELD(UncertainName2, uncertainName2)
    VARN_FIELD(Description, record.description)
    VARN_FIELD(Description2, description2)
    VARN_FIELD(Type, record.type)
    /// Row of the weapon types.
    VARN_FIELD(Subtype, record.subtype)
    VARN_FIELD(Price, record.price)
    VARN_FIELD(Stock, record.stock)
    VARN_FIELD(SpecialPower, specialPower)
    VARN_FIELD(BrokenRateOnUse, record.brokenRateOnUse)
    VARN_FIELD(SkillOnUse, record.skillOnUse)
    VARN_ARRAY_FIELD(Ability, record.ability)
    VARN_FIELD(Ac, record.ac)
    VARN_FIELD(DamageDice, record.damageDice)
    /// Hit bonus.
    VARN_FIELD(St, record.st)
    /// Bits of the classes that may equip the item.
    VARN_FIELD(EquipmentFlags, equipmentFlags)
    VARN_FIELD(Sex, record.sex)
    VARN_FIELD(AlignmentFlags, record.alignmentFlags)
    VARN_FIELD(SkillFlags, skillFlags)
    /// Non-zero: cursed.
    VARN_FIELD(Curse, record.curse)
    /// Hit points healed a step.
    VARN_FIELD(HealingPoint, record.healingPoint)
    /// Bonus on the attack count.
    VARN_FIELD(At, record.at)
    VARN_FIELD(Range, record.range)
    VARN_FIELD(UsableForEquippableClasses, record.usableForEquippableClasses)
    VARN_FIELD(AcFormulaType, record.acFormulaType)
    VARN_FIELD(BreathResistance, record.breathResistance)

    Traits traits;
};

class WizItemList final : public GameDataList<WizItemModel, WizItemList>
{
  public:
    static const TableInfo kInfo;
};

} // namespace varn
