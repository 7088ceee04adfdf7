#include "Game/Database/Npc.h"

#include "Game/Database/FieldBuilders.h"
#include "Util/Exception.h"

namespace varn {

namespace {

using Message = NPC::Message;
using Condition = NPC::Message::Condition;

constexpr WStringView kTypes[] = {
    u"On Encounter", u"On Talk", u"On Give Gold", u"On Give Item", u"On Fight",
};

template <Condition::Id Wanted>
bool hasId(const GameRow& row)
{
    return static_cast<const Condition&>(row).getId() == Wanted;
}

constexpr WrittenRule kIsFlag = {u"`id` is 10", hasId<Condition::Flag>};
constexpr WrittenRule kIsGold = {u"`id` is 20", hasId<Condition::Gold>};
constexpr WrittenRule kIsGift = {u"`id` is 30", hasId<Condition::GiveItem>};

const Message& messageOf(const GameRow& row)
{
    return static_cast<const Message&>(row);
}

bool isFight(const GameRow& row)
{
    return messageOf(row).getType() == Message::OnFight;
}

constexpr WrittenRule kIsFightWithMusic = {
    u"`type` is 4 and it is not empty",
    [](const GameRow& row) { return isFight(row) && !messageOf(row).getBgm().empty(); },
};
constexpr WrittenRule kIsFightWithEnemy = {
    u"`type` is 4 and it is 0 or more",
    [](const GameRow& row) { return isFight(row) && messageOf(row).getEnemyId() >= 0; },
};

Condition& conditionFor(GameRow& row, const Element& child)
{
    auto& conditions = static_cast<Message&>(row).conditions;
    const auto found = conditions.find(static_cast<Condition::Id>(child.getInt(u"id")));
    if (found == conditions.end())
        throw Exception(u"InvalidIdException: NPC message condition id is invalid");
    return found->second;
}

/// The conditions of a message as a list: those that its type knows.
constexpr ChildRows kConditions = {
    .table = &Condition::fieldTable,
    .entries = Entries::ByElement,
    .size =
        [](const GameRow& row) {
            return static_cast<const Message&>(row).activeConditions().size();
        },
    .at = [](GameRow& row, std::size_t index) -> GameRow& {
        Message& message = static_cast<Message&>(row);
        return message.conditions.at(message.activeConditions()[index]);
    },
    .append = [](GameRow& row, const Element& child) -> GameRow& {
        return conditionFor(row, child);
    },
    .clear = [](GameRow& row) { static_cast<Message&>(row).conditions = Message().conditions; },
    .fixed = true,
};

} // namespace

const FieldTable& NPC::Item::fieldTable()
{
    static constexpr Field kFields[] = {
        field<&Item::id>(u"id", u"Item").to(u"Items"),
        field<&Item::gold>(u"gold", u"Price"),
    };
    static constexpr FieldTable kTable = rowTable<Item>(u"NPC::Item", u"item", kFields);
    return kTable;
}

const FieldTable& NPC::Message::Condition::fieldTable()
{
    using Row = Condition;
    static constexpr Field kFields[] = {
        field<&Row::id>(u"id", u"ID"),
        field<&Row::flagId>(u"flagId", u"Flag").to(u"FlagList").when(kIsFlag),
        field<&Row::flagValue>(u"flagValue", u"Value").when(kIsFlag),
        field<&Row::flagEnabled>(u"flagEnabled", u"Flag Condition")
            .by(Control::YesNo)
            .when(kIsFlag),
        field<&Row::gold>(u"gold", u"Gold").when(kIsGold),
        field<&Row::giveItemId>(u"giveItemId", u"Give: ").orElse(-1).to(u"Items").when(kIsGift),
        field<&Row::takeItemId>(u"takeItemId", u" Take: ").orElse(-1).to(u"Items").when(kIsGift),
    };
    static constexpr FieldTable kTable =
        rowTable<Row>(u"NPC::Message::Condition", u"Condition", kFields).withChildren();
    return kTable;
}

const FieldTable& NPC::Message::fieldTable()
{
    using Row = Message;
    static constexpr Field kFields[] = {
        field<&Row::id>(u"id", u"ID"),
        field<&Row::novel>(u"novel", u"Novel").orElse(-1).to(u"NovelScripts"),
        field<&Row::name>(u"name", u"Label"),
        field<&Row::name2>(u"name2", u"Name (Second Language)"),
        field<&Row::type>(u"type", u"When").among(kTypes),
        field<&Row::memorizable>(u"memorizable", u"Memorizable").by(Control::YesNo),
        field<&Row::bgm>(u"bgm", u"Battle BGM").when(kIsFightWithMusic),
        field<&Row::enemyId>(u"enemyId", u"Fought Enemy")
            .orElse(-1)
            .to(u"Enemies")
            .when(kIsFightWithEnemy),
        Field{.key = u"conditions",
              .label = u"Conditions",
              .note =
                  u"written: `id` 10, then 20 for `type` 2 and 30 for `type` 3; read: any other "
                  u"`id` is a fault, told, and ends the reading of the message",
              .kind = Kind::ChildRows,
              .children = &kConditions},
        field<&Row::texts>(u"text", u"Text"),
    };
    static constexpr FieldTable kTable =
        rowTable<Row>(u"NPC::Message", u"message", kFields).withChildren();
    return kTable;
}

std::vector<Condition::Id> NPC::Message::activeConditions() const
{
    switch (type) {
    case OnGiveGold:
        return {Condition::Flag, Condition::Gold};
    case OnGiveItem:
        return {Condition::Flag, Condition::GiveItem};
    default:
        return {Condition::Flag};
    }
}

const FieldTable& NPC::fieldTable()
{
    static constexpr Field kFields[] = {
        field<&NPC::name>(u"name", u"Name"),
        field<&NPC::name2>(u"name2", u"Name (Second Language)"),
        field<&NPC::id>(u"id", u"ID"),
        field<&NPC::enemyId>(u"enemyId", u"Enemy").to(u"Enemies"),
        childRows<&NPC::items, Entries::ByElement>(u"items", u"Items for Sell"),
        childRows<&NPC::messages, Entries::ByElement>(u"messages", u"Messages"),
    };
    static constexpr FieldTable kTable = rowTable<NPC>(u"NPC", u"NPC", kFields).withChildren();
    return kTable;
}

const TableInfo NPCList::kInfo = {
    u"NPCList", u"NPCs", u"NPCs.xml", u"", 1, &NPC::fieldTable,
};

} // namespace varn
