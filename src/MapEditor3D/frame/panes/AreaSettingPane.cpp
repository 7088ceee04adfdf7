#include "MapEditor3D/frame/panes/AreaSettingPane.h"

#include "Component/Translation.h"
#include "Game/Database/EnemyTable.h"
#include "MapEditor3D/frame/panes/LineEnds.h"
#include "MapEditor3D/frame/panes/LoadedTable.h"

#include <algorithm>

namespace varn {

namespace {

enum Column
{
    kNumber,
    kName,
    kEncounters,
    kCells,
    kColumns
};

} // namespace

class AreaSettingPane::Model final : public TableModel
{
  public:
    explicit Model(const WizMapEditor& editor) : editor(editor) {}

    int getRowCount() const override { return static_cast<int>(areas().size()); }
    int getColumnCount() const override { return kColumns; }
    bool isNumber(int column) const override { return column == kNumber || column == kCells; }
    WString getValueAt(int row, int column) const override
    {
        const AreaModel& area = areas().at(static_cast<std::size_t>(row));
        switch (column) {
        case kNumber:
            return toDecimal(area.number);
        case kName:
            return widen(area.name);
        case kEncounters:
            return area.enemyTableId < 0
                       ? WString()
                       : rowText(EnemyTableDatabase::instance(), area.enemyTableId);
        default:
            return toDecimal(static_cast<std::int64_t>(area.getCoordinates().size()));
        }
    }

  private:
    const AreaManager& areas() const { return editor.getMap().areas; }

