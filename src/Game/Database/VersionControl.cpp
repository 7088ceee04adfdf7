#include "Game/Database/VersionControl.h"

#include "Game/Database/FieldBuilders.h"

namespace varn {

const FieldTable& VersionControlModel::fieldTable()
{
    using Row = VersionControlModel;
    static constexpr Field kFields[] = {
        kBaseId,
        kBaseMarker,
        kBaseName,
        kBaseName2,
        field<&Row::targetVersionName>(u"targetVersionName", u"Target Version"),
        field<&Row::itemIdCorrespondenceTable>(u"itemIdCorrespondenceTable", u"Item Correspondence")
            .noting(u"`OLD:NEW` pairs of rows of `Items`, joined by `,`"),
    };
    static constexpr FieldTable kTable = rowTable<Row>(u"VersionControlModel", u"data", kFields);
    return kTable;
}

std::map<std::int32_t, std::int32_t> VersionControlModel::getCorrespondences() const
{
    std::map<std::int32_t, std::int32_t> rows;
    for (const WStringView piece : split(itemIdCorrespondenceTable, u',')) {
        const std::vector<WStringView> pair = split(piece, u':');
        if (pair.size() == 2)
            rows[parseDecimal(pair[0])] = parseDecimal(pair[1]);
    }
    return rows;
}

void VersionControlModel::setCorrespondences(const std::map<std::int32_t, std::int32_t>& rows)
{
    itemIdCorrespondenceTable.clear();
    for (const auto& [before, after] : rows) {
        if (!itemIdCorrespondenceTable.empty())
            itemIdCorrespondenceTable += u',';
        itemIdCorrespondenceTable += toDecimal(before) + u':' + toDecimal(after);
    }
}

const TableInfo VersionControlDatabase::kInfo = {
    u"VersionControlDatabase",        u"VersionControls", u"VersionControls.xml", u"", 0,
    &VersionControlModel::fieldTable,
};

} // namespace varn
