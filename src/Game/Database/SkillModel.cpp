#include "Game/Database/SkillModel.h"

#include "Game/Database/AbilityLabels.h"
#include "Game/Database/FieldBuilders.h"

namespace varn {

namespace {

constexpr WStringView kRanges[] = {
    u"One Enemy", u"Enemy Group", u"Enemy Party", u"One Character", u"Group", u"Party", u"Self",
};
constexpr WStringView kSpecialTypes[] = {
    u"Normal",
    u"(System)",
    u"(System)",
    u"(System)",
    u"Skills: View Map",
    u"Skills: Teleportation",
    u"Skills: Light Source", // SkillModel::kLightSource
    u"Skills: Levitation",
    u"---",
};
constexpr WStringView kPlaces[] = {u"Battle", u"Field", u"Battle and Field"};

constexpr WrittenRule kIsLightSource = {
    u"`specialType` is 6",
    [](const GameRow& row) {
        return static_cast<const SkillModel&>(row).getSpecialType() == SkillModel::kLightSource;
    },
};

} // namespace

const FieldTable& SkillModel::fieldTable()
{
    using Row = SkillModel;
    using Record = WizCharSkillData_;
    static constexpr Field kFields[] = {
        kBaseId,
        kBaseMarker,
        field<&Row::record, &Record::name>(u"name", u"Name"),
        kBaseName2,
        field<&Row::record, &Record::description>(u"description", u"Description"),
        field<&Row::record, &Record::type>(u"type", u"Type").to(u"SpellTypes"),
        field<&Row::record, &Record::specialType>(u"specialType", u"Special Type")
            .among(kSpecialTypes),
        field<&Row::record, &Record::mpCost>(u"mpCost", u"MP Cost"),
        field<&Row::record, &Record::range>(u"range", u"Range").among(kRanges),
        field<&Row::record, &Record::usablePlace>(u"usablePlace", u"Usable Place").among(kPlaces),
        field<&Row::record, &Record::successRate>(u"successRate", u"Success Rate")
            .by(Control::Percent),
        field<&Row::record, &Record::stateFlags>(u"stateFlags", u"Inflicted States")
            .to(u"States", Refers::Bits),
        field<&Row::record, &Record::abilityIndex>(u"abilityIndex", u"Ability")
            .among(kAbilityLabels),
        field<&Row::record, &Record::attributeFlags>(u"attributeFlags", u"Attributes")
            .to(u"Attributes", Refers::Bits),
        field<&Row::record, &Record::effectValueDice>(u"effectValueDice", u"Dice"),
        field<&Row::record, &Record::rank>(u"rank", u"Rank"),
        field<&Row::record, &Record::flagId>(u"flagId", u"Flag").to(u"FlagList"),
        field<&Row::record, &Record::halfDoorDetectionProbability>(u"halfDoorDetectionProbability",
                                                                   u"1/2 Door Detection")
            .by(Control::Percent)
            .when(kIsLightSource),
        field<&Row::record, &Record::secretDoorDetectionProbability>(
            u"secretDoorDetectionProbability", u"Secret Door Detection")
            .by(Control::Percent)
            .when(kIsLightSource),
        field<&Row::record, &Record::lightSourceDecreaseInDarkness>(
            u"lightSourceDecreaseInDarkness", u"Light Lost in Darkness")
            .when(kIsLightSource),
        field<&Row::resistanceFormula>(u"resistanceFormula", u"Resistance Formula").to(u"Formulas"),
        field<&Row::description2>(u"description2", u"Description (Second Language)"),
    };
    static constexpr FieldTable kTable = recordTable<&Row::record>(u"SkillModel", kFields);
    return kTable;
}

const TableInfo SkillDatabase::kInfo = {
    u"SkillDatabase", u"Skills", u"Skill.dat", u"Skill.dat", 255, &SkillModel::fieldTable,
};

} // namespace varn
