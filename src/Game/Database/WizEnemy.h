#pragma once

#include "Game/Database/AbilityLabels.h"
#include "Game/Database/GameDataList.h"
#include "Game/Database/TraitModel.h"

namespace varn {

/// The `.dat` record of an enemy.
struct WizEnemyData_
{
    FixedText<32, 19> name;
    std::uint8_t type;
    std::int8_t ac;
    std::uint8_t autoHealing;
    std::uint8_t itemTableID;
    std::uint8_t dropItemID;
    std::uint8_t followingEnemyID;
    std::uint8_t followingEnemyEmergeRate;
    std::uint8_t magicInvalidityRate;
    std::uint8_t breath;
    std::uint8_t unused41[2];
    std::uint8_t attackCount;
    Dice attackDice;
    std::uint8_t unused47[15];
    Dice emergeCountDice;
    Dice hpDice;
    std::int32_t exp;
    std::int32_t gold;
    std::uint8_t unused76[16];
    std::int32_t actionID;
    std::int32_t imageID;
    std::uint8_t ability[kAbilityCount];
    std::uint8_t skillFlags;
    std::uint8_t race;
    std::uint8_t dropItemRate;
    std::uint8_t drainLevel;
    std::uint8_t unused110[18];
    std::uint8_t friendlyRate;
    std::uint8_t unused129[3];
};
static_assert(sizeof(WizEnemyData_) == 132);

/// An enemy. Rates are in percent.
///
/// The dropped item does not survive a save: it is written as `dropItemID` and `dropItemRate`, and
/// read only from the older misspelt keys `dorpItemID` and `dorpItemRate`. Files rely on either
/// side.
class WizEnemyData final : public BaseDatabaseModel
{
    WizEnemyData_ record{};
    std::uint8_t registerable = 0;
    WString description;
    WString description2;

  public:
    static const FieldTable& fieldTable();
    const FieldTable& getFieldTable() const override { return fieldTable(); }

    VARN_FIELD(Type, record.type)
    VARN_FIELD(Ac, record.ac)
    /// Hit points regained each round.
    VARN_FIELD(AutoHealing, record.autoHealing)
    VARN_FIELD(ItemTableID, record.itemTableID)
    VARN_FIELD(DropItemID, record.dropItemID)
    VARN_FIELD(FollowingEnemyID, record.followingEnemyID)
    VARN_FIELD(FollowingEnemyEmergeRate, record.followingEnemyEmergeRate)
    VARN_FIELD(MagicInvalidityRate, record.magicInvalidityRate)
    VARN_FIELD(Breath, record.breath)
    VARN_FIELD(AttackCount, record.attackCount)
    VARN_FIELD(AttackDice, record.attackDice)
    /// How many appear in a group.
    VARN_FIELD(EmergeCountDice, record.emergeCountDice)
    VARN_FIELD(HpDice, record.hpDice)
    VARN_FIELD(Exp, record.exp)
    VARN_FIELD(Gold, record.gold)
    VARN_FIELD(ActionID, record.actionID)
    VARN_FIELD(ImageID, record.imageID)
    VARN_ARRAY_FIELD(Ability, record.ability)
    VARN_FIELD(SkillFlags, record.skillFlags)
    VARN_FIELD(Race, record.race)
    VARN_FIELD(DropItemRate, record.dropItemRate)
    VARN_FIELD(DrainLevel, record.drainLevel)
    VARN_FIELD(FriendlyRate, record.friendlyRate)
    VARN_FIELD(Registerable, registerable)
    VARN_FIELD(Description, description)
    VARN_FIELD(Description2, description2)

    Traits traits;
};

class WizEnemyList final : public GameDataList<WizEnemyData, WizEnemyList>
{
  public:
    static const TableInfo kInfo;
};

} // namespace varn
