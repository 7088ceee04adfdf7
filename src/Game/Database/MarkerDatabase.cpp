#include "Game/Database/MarkerDatabase.h"

#include "Game/Database/FieldBuilders.h"

namespace varn {

const FieldTable& MarkerModel::fieldTable()
{
    static constexpr Field kFields[] = {
        kBaseId,
        kBaseMarker,
        kBaseName,
        kBaseName2,
        field<&MarkerModel::backgroundColor>(u"backgroundColor", u"Background Color")
            .by(Control::Colour)
            .noting(u"0x00BBGGRR, written in decimal"),
    };
    static constexpr FieldTable kTable = rowTable<MarkerModel>(u"MarkerModel", u"data", kFields);
    return kTable;
}

const TableInfo MarkerDatabase::kInfo = {
    u"MarkerDatabase", u"Markers", u"Markers.xml", u"", 0, &MarkerModel::fieldTable,
};

} // namespace varn
