#include "Game/Database/ItemTable.h"

#include "Game/Database/FieldBuilders.h"

namespace varn {

const FieldTable& ItemTableData::fieldTable()
{
    using Row = ItemTableData;
    using Record = ItemTableData_;
    static constexpr Field kFields[] = {
        kBaseId,
        kBaseMarker,
        field<&Row::record, &Record::name>(u"name", u"Name"),
        kBaseName2,
        field<&Row::itemIDs>(u"itemIDs", u"Items").to(u"Items"),
        field<&Row::itemRates>(u"itemRates", u"Chance")
            .by(Control::Percent)
            .withLast()
            .noting(u"percent, of the item at the same index"),
    };
    static constexpr FieldTable kTable = recordTable<&Row::record>(u"ItemTableData", kFields);
    return kTable;
}

const TableInfo ItemTableList::kInfo = {
    u"ItemTableList",           u"ItemTables", u"ItemTable.dat", u"ItemTable.dat", 64,
    &ItemTableData::fieldTable,
};

} // namespace varn
