#include "Game/Database/TraitModel.h"

#include "Game/Database/FieldBuilders.h"

namespace varn {

namespace {

constexpr WStringView kTypes[] = {
    u"Attribute Efficiency", u"State Resistivity", u"Attribute Attack", u"Status Attack",
    u"Race Attack",          u"Race Efficiency",   u"Undefined Type",
};

std::vector<std::int32_t> rowsOfBits(std::int32_t bits)
{
    std::vector<std::int32_t> rows;
    for (std::int32_t row = 0; row < 32; row++)
        if (static_cast<std::uint32_t>(bits) >> row & 1)
            rows.push_back(row);
    return rows;
}

} // namespace

const FieldTable& TraitModel::fieldTable()
{
    using Row = TraitModel;
    static constexpr Field kFields[] = {
        field<&Row::type>(u"type", u"Type").among(kTypes).orElse(UndefinedType),
        field<&Row::targets>(u"targets", u"Target").to(targetTable),
        field<&Row::value>(u"value", u"Value")
            .noting(u"percent; of a status attack without targets, the chance of all of them"),
    };
    static constexpr FieldTable kTable = rowTable<Row>(u"TraitModel", u"trait", kFields);
    return kTable;
}

WStringView TraitModel::targetTable(const GameRow& trait)
{
    switch (static_cast<const TraitModel&>(trait).type) {
    case AttributeEfficiency:
    case AttributeAttack:
        return u"Attributes";
    case StateResistivity:
    case StatusAttack:
        return u"States";
    case RaceAttack:
    case RaceEfficiency:
        return u"Races";
    default:
        return {};
    }
}

void readOlderTraits(Traits& traits, const Element& item)
{
    if (const std::int32_t chance = item.getInt(u"statusChangeRate"))
        traits.emplace_back(TraitModel::StatusAttack, std::vector<std::int32_t>(), chance);
    if (const std::int32_t bits = item.getInt(u"attributeFlags"))
        traits.emplace_back(TraitModel::AttributeAttack, rowsOfBits(bits), 100);
    if (const std::int32_t bits = item.getInt(u"statusFlags"))
        traits.emplace_back(TraitModel::StatusAttack, rowsOfBits(bits), 100);
}

} // namespace varn
