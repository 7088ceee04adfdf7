#include "Game/Database/EnemyAction.h"

#include "Game/Database/FieldBuilders.h"

namespace varn {

const FieldTable& EnemyActionData::fieldTable()
{
    using Row = EnemyActionData;
    using Record = EnemyActionData_;
    static constexpr Field kFields[] = {
        field<&Row::record, &Record::name>(u"name", u"Name"),
        field<&Row::record, &Record::type>(u"type", u"Type"),
        field<&Row::record, &Record::id>(u"id", u"ID"),
        field<&Row::name2>(u"name2", u"Name (Second Language)"),
        field<&Row::commandSkillIDs>(u"commandSkillIDs", u"Command Skills").to(u"Skills"),
    };
    static constexpr FieldTable kTable = recordTable<&Row::record>(u"EnemyActionData", kFields);
    return kTable;
}

const TableInfo EnemyActionList::kInfo = {
    u"EnemyActionList", u"Actions", u"Action.dat", u"Action.dat", 255, &EnemyActionData::fieldTable,
};

} // namespace varn
