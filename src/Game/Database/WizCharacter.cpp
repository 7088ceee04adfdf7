#include "Game/Database/WizCharacter.h"

#include "Game/Database/FieldBuilders.h"
#include "Util/Exception.h"

namespace varn {

namespace {

/// Stands behind everything else, so that the fault costs no other field.
constexpr Codec kPartyRequired = {
    [](GameRow&, const Element& element, Faults&) {
        if (!element.hasAttribute(u"party"))
            throw Exception(u"Exception: the Character element doesn't have the party attribute.");
    },
    [](const GameRow&, Element&) {},
    u"an element without the attribute `party` is reported, and read with party 0",
};

} // namespace

const FieldTable& WizCharacter::Item::fieldTable()
{
    static constexpr Field kFields[] = {
        field<&Item::itemID>(u"itemID", u"Item").to(u"Items"),
        field<&Item::itemState>(u"itemState", u"State"),
    };
    static constexpr FieldTable kTable = rowTable<Item>(u"WizCharacter::Item", u"item", kFields);
    return kTable;
}

const FieldTable& WizCharacter::Skill::fieldTable()
{
    static constexpr Field kFields[] = {
        field<&Skill::skillID>(u"skillID", u"Skill").to(u"Skills"),
    };
    static constexpr FieldTable kTable = rowTable<Skill>(u"WizCharacter::Skill", u"skill", kFields);
    return kTable;
}

const FieldTable& WizCharacter::Ability::fieldTable()
{
    static constexpr Field kFields[] = {
        field<&Ability::ability>(u"ability", u"Ability"),
    };
    static constexpr FieldTable kTable =
        rowTable<Ability>(u"WizCharacter::Ability", u"ability", kFields);
    return kTable;
}

const FieldTable& WizCharacter::fieldTable()
{
    using Row = WizCharacter;
    static constexpr Field kFields[] = {
        field<&Row::name>(u"name", u"Name"),
        field<&Row::name2>(u"name2", u"Name (Second Language)"),
        field<&Row::race>(u"race", u"Race").to(u"Races"),
        field<&Row::characterClass>(u"class", u"Class").to(u"Classes"),
        field<&Row::sex>(u"sex", u"Sex"),
        field<&Row::alignment>(u"alignment", u"Alignment"),
        field<&Row::gold>(u"gold", u"Gold"),
        field<&Row::exp>(u"exp", u"Experience"),
        field<&Row::level>(u"level", u"Level"),
        field<&Row::maxHP>(u"maxHP", u"HP"),
        field<&Row::age>(u"age", u"Age"),
        field<&Row::week>(u"week", u"Week"),
        field<&Row::status>(u"status", u"State"),
        field<&Row::party>(u"party", u"Party"),
        childRows<&Row::items, Entries::ByAttribute>(u"items", u"Items"),
        childRows<&Row::skills, Entries::ByAttribute>(u"skills", u"Skills"),
        childRows<&Row::abilities, Entries::ByAttribute>(u"abilities", u"Ability")
            .noting(u"in the order STR, INT, PIE, VIT, AGI, LUK"),
        coded(kPartyRequired, u"(party)", u"Party"),
    };
    static constexpr FieldTable kTable =
        rowTable<Row>(u"WizCharacter", u"Character", kFields).withChildren();
    return kTable;
}

const TableInfo WizCharacterList::kInfo = {
    u"WizCharacterList", u"CharacterList", u"CharacterList.xml", u"", 0, &WizCharacter::fieldTable,
};

const FieldTable& WizParty::fieldTable()
{
    static constexpr Field kFields[] = {
        kBaseId,
        kBaseMarker,
        kBaseName,
        kBaseName2,
        field<&WizParty::gold>(u"gold", u"Gold"),
        field<&WizParty::members>(u"members", u"Chars").to(u"CharacterList"),
    };
    static constexpr FieldTable kTable = rowTable<WizParty>(u"WizParty", u"data", kFields);
    return kTable;
}

const TableInfo WizPartyList::kInfo = {
    u"WizPartyList", u"", u"PartyList.xml", u"", 0, &WizParty::fieldTable,
};

} // namespace varn
