#include "Game/Database/WizFloor.h"

#include "Game/Database/FieldBuilders.h"

namespace varn {

namespace {

constexpr WStringView kPositions[] = {u"Default", u"Floor", u"Wall", u"Ceiling"};

} // namespace

const FieldTable& WizFloorData::fieldTable()
{
    using Row = WizFloorData;
    static constexpr Field kFields[] = {
        field<&Row::name>(u"name", u"Name"),
        field<&Row::texture>(u"texture", u"Texture"),
        field<&Row::sprite>(u"sprite", u"Sprite"),
        field<&Row::dark>(u"dark", u"Is Dark").by(Control::YesNo),
        field<&Row::warp>(u"warp", u"Is WarpFloor").by(Control::YesNo),
        field<&Row::visibility2D>(u"visibility2D", u"Visible on the Map").by(Control::YesNo),
        field<&Row::visibility3D>(u"visibility3D", u"Visible in the View").by(Control::YesNo),
        field<&Row::showingDetails>(u"showingDetails", u"Show Details").by(Control::YesNo),
        field<&Row::syncWithLayer1>(u"syncWithLayer1", u"Follow the Wall Layer").by(Control::YesNo),
        field<&Row::displayPosition>(u"displayPosition", u"Display Position").among(kPositions),
        field<&Row::useEditDialog>(u"useEditDialog", u"Use the Edit Dialog").by(Control::YesNo),
        field<&Row::treasurebox>(u"treasurebox", u"Is TreasureBox").by(Control::YesNo),
        field<&Row::header>(u"header", u"Header").inChild(0),
        field<&Row::footer>(u"footer", u"Footer").inChild(1),
    };
    static constexpr FieldTable kTable =
        rowTable<Row>(u"WizFloorData", u"data", kFields).withChildren();
    return kTable;
}

const TableInfo WizFloorList::kInfo = {
    u"WizFloorList", u"EventFloor", u"EventFloor.xml", u"", 0, &WizFloorData::fieldTable,
};

} // namespace varn
