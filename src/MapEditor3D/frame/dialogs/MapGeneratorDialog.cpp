#include "MapEditor3D/frame/dialogs/MapGeneratorDialog.h"

#include "Component/Translation.h"

#include <limits>

namespace varn {

using generator::DeadEnds;
using generator::DungeonGenerator;
using generator::GeneratorOptions;
using generator::Layout;

namespace {

constexpr int kMostTries = 1000, kMostExtra = 20;

} // namespace

MapGeneratorDialog::MapGeneratorDialog(WizMapEditor& editor)
    : Dialog(u"Map Generator"), editor(editor), passageway(0, 100), roomTries(0, kMostTries),
      roomExtraSize(0, kMostExtra), seed(0, std::numeric_limits<int>::max()), execute(u"&Execute")
{}

void MapGeneratorDialog::build()
{
    setInitialSize(760, 560);
    BoxLayout panes(getPane(), BoxLayout::Axis::Row, BoxLayout::Margin::None);
    panes.add(fields).add(preview, 1);

    const GeneratorOptions defaults;
    FormLayout form(fields);
    form.addRow(u"&Layout:", layout);
    form.addRow(u"&Deadends:", deadEnds);
    form.addRow(u"&Passageway:", passageway);
    form.addRow(u"Room &tries:", roomTries);
    form.addRow(u"Room &growth:", roomExtraSize);
    form.addRow(u"&Seed:", seed);
    form.addRow(execute);
    form.addWide(summary);

    layout.setItems({translate(u"Random"), translate(u"Symmetric")});
    layout.setSelectedIndex(static_cast<int>(defaults.layout));
    deadEnds.setItems({translate(u"None"), translate(u"Door"), translate(u"As is")});
    deadEnds.setSelectedIndex(static_cast<int>(defaults.deadEnds));
    passageway.setValue(defaults.passageway);
    passageway.setUnit(u" %");
    passageway.setStep(5);
    passageway.setHint(u"0 to 100: the higher, the straighter the passages");
    roomTries.setValue(defaults.roomTries);
    roomTries.setStep(10);
    roomTries.setHint(u"How many rooms are drawn, 0 to 1000; those that would overlap are dropped");
    roomExtraSize.setValue(defaults.roomExtraSize);
    roomExtraSize.setHint(u"Cells that a room may be larger each way, 0 to 20");
    seed.setHint(u"The same number and options give the same floor");
    execute.setHint(u"Makes another floor, from a new seed");
    summary.setWrapped(true);
    summary.setDimmed(true);

    preview.show(editor.getMap());
    for (Component* const field : std::initializer_list<Component*>{
             &layout, &deadEnds, &passageway, &roomTries, &roomExtraSize, &seed})
        field->onAction([this] { generate(); });
    execute.onAction([this] { anotherSeed(); });
    summary.setMinimumSize(200, 64);
    anotherSeed();
}

GeneratorOptions MapGeneratorDialog::getOptions() const
{
    GeneratorOptions options;
    options.layout = static_cast<Layout>(layout.getSelectedIndex());
    options.deadEnds = static_cast<DeadEnds>(deadEnds.getSelectedIndex());
    options.passageway = passageway.getValue();
    options.roomTries = roomTries.getValue();
    options.roomExtraSize = roomExtraSize.getValue();
    return options;
}

void MapGeneratorDialog::anotherSeed()
{
    const int next = static_cast<int>(programRandom().word() >> 1);
    if (next == seed.getValue())
        generate();
    seed.setValue(next); // which generates
}

void MapGeneratorDialog::generate()
{
    Random random;
    random.seed(static_cast<std::uint32_t>(seed.getValue()));
    DungeonGenerator dungeon(getOptions(), random);
    dungeon.generate(preview.getMap());
    preview.cellsEdited();
    const WizMap& map = preview.getMap();
    summary.setText(translateWith(u"%1 by %2 cells, %3 rooms. Events and areas stay.",
                                  {toDecimal(map.cols), toDecimal(map.rows),
                                   toDecimal(static_cast<int>(dungeon.getRooms().size()))}));
}

bool MapGeneratorDialog::accept()
{
    preview.takeOver(editor);
    return true;
}

} // namespace varn
