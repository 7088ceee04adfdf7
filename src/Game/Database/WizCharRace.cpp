#include "Game/Database/WizCharRace.h"

#include "Game/Database/FieldBuilders.h"

namespace varn {

const FieldTable& WizCharRaceData::fieldTable()
{
    using Row = WizCharRaceData;
    using Record = WizCharRaceData_;
    static constexpr Field kFields[] = {
        kBaseId,
        kBaseMarker,
        field<&Row::record, &Record::name>(u"name", u"Name"),
        kBaseName2,
        field<&Row::record, &Record::shortName>(u"shortName", u"Short Name"),
        field<&Row::record, &Record::baseAbility>(u"baseAbility", u"Base Ability")
            .among(kAbilityLabels),
        field<&Row::record, &Record::attributeEffectivenessRates>(u"attributeEffectivenessRates",
                                                                  u"Attribute Effectiveness")
            .to(u"Attributes", Refers::Index),
        field<&Row::record, &Record::stateResistance>(u"stateResistance", u"State Resistance")
            .olderWins(u"stateRegistance")
            .to(u"States", Refers::Index),
        field<&Row::record, &Record::flags>(u"flags", u"Flags"),
    };
    static constexpr FieldTable kTable = recordTable<&Row::record>(u"WizCharRaceData", kFields);
    return kTable;
}

const TableInfo WizCharRace::kInfo = {
    u"WizCharRace", u"Races", u"Race.dat", u"Race.dat", 64, &WizCharRaceData::fieldTable,
};

} // namespace varn
