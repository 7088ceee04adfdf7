#pragma once

#include "Game/Database/FieldTable.h"

namespace varn {

/// What an item or enemy brings along: an effect on attributes, states or races.
///
/// Element `trait` (any name is read): `type`, `targets` (rows of the table that the type speaks
/// of, comma-separated), `value` (percent). A status attack without targets gives the chance of all
/// status attacks of its list.
class TraitModel final : public GameRow
{
  public:
    enum Type : std::int32_t
    {
        AttributeEfficiency,
        StateResistivity,
        AttributeAttack,
        StatusAttack,
        RaceAttack,
        RaceEfficiency,
        UndefinedType, ///< what every other value counts as; the value itself is kept
    };

  private:
    std::int32_t type = UndefinedType;
    std::vector<std::int32_t> targets;
    std::int32_t value = 0;

  public:
    TraitModel() = default;
    TraitModel(Type type, std::vector<std::int32_t> targets, std::int32_t value)
        : type(type), targets(std::move(targets)), value(value)
    {}

    static const FieldTable& fieldTable();
    const FieldTable& getFieldTable() const override { return fieldTable(); }

    VARN_FIELD(Type, type)
    VARN_FIELD(Targets, targets)
    VARN_FIELD(Value, value)

    /// Tag of the table whose rows are the targets; empty for an undefined type.
    static WStringView targetTable(const GameRow& trait);
};

using Traits = std::vector<TraitModel>;

/// Appends a trait for each attribute of an older item that a trait now says: `statusChangeRate`
/// (percent), `attributeFlags`, `statusFlags` (bits by row). A value of 0 says nothing.
void readOlderTraits(Traits& traits, const Element& item);

} // namespace varn
