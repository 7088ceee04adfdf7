#include "Game/Database/TreasureBox.h"

#include "Game/Database/FieldBuilders.h"

namespace varn {

const FieldTable& TreasureBoxTrapData::fieldTable()
{
    using Row = TreasureBoxTrapData;
    static constexpr Field kFields[] = {
        field<&Row::name>(u"name", u"Name"),
        field<&Row::name2>(u"name2", u"Name (Second Language)"),
        field<&Row::skillID>(u"skillID", u"Skill").to(u"Skills"),
        field<&Row::scriptID>(u"scriptID", u"Script").to(u"Scripts"),
        field<&Row::target>(u"target", u"Target"),
        field<&Row::contentsObtainable>(u"contentsObtainable", u"Contents Obtainable")
            .by(Control::YesNo),
    };
    static constexpr FieldTable kTable =
        rowTable<Row>(u"TreasureBoxTrapData", u"Trap", kFields).swappingNames();
    return kTable;
}

const TableInfo TreasureBoxTrapList::kInfo = {
    u"TreasureBoxTrapList", u"TrapList", u"TrapList.xml", u"", 16, &TreasureBoxTrapData::fieldTable,
};

const FieldTable& TreasureBoxData::fieldTable()
{
    using Row = TreasureBoxData;
    static constexpr WStringView kPairs = u"pairs: the first and the last row of a range";
    static constexpr Field kFields[] = {
        kBaseId,
        kBaseMarker,
        kBaseName,
        kBaseName2,
        field<&Row::gold>(u"gold", u"Gold"),
        field<&Row::goldVariance>(u"goldVariance", u"Gold Variance"),
        field<&Row::traps>(u"traps", u"Traps").to(u"TrapList"),
        field<&Row::rangeTable0>(u"rangeTable0", u"Range Table 1").to(u"Items").noting(kPairs),
        field<&Row::rangeTable1>(u"rangeTable1", u"Range Table 2").to(u"Items").noting(kPairs),
        field<&Row::rangeTable2>(u"rangeTable2", u"Range Table 3").to(u"Items").noting(kPairs),
    };
    static constexpr FieldTable kTable = rowTable<Row>(u"TreasureBoxData", u"data", kFields);
    return kTable;
}

const TableInfo TreasureBoxList::kInfo = {
    u"TreasureBoxList",           u"TreasureBoxList", u"TreasureBoxList.xml", u"", 0,
    &TreasureBoxData::fieldTable,
};

} // namespace varn
