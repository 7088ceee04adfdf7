#include "Game/Database/FlagDatabase.h"

#include "Game/Database/FieldBuilders.h"

namespace varn {

namespace {

constexpr WStringView kValues[] = {u"false", u"true"};

} // namespace

const FieldTable& FlagModel::fieldTable()
{
    static constexpr Field kFields[] = {
        field<&FlagModel::name>(u"name", u"Name"),
        field<&FlagModel::id>(u"id", u"ID"),
        field<&FlagModel::value>(u"value", u"Initial Value").among(kValues),
    };
    static constexpr FieldTable kTable = rowTable<FlagModel>(u"FlagModel", u"Flag", kFields);
    return kTable;
}

const TableInfo FlagDatabase::kInfo = {
    u"FlagDatabase", u"FlagList", u"FlagList.xml", u"", 0, &FlagModel::fieldTable,
};

} // namespace varn
