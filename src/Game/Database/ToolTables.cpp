#include "Game/Database/ToolTables.h"

#include "Game/Database/FieldBuilders.h"

namespace varn {

const FieldTable& TileSettingData::fieldTable()
{
    static constexpr Field kFields[] = {
        kBaseId,
        kBaseMarker,
        kBaseName,
        kBaseName2,
        field<&TileSettingData::texture>(u"texture", u"Texture"),
        field<&TileSettingData::autoTile>(u"autoTile", u"Auto Tile").by(Control::YesNo),
    };
    static constexpr FieldTable kTable =
        rowTable<TileSettingData>(u"TileSettingData", u"data", kFields);
    return kTable;
}

const TableInfo TileSettingList::kInfo = {
    u"TileSettingList", u"TileSettings", u"TileSettings.xml", u"", 0, &TileSettingData::fieldTable,
};

const FieldTable& TypingWordList::fieldTable()
{
    static constexpr Field kFields[] = {
        kBaseId,
        kBaseMarker,
        kBaseName,
        kBaseName2,
        field<&TypingWordList::words>(u"words", u"Words").inCData(),
    };
    static constexpr FieldTable kTable =
        rowTable<TypingWordList>(u"TypingWordList", u"data", kFields).withChildren();
    return kTable;
}

const TableInfo TypingWordFileList::kInfo = {
    u"TypingWordFileList", u"", u"TypingWordFileList.xml", u"", 0, &TypingWordList::fieldTable,
};

} // namespace varn
