#include "Game/Database/EnemyTable.h"

#include "Game/Database/FieldBuilders.h"

namespace varn {

const FieldTable& EnemyTableModel::fieldTable()
{
    using Row = EnemyTableModel;
    using Record = EnemyEmergeTableData_;
    static constexpr Field kFields[] = {
        field<&Row::record, &Record::name>(u"name", u"Name"),
        field<&Row::record, &Record::id>(u"id", u"ID"),
        field<&Row::enemyIDs>(u"enemyIDs", u"Enemies").to(u"Enemies"),
        field<&Row::enemyPriorities>(u"enemyPriorities", u"Weight")
            .withLast()
            .noting(u"of the enemy at the same index"),
    };
    static constexpr FieldTable kTable = recordTable<&Row::record>(u"EnemyTableModel", kFields);
    return kTable;
}

const TableInfo EnemyTableDatabase::kInfo = {
    u"EnemyTableDatabase",        u"EnemyTables", u"EnemyTable.dat", u"EnemyTable.dat", 64,
    &EnemyTableModel::fieldTable,
};

} // namespace varn
