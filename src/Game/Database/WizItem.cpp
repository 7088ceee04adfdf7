#include "Game/Database/WizItem.h"

#include "Game/Database/AbilityLabels.h"
#include "Game/Database/FieldBuilders.h"

namespace varn {

namespace {

constexpr WStringView kTypes[] = {
    u"Weapon",     u"Armor",    u"Shield", u"Helmet", u"Gauntlets",
    u"Misc. Item", u"Medicine", u"Book",   u"Event",
};
constexpr WStringView kRanges[] = {u"CloseRange", u"ShortRange", u"MediumRange", u"LongRange"};

constexpr Codec kOlderTraits = {
    [](GameRow& row, const Element& element, Faults&) {
        readOlderTraits(static_cast<WizItemModel&>(row).traits, element);
    },
    [](const GameRow&, Element&) {},
    u"only read: the older attributes `statusChangeRate`, `attributeFlags` and `statusFlags`, "
    u"where "
    u"they are not 0, each add an entry to `traits`",
};

} // namespace

const FieldTable& WizItemModel::fieldTable()
{
    using Row = WizItemModel;
    using Record = WizItemData_;
    static constexpr Field kFields[] = {
        kBaseId,
        kBaseMarker,
        field<&Row::record, &Record::name>(u"name", u"Name"),
        kBaseName2,
        field<&Row::registerable>(u"registerable", u"Registerable").by(Control::YesNo),
        field<&Row::uncertainName2>(u"uncertainName2", u"Unidentified Name (Second Language)"),
        field<&Row::description2>(u"description2", u"Description (Second Language)"),
        field<&Row::record, &Record::uncertainName>(u"uncertainName", u"Unidentified Name"),
        field<&Row::record, &Record::description>(u"description", u"Description"),
        field<&Row::record, &Record::type>(u"type", u"Type").among(kTypes),
        field<&Row::record, &Record::subtype>(u"subtype", u"Subtype").to(u"WeaponTypes"),
        field<&Row::record, &Record::price>(u"price", u"Price"),
        field<&Row::record, &Record::stock>(u"stock", u"Stock"),
        field<&Row::specialPower>(u"specialPower", u"Special Power"),
        field<&Row::record, &Record::brokenRateOnUse>(u"brokenRateOnUse", u"Break Rate")
            .by(Control::Percent),
        field<&Row::record, &Record::skillOnUse>(u"skillOnUse", u"Skill on Use")
            .olderYields(u"skillIDOnUse")
            .to(u"Skills"),
        field<&Row::record, &Record::ability>(u"ability", u"Ability").among(kAbilityLabels),
        field<&Row::record, &Record::ac>(u"ac", u"A.C."),
        field<&Row::record, &Record::damageDice>(u"damageDice", u"Damage"),
        field<&Row::record, &Record::st>(u"st", u"Hit Bonus"),
        field<&Row::equipmentFlags>(u"equipmentFlags", u"Equipment Flags")
            .to(u"Classes", Refers::Bits),
        field<&Row::record, &Record::sex>(u"sex", u"Sex").among(kSexLabels),
        field<&Row::record, &Record::alignmentFlags>(u"alignmentFlags", u"Alignments")
            .bitsAmong(kAlignmentLabels),
        field<&Row::skillFlags>(u"skillFlags", u"Skill Flags"),
        field<&Row::record, &Record::curse>(u"curse", u"Cursed")
            .by(Control::YesNo)
            .as(NumberForm::ZeroOrOne),
        field<&Row::record, &Record::healingPoint>(u"healingPoint", u"Healing"),
        field<&Row::record, &Record::at>(u"at", u"Attack Count"),
        field<&Row::record, &Record::range>(u"range", u"Reach").among(kRanges),
        field<&Row::record, &Record::usableForEquippableClasses>(u"usableForEquippableClasses",
                                                                 u"Usable by Equippable Classes")
            .by(Control::YesNo)
            .as(NumberForm::ZeroOrOne),
        field<&Row::record, &Record::acFormulaType>(u"acFormulaType", u"Add to A.C. Formula")
            .by(Control::YesNo)
            .as(NumberForm::OneOnly),
        field<&Row::record, &Record::breathResistance>(u"breathResistance", u"Breath Resistance"),
        childRows<&Row::traits, Entries::InContainer>(u"traits", u"Traits"),
        coded(kOlderTraits, u"(older traits)", u"Traits"),
    };
    static constexpr FieldTable kTable =
        recordTable<&Row::record>(u"WizItemModel", kFields).withChildren();
    return kTable;
}

const TableInfo WizItemList::kInfo = {
    u"WizItemList", u"Items", u"Item.dat", u"Item.dat", 255, &WizItemModel::fieldTable,
};

} // namespace varn
