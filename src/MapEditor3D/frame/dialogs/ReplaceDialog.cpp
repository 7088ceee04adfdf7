#include "MapEditor3D/frame/dialogs/ReplaceDialog.h"

#include "Component/Translation.h"
#include "MapEditor3D/canvas/PointerInfo.h"

#include <algorithm>

namespace varn {

namespace {

constexpr int kTiles = 256;

/// The tiles that a floor has, or could be given: those of the strip at least.
constexpr int kShownTiles = 64;

} // namespace

ReplaceDialog::ReplaceDialog(WizMapEditor& editor)
    : Dialog(u"Replace"), editor(editor), everywhere(u"On the &whole floor"),
      inArea(u"&In the area:")
{}

void ReplaceDialog::build()
{
    setInitialSize(440, 280);
    setButtons(u"Replace", u"Cancel");
    FormLayout form(getPane(), BoxLayout::Margin::None);
    form.addRow(u"&Layer:", layer);
    form.addRow(u"&Replace:", from);
    form.addRow(u"&With:", to);
    form.addRow(everywhere);
    form.addRow(areaRow);
    form.addWide(found);
    layer.setItems({translate(u"Walls"), translate(u"Floor tiles")});
    const bool floor = editor.getMode() == EditorMode::Tile && editor.isFloorLayer();
    layer.setSelectedIndex(floor ? 1 : 0);

    BoxLayout line(areaRow, BoxLayout::Axis::Row, BoxLayout::Margin::None);
    line.add(inArea).add(area, 1);
    std::vector<WString> names;
    for (const AreaModel& model : editor.getMap().areas.list()) {
        numbers.push_back(model.number);
        names.push_back(toDecimal(model.number) + u": " + widen(model.name));
    }
    area.setItems(names);
    area.setAccessibleName(u"Area");
    inArea.setEnabled(!names.empty());
    area.setEnabled(false);
    everywhere.setChecked(true);

    everywhere.onAction([this] { chooseRange(false); });
    inArea.onAction([this] { chooseRange(true); });
    layer.onAction([this] { fillValues(); });
    for (ComboBoxLight* const list : {&from, &to, &area})
        list->onAction([this] { count(); });
    fillValues();
}

// Two radio buttons that do not share a pane.
void ReplaceDialog::chooseRange(bool onlyArea)
{
    everywhere.setChecked(!onlyArea);
    inArea.setChecked(onlyArea);
    area.setEnabled(onlyArea);
    count();
}

void ReplaceDialog::fillValues()
{
    const bool walls = layer.getSelectedIndex() == 0;
    std::vector<WString> names;
    values.clear();
    for (int value = 0; value < kTiles; ++value) {
        const bool used = countTiles(editor.getMap(), {walls ? TileReplacement::Layer::Walls
                                                             : TileReplacement::Layer::Floor,
                                                       value, -1, std::nullopt}) > 0;
        if (!used && value >= (walls ? kWallKinds : kShownTiles))
            continue;
        values.push_back(value);
        const WStringView pattern = value == 0 ? u"No floor tile" : u"Floor tile %1";
        names.push_back(walls ? toDecimal(value) + u": " + wallKindName(value)
                              : translateWith(pattern, {toDecimal(value)}));
    }
    from.setItems(names);
    to.setItems(names);
    const auto selected = std::ranges::find(values, editor.getSelectedTile());
    from.setSelectedIndex(selected == values.end() ? 0
                                                   : static_cast<int>(selected - values.begin()));
    to.setSelectedIndex(from.getSelectedIndex() == 0 ? 1 : 0);
    count();
}

TileReplacement ReplaceDialog::getReplacement() const
{
    const auto valueOf = [&](const ComboBoxLight& list) {
        return values.at(static_cast<std::size_t>(std::max(0, list.getSelectedIndex())));
    };
    TileReplacement replacement;
    replacement.layer = layer.getSelectedIndex() == 0 ? TileReplacement::Layer::Walls
                                                      : TileReplacement::Layer::Floor;
    replacement.from = valueOf(from);
    replacement.to = valueOf(to);
    if (inArea.isChecked() && area.getSelectedIndex() >= 0)
        replacement.area = numbers.at(static_cast<std::size_t>(area.getSelectedIndex()));
    return replacement;
}

void ReplaceDialog::count()
{
    if (values.empty() || from.getSelectedIndex() < 0 || to.getSelectedIndex() < 0)
        return;
    const TileReplacement replacement = getReplacement();
    const int number = countTiles(editor.getMap(), replacement);
    found.setText(replacement.from == replacement.to
                      ? translate(u"Both are the same.")
                      : translateWith(layer.getSelectedIndex() == 0 ? u"%1 edges will be replaced."
                                                                    : u"%1 cells will be replaced.",
                                      {toDecimal(number)}));
    setOkEnabled(number > 0);
}

void ReplaceDialog::opened()
{
    count();
}

bool ReplaceDialog::accept()
{
    replaceTiles(editor, getReplacement());
    return true;
}

} // namespace varn
