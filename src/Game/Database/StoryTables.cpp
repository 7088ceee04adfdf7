#include "Game/Database/StoryTables.h"

#include "Game/Database/FieldBuilders.h"

namespace varn {

const FieldTable& MessageTableData::fieldTable()
{
    // The second name is not stored: a message has its second language in its text.
    static constexpr Field kFields[] = {
        kBaseId,
        kBaseMarker,
        kBaseName,
        field<&MessageTableData::message>(u"message", u"Message"),
    };
    static constexpr FieldTable kTable =
        rowTable<MessageTableData>(u"MessageTableData", u"message", kFields).withChildren();
    return kTable;
}

const TableInfo MessageTable::kInfo = {
    u"MessageTable", u"MessageTable", u"MessageTable.xml", u"", 0, &MessageTableData::fieldTable,
};

const FieldTable& ScriptData::fieldTable()
{
    static constexpr Field kFields[] = {
        kBaseId,
        kBaseMarker,
        kBaseName,
        kBaseName2,
        field<&ScriptData::script>(u"script", u"Script").inCData(),
    };
    static constexpr FieldTable kTable =
        rowTable<ScriptData>(u"ScriptData", u"data", kFields).withChildren();
    return kTable;
}

const TableInfo ScriptDatabase::kInfo = {
    u"ScriptDatabase", u"Scripts", u"Scripts.xml", u"", 0, &ScriptData::fieldTable,
};

const FieldTable& NovelScriptData::fieldTable()
{
    static constexpr Field kFields[] = {
        kBaseId,
        kBaseMarker,
        kBaseName,
        kBaseName2,
        field<&NovelScriptData::novel>(u"novel", u"Novel").inCData(),
    };
    static constexpr FieldTable kTable =
        rowTable<NovelScriptData>(u"NovelScriptData", u"data", kFields).withChildren();
    return kTable;
}

const TableInfo NovelScriptDatabase::kInfo = {
    u"NovelScriptDatabase",       u"NovelScripts", u"NovelScripts.xml", u"", 0,
    &NovelScriptData::fieldTable,
};

const FieldTable& FormulaData::fieldTable()
{
    static constexpr Field kFields[] = {
        kBaseId,
        kBaseMarker,
        kBaseName,
        kBaseName2,
        field<&FormulaData::formula>(u"formula", u"Formula").inCData(),
    };
    static constexpr FieldTable kTable =
        rowTable<FormulaData>(u"FormulaData", u"data", kFields).withChildren();
    return kTable;
}

const TableInfo FormulaDatabase::kInfo = {
    u"FormulaDatabase", u"Formulas", u"Formulas.xml", u"", 0, &FormulaData::fieldTable,
};

} // namespace varn
