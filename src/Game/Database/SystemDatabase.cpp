#include "Game/Database/SystemDatabase.h"

#include "Game/Database/FieldBuilders.h"
#include "Game/Database/Language.h"

namespace varn {

const FieldTable& SystemDatabaseData::fieldTable()
{
    using Row = SystemDatabaseData;
    static constexpr Field kFields[] = {
        field<&Row::title>(u"title", u"Title"),
        field<&Row::version>(u"version", u"Version"),
        field<&Row::itemLimit>(u"itemLimit", u"Maximum number of items PC can have"),
        field<&Row::autoSaveFlags>(u"autoSaveFlags", u"Auto Save"),
        field<&Row::supportSecondLanguage>(u"supportSecondLanguage", u"Support Second Language")
            .by(Control::YesNo),
        field<&Row::defaultVisibleDistance>(u"defaultVisibleDistance", u"Default visible distance"),
    };
    static constexpr FieldTable kTable = rowTable<Row>(u"SystemDatabaseData", u"data", kFields);
    return kTable;
}

const TableInfo SystemDatabase::kInfo = {
    u"SystemDatabase", u"System", u"System.xml", u"", 1, &SystemDatabaseData::fieldTable,
};

SystemDatabase& SystemDatabase::instance()
{
    static SystemDatabase database;
    return database;
}

void SystemDatabase::loaded()
{
    const SystemDatabaseData* const data = getData();
    language().supported = data && data->getSupportSecondLanguage() != 0;
}

} // namespace varn
