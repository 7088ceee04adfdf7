#pragma once

#include "Game/Database/GameDataList.h"

namespace varn {

/// A character of the game's roster, as far as the tool carries it. Children are told by what they
/// carry, whatever their names.
class WizCharacter final : public GameRow
{
  public:
    /// A carried item.
    class Item final : public GameRow
    {
        std::int32_t itemID = 0;
        std::int32_t itemState = 0;

      public:
        static const FieldTable& fieldTable();
        const FieldTable& getFieldTable() const override { return fieldTable(); }

        VARN_FIELD(ItemID, itemID)
        VARN_FIELD(ItemState, itemState)
    };

    /// A known skill.
    class Skill final : public GameRow
    {
        std::int32_t skillID = 0;

      public:
        static const FieldTable& fieldTable();
        const FieldTable& getFieldTable() const override { return fieldTable(); }

        VARN_FIELD(SkillID, skillID)
    };

    /// One ability's value; their order is that of kAbilityLabels.
    class Ability final : public GameRow
    {
        std::int32_t ability = 0;

      public:
        static const FieldTable& fieldTable();
        const FieldTable& getFieldTable() const override { return fieldTable(); }

        VARN_FIELD(Ability, ability)
    };

  private:
    WString name;
    WString name2;
    std::int32_t race = 0;
    std::int32_t characterClass = 0;
    std::int32_t sex = 0;
    std::int32_t alignment = 0;
    std::int32_t gold = 0;
    std::int32_t exp = 0;
    std::int32_t level = 0;
    std::int32_t maxHP = 0;
    std::int32_t age = 0;
    std::int32_t week = 0;
    std::int32_t status = 0;
    std::int32_t party = 0;

  public:
    static const FieldTable& fieldTable();
    const FieldTable& getFieldTable() const override { return fieldTable(); }

    VARN_FIELD(Race, race)
    VARN_FIELD(Class, characterClass)
    VARN_FIELD(Sex, sex)
    VARN_FIELD(Alignment, alignment)
    VARN_FIELD(Gold, gold)
    VARN_FIELD(Exp, exp)
    VARN_FIELD(Level, level)
    VARN_FIELD(MaxHP, maxHP)
    VARN_FIELD(Age, age)
    VARN_FIELD(Week, week)
    VARN_FIELD(Status, status)
    /// An element without this attribute is a fault; the row keeps everything else it has.
    VARN_FIELD(Party, party)

    std::vector<Item> items;
    std::vector<Skill> skills;
    std::vector<Ability> abilities;
};

class WizCharacterList final : public GameDataList<WizCharacter, WizCharacterList>
{
  public:
    static const TableInfo kInfo;
};

/// A party of characters. Its table has no tag: any document's root holds the rows.
class WizParty final : public BaseDatabaseModel
{
    std::int32_t gold = 0;
    std::vector<std::int32_t> members;

  public:
    static const FieldTable& fieldTable();
    const FieldTable& getFieldTable() const override { return fieldTable(); }

    VARN_FIELD(Gold, gold)
    /// Character rows.
    VARN_FIELD(Members, members)
};

class WizPartyList final : public GameDataList<WizParty, WizPartyList>
{
  public:
    static const TableInfo kInfo;
};

} // namespace varn
