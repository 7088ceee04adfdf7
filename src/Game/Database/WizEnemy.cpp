#include "Game/Database/WizEnemy.h"

#include "Game/Database/FieldBuilders.h"

namespace varn {

const FieldTable& WizEnemyData::fieldTable()
{
    using Row = WizEnemyData;
    using Record = WizEnemyData_;
    static constexpr Field kFields[] = {
        kBaseId,
        kBaseMarker,
        field<&Row::record, &Record::name>(u"name", u"Name"),
        kBaseName2,
        field<&Row::record, &Record::type>(u"type", u"Type"),
        field<&Row::record, &Record::ac>(u"ac", u"A.C."),
        field<&Row::record, &Record::autoHealing>(u"autoHealing", u"Self Healing"),
        field<&Row::record, &Record::itemTableID>(u"itemTableID", u"Item Table").to(u"ItemTables"),
        field<&Row::record, &Record::dropItemID>(u"dropItemID", u"Dropped Item")
            .readOnlyAs(u"dorpItemID")
            .to(u"Items"),
        field<&Row::record, &Record::followingEnemyID>(u"followingEnemyID", u"Following Enemy")
            .to(u"Enemies"),
        field<&Row::record, &Record::followingEnemyEmergeRate>(u"followingEnemyEmergeRate",
                                                               u"Following Rate")
            .by(Control::Percent),
        field<&Row::record, &Record::magicInvalidityRate>(u"magicInvalidityRate", u"Magic Immunity")
            .by(Control::Percent),
        field<&Row::record, &Record::breath>(u"breath", u"Breath"),
        field<&Row::record, &Record::attackCount>(u"attackCount", u"Attacks per Round"),
        field<&Row::record, &Record::attackDice>(u"attackDice", u"Attack Dice"),
        field<&Row::record, &Record::emergeCountDice>(u"emergeCountDice", u"Group Dice"),
        field<&Row::record, &Record::hpDice>(u"hpDice", u"HP Dice"),
        field<&Row::record, &Record::exp>(u"exp", u"Experience"),
        field<&Row::record, &Record::gold>(u"gold", u"Gold"),
        field<&Row::record, &Record::actionID>(u"actionID", u"Action").to(u"Actions"),
        field<&Row::record, &Record::imageID>(u"imageID", u"Picture"),
        field<&Row::record, &Record::ability>(u"ability", u"Ability").among(kAbilityLabels),
        field<&Row::record, &Record::skillFlags>(u"skillFlags", u"Skill Flags"),
        field<&Row::record, &Record::race>(u"race", u"Race").to(u"Races"),
        field<&Row::record, &Record::dropItemRate>(u"dropItemRate", u"Drop Rate")
            .by(Control::Percent)
            .readOnlyAs(u"dorpItemRate"),
        field<&Row::record, &Record::drainLevel>(u"drainLevel", u"Level Drain"),
        field<&Row::record, &Record::friendlyRate>(u"friendlyRate", u"Friendly Rate")
            .by(Control::Percent),
        field<&Row::registerable>(u"registerable", u"Registerable").by(Control::YesNo),
        field<&Row::description>(u"description", u"Description"),
        field<&Row::description2>(u"description2", u"Description (Second Language)"),
        childRows<&Row::traits, Entries::InContainer>(u"traits", u"Traits"),
    };
    static constexpr FieldTable kTable =
        recordTable<&Row::record>(u"WizEnemyData", kFields).withChildren();
    return kTable;
}

const TableInfo WizEnemyList::kInfo = {
    u"WizEnemyList", u"Enemies", u"Enemy.dat", u"Enemy.dat", 255, &WizEnemyData::fieldTable,
};

} // namespace varn