    const WizMapEditor& editor;
};

AreaSettingPane::AreaSettingPane(WizMapEditor& editor)
    : editor(editor), model(std::make_unique<Model>(editor)), nextButton(u"Next free number"),
      removeButton(u"Delete"), enemyTable(u"(none)"), room(u"Is a r&oom"),
      teleportBlock(u"&Blocks teleporting in")
{
    editor.addListener(*this);
}

AreaSettingPane::~AreaSettingPane()
{
    editor.removeListener(*this);
    table.setModel(nullptr);
}

void AreaSettingPane::onCreate()
{
    BoxLayout column(*this, BoxLayout::Axis::Column, BoxLayout::Margin::None);
    column.add(table, 1).add(buttons).add(fields);
    buildList();
    buildFields();
    mapLoaded();
}

void AreaSettingPane::buildList()
{
    constexpr int kNumberWidth = 40, kEncountersWidth = 136, kCellsWidth = 48;
    table.setAccessibleName(u"Areas of this floor");
    table.setColumns({{u"No.", kNumberWidth},
                      {u"Name", 0},
                      {u"Encounters", kEncountersWidth},
                      {u"Cells", kCellsWidth}});
    table.setSortable(true);
    table.setEmptyText(u"No areas on this floor yet. Take the next free number and draw over the "
                       u"cells that belong to it.");
    table.setModel(model.get());
    table.onAction([this] { chosen(); });
    table.on(kEventListener, [this](const EventObject& event) {
        if (event.id == kReturnCode && selected())
            paintWith(selected()->number);
    });

    BoxLayout row(buttons, BoxLayout::Axis::Row);
    row.add(nextButton).add(removeButton).addStretch();
    nextButton.setHint(u"Paint a new area");
    nextButton.onAction([this] { paintWith(nextFreeNumber()); });
    removeButton.setHint(u"Delete the selected area; its cells stay as they are");
    removeButton.onAction([this] { removeArea(); });
}

void AreaSettingPane::buildFields()
{
    form = std::make_unique<FormLayout>(fields);
    form->addRow(u"&Number:", number);
    form->addRow(u"N&ame:", name);
    form->addRow(u"&Text:", text);
    form->addRow(u"&Encounters:", enemyTable).setBuddy(enemyTable.getList());
    form->addRow(room);
    form->addRow(teleportBlock);
    constexpr int kTextHeight = 64;
    text.setFixedSize(0, kTextHeight);
    enemyTable.setTable(loadedTable<EnemyTableDatabase>());

    number.onAction([this] { changeNumber(); });
    name.onChange([this] { takeFields(); });
    text.onChange([this] { takeFields(); });
    enemyTable.onAction([this] { takeFields(); });
    room.onAction([this] { takeFields(); });
    teleportBlock.onAction([this] { takeFields(); });
}

void AreaSettingPane::applyTexts()
{
    GroupComponent::applyTexts();
    model->fireTableChanged({TableModelEvent::Changed, -1, -1});
}

void AreaSettingPane::reload()
{
    if (enemyTable.getHandle())
        enemyTable.setTable(loadedTable<EnemyTableDatabase>());
    model->fireTableChanged({TableModelEvent::Changed, -1, -1});
}

// The editor's changes

void AreaSettingPane::mapLoaded()
{
    if (!table.getHandle())
        return;
    model->fireTableChanged({TableModelEvent::Changed, -1, -1});
    if (table.getSelectedRow() < 0 && !editor.getMap().areas.empty())
        table.selectRow(0);
    toolChanged();
    showArea();
}

void AreaSettingPane::areasChanged(const CellRect&)
{
    if (!table.getHandle())
        return;
    const std::int32_t before = shownNumber;
    model->fireTableChanged({TableModelEvent::Changed, -1, -1});
    if (editing)
        return;
    // Rows move as areas appear and go; the selection stays with its number. What is being painted
    // is what one wants to name.
    selectArea(editor.getMode() == EditorMode::Area ? editor.getSelectedTile() : before);
    showArea();
}

void AreaSettingPane::tileSelected(int tile)
{
    if (editor.getMode() == EditorMode::Area)
        selectArea(tile);
}

void AreaSettingPane::toolChanged()
{
    if (editor.getMode() == EditorMode::Area)
        selectArea(editor.getSelectedTile());
}

void AreaSettingPane::selectArea(std::int32_t wanted)
{
    const auto& areas = editor.getMap().areas.list();
    const auto found = std::ranges::find(areas, wanted, &AreaModel::number);
    if (found == areas.end() || !table.getHandle())
        return;
    const int row = static_cast<int>(found - areas.begin());
    if (table.getSelectedRow() != row) {
        table.selectRow(row);
        table.ensureRowVisible(row);
    }
    if (shownNumber != wanted)
        showArea();
}

// What a person does

AreaModel* AreaSettingPane::selected()
{
    AreaManager& areas = editor.getMap().areas;
    const int row = table.getSelectedRow();
    return row >= 0 && static_cast<std::size_t>(row) < areas.size()
               ? &areas.at(static_cast<std::size_t>(row))
               : nullptr;
}

void AreaSettingPane::chosen()
{
    showArea();
    const AreaModel* const area = selected();
    if (!area)
        return;
    if (editor.getMode() == EditorMode::Area)
        editor.setSelectedTile(area->number);
    if (listener && !area->getCoordinates().empty())
        listener->areaShown({area->getCoordinates().front().x, area->getCoordinates().front().y});
}

void AreaSettingPane::paintWith(std::int32_t wanted)
{
    if (listener)
        listener->areaChosen(wanted);
    if (editor.getMode() == EditorMode::Area)
        editor.setSelectedTile(wanted);
}

std::int32_t AreaSettingPane::nextFreeNumber() const
{
    std::int32_t free = 1;
    for (const AreaModel& area : editor.getMap().areas.list()) // in ascending numbers
        free += area.number == free ? 1 : 0;
    return free;
}

void AreaSettingPane::showArea()
{
    const AreaModel* const area = selected();
    shownNumber = area ? area->number : 0;
    following = true;
    form->setProblem(number, {});
    fields.setEnabled(area != nullptr);
    removeButton.setEnabled(area != nullptr);
    const AreaModel none;
    const AreaModel& shown = area ? *area : none;
    number.setValue(shown.number);
    name.setText(widen(shown.name));
    text.setText(shown.text);
    enemyTable.setRow(shown.enemyTableId);
    room.setChecked(shown.type != 0);
    teleportBlock.setChecked(shown.teleportIntrusionBlock);
    following = false;
}

void AreaSettingPane::takeFields()
{
    AreaModel* const area = selected();
    if (following || !area)
        return;
    if (name.getText() != widen(area->name)) // bytes that are no text of the code page are kept
        area->name = narrow(name.getText());
    area->text = withLineEndsOf(area->text, text.getText());
    area->enemyTableId = enemyTable.getRow();
    if (room.isChecked() != (area->type != 0)) // other kinds of files are kept
        area->type = room.isChecked() ? 1 : 0;
    area->teleportIntrusionBlock = teleportBlock.isChecked();
    tellEdited();
}

void AreaSettingPane::changeNumber()
{
    AreaManager& areas = editor.getMap().areas;
    const AreaModel* const area = selected();
    const std::int32_t wanted = number.getValue();
    if (following || !area)
        return;
    const bool taken = wanted != area->number && areas.findByNumber(wanted);
    form->setProblem(number, taken ? translate(u"Another area has this number.") : WString());
    if (taken || wanted == area->number)
        return;
    AreaModel moved = *area;
    const std::int32_t before = std::exchange(moved.number, wanted);
    areas.remove(static_cast<std::size_t>(table.getSelectedRow()));
    areas.add(std::move(moved));
    shownNumber = wanted;
    tellEdited();
    selectArea(wanted);
    if (editor.getMode() == EditorMode::Area && editor.getSelectedTile() == before)
        editor.setSelectedTile(wanted);
}

void AreaSettingPane::removeArea()
{
    if (!selected())
        return;
    const int row = table.getSelectedRow();
    editor.getMap().areas.remove(static_cast<std::size_t>(row));
    tellEdited();
    table.selectRow(std::min(row, model->getRowCount() - 1));
    showArea();
}

void AreaSettingPane::tellEdited()
{
    editing = true;
    editor.areasEdited();
    editing = false;
}

} // namespace varn
