#pragma once

#include "Game/Database/GameDataList.h"

#include <map>

namespace varn {

/// A person the party can meet: what they sell and what they say.
class NPC final : public GameRow
{
  public:
    /// An item for sale.
    class Item final : public GameRow
    {
        std::int32_t id = 0;
        std::int32_t gold = 0;

      public:
        static const FieldTable& fieldTable();
        const FieldTable& getFieldTable() const override { return fieldTable(); }

        /// Item row.
        VARN_FIELD(Id, id)
        VARN_FIELD(Gold, gold)
    };

    /// One line of a conversation.
    class Message final : public GameRow
    {
      public:
        /// When the message applies.
        enum Type : std::int32_t
        {
            OnEncounter,
            OnTalk,
            OnGiveGold,
            OnGiveItem,
            OnFight
        };

        /// What must hold for the message to be said, and what is taken in return. Which of its
        /// fields count goes by its id.
        class Condition final : public GameRow
        {
          public:
            enum Id : std::int32_t
            {
                Flag = 10,
                Gold = 20,
                GiveItem = 30
            };

          private:
            std::int32_t id = Flag;
            std::int32_t flagId = 0;
            std::int32_t flagValue = 0;
            std::int32_t flagEnabled = 0;
            std::int32_t gold = 0;
            std::int32_t giveItemId = -1;
            std::int32_t takeItemId = -1;

          public:
            Condition() = default;
            explicit Condition(Id id) : id(id) {}
            static const FieldTable& fieldTable();
            const FieldTable& getFieldTable() const override { return fieldTable(); }

            std::int32_t getId() const { return id; }
            VARN_FIELD(FlagId, flagId)
            VARN_FIELD(FlagValue, flagValue)
            VARN_FIELD(FlagEnabled, flagEnabled)
            VARN_FIELD(Gold, gold)
            /// Item rows; -1 for any, and for none.
            VARN_FIELD(GiveItemId, giveItemId)
            VARN_FIELD(TakeItemId, takeItemId)
        };

      private:
        std::int32_t id = 0;
        std::int32_t novel = -1;
        WString name;
        WString name2;
        std::int32_t type = OnEncounter;
        std::uint8_t memorizable = 0;
        WString bgm;
        std::int32_t enemyId = -1;
        WString texts[2];

      public:
        static const FieldTable& fieldTable();
        const FieldTable& getFieldTable() const override { return fieldTable(); }

        /// Number of the message in its NPC.
        VARN_FIELD(Id, id)
        /// Row of the novel that plays instead; -1 for none.
        VARN_FIELD(Novel, novel)
        VARN_FIELD(Type, type)
        VARN_FIELD(Memorizable, memorizable)
        /// Of a fight: its music, and the enemy fought (-1 for the NPC's own).
        VARN_FIELD(Bgm, bgm)
        VARN_FIELD(EnemyId, enemyId)
        /// By language, 0 or 1; stored verbatim.
        const WString& getText(std::size_t language) const { return texts[language != 0]; }
        void setText(std::size_t language, WStringView text) { texts[language != 0] = text; }

        /// All three, whatever the type. Those that the type does not know are not written.
        std::map<Condition::Id, Condition> conditions = {
            {Condition::Flag, Condition(Condition::Flag)},
            {Condition::Gold, Condition(Condition::Gold)},
            {Condition::GiveItem, Condition(Condition::GiveItem)},
        };
        /// The conditions that the type knows, in order.
        std::vector<Condition::Id> activeConditions() const;
    };

  private:
    WString name;
    WString name2;
    std::int32_t enemyId = 0;
    std::int32_t id = 0;

  public:
    static const FieldTable& fieldTable();
    const FieldTable& getFieldTable() const override { return fieldTable(); }

    /// Enemy row.
    VARN_FIELD(EnemyId, enemyId)
    VARN_FIELD(Id, id)

    std::vector<Item> items;
    std::vector<Message> messages;
};

class NPCList final : public GameDataList<NPC, NPCList>
{
  public:
    static const TableInfo kInfo;
};

} // namespace varn
