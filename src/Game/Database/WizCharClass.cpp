#include "Game/Database/WizCharClass.h"

#include "Game/Database/AbilityLabels.h"
#include "Game/Database/FieldBuilders.h"

namespace varn {

const FieldTable& WizCharClassData::fieldTable()
{
    using Row = WizCharClassData;
    using Record = WizCharClassData_;
    // Older files have singular names; one of them tells for all three arrays.
    static constexpr WStringView kOlderForm = u"skillID";
    static constexpr Field kFields[] = {
        kBaseId,
        kBaseMarker,
        field<&Row::record, &Record::name>(u"name", u"Name"),
        kBaseName2,
        field<&Row::record, &Record::shortName>(u"shortName", u"Short Name"),
        field<&Row::record, &Record::abilityFlags>(u"abilityFlags", u"Ability Flags"),
        field<&Row::record, &Record::levelUpHP>(u"levelUpHP", u"HP per Level"),
        field<&Row::record, &Record::levelUpMP>(u"levelUpMP", u"MP per Level"),
        field<&Row::record, &Record::thiefLevel>(u"thiefLevel", u"Thief Level"),
        field<&Row::record, &Record::detectionLevel>(u"detectionLevel", u"Detection Level"),
        field<&Row::record, &Record::attackCountFormula>(u"attackCountFormula",
                                                         u"Attack Count Formula")
            .to(u"Formulas"),
        field<&Row::record, &Record::acFormula>(u"acFormula", u"A.C. Formula").to(u"Formulas"),
        field<&Row::record, &Record::alignmentFlags>(u"alignmentFlags", u"Alignments")
            .bitsAmong(kAlignmentLabels),
        field<&Row::record, &Record::baseAbility>(u"baseAbility", u"Base Ability")
            .among(kAbilityLabels),
        field<&Row::record, &Record::sex>(u"sex", u"Sex").among(kSexLabels),
        field<&Row::record, &Record::levelUpEXPs>(u"levelUpEXPs", u"Experience")
            .olderWins(u"levelUpEXP", kOlderForm),
        field<&Row::record, &Record::skillIDs>(u"skillIDs", u"Learned Skills")
            .olderWins(u"skillID", kOlderForm)
            .to(u"Skills"),
        field<&Row::record, &Record::skillLevels>(u"skillLevels", u"Learned at Level")
            .withLast()
            .olderWins(u"skillLevel", kOlderForm),
    };
    static constexpr FieldTable kTable = recordTable<&Row::record>(u"WizCharClassData", kFields);
    return kTable;
}

const TableInfo WizCharClassList::kInfo = {
    u"WizCharClassList", u"Classes", u"Class.dat", u"Class.dat", 16, &WizCharClassData::fieldTable,
};

} // namespace varn
