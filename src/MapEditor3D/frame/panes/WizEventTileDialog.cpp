#include "MapEditor3D/frame/panes/WizEventTileDialog.h"

#include "Component/Translation.h"
#include "MapEditor3D/frame/panes/LineEnds.h"
#include "MapEditor3D/frame/panes/MapPictureChoice.h"
#include "Util/Host.h"

#include <algorithm>

namespace varn {

namespace {

constexpr WStringView kPositions[] = {u"Default", u"Floor", u"Wall", u"Ceiling"};

/// What the script of an event of the kind is; each is one of the row's marks.
enum ScriptType
{
    kDefaultScript, ///< the kind's own, put in without the event dialog
    kNormalScript,
    kWarpFloor,
    kTreasureBox
};
constexpr WStringView kScriptTypes[] = {u"Use Default Script", u"Use Normal Script",
                                        u"Is WarpFloor", u"Is TreasureBox"};

ScriptType scriptTypeOf(const WizFloorData& row)
{
    return row.getTreasurebox()     ? kTreasureBox
           : row.getWarp()          ? kWarpFloor
           : row.getUseEditDialog() ? kNormalScript
                                    : kDefaultScript;
}

void setScriptType(WizFloorData& row, ScriptType type)
{
    if (type == scriptTypeOf(row)) // a row with two marks keeps both
        return;
    row.setTreasurebox(type == kTreasureBox);
    row.setWarp(type == kWarpFloor);
    row.setUseEditDialog(type != kDefaultScript);
}

std::vector<WString> translated(std::span<const WStringView> texts)
{
    std::vector<WString> words;
    for (const WStringView text : texts)
        words.push_back(translate(text));
    return words;
}

} // namespace

class WizEventTileDialog::Model final : public TableModel
{
  public:
    explicit Model(const std::vector<WizFloorData>& rows) : rows(rows) {}

    int getRowCount() const override { return static_cast<int>(rows.size()); }
    int getColumnCount() const override { return 2; }
    bool isNumber(int column) const override { return column == 0; }
    WString getValueAt(int row, int column) const override
    {
        return column == 0 ? toDecimal(row) : rows.at(static_cast<std::size_t>(row)).getName();
    }

  private:
    const std::vector<WizFloorData>& rows;
};

WizEventTileDialog::WizEventTileDialog(int kind)
    : Dialog(u"Tile Settings"), current(kind), model(std::make_unique<Model>(rows)),
      texture({}, picturesIn(u"Graphics/Tile")), visibility2D(u"Visible on the &Map"),
      visibility3D(u"Visible in the &View"), dark(u"Is Dar&k"), showingDetails(u"Show D&etails"),
      syncWithLayer1(u"Follow the &Wall Layer")
{
    setInitialSize(760, 600);
}

WizEventTileDialog::~WizEventTileDialog()
{
    table.setModel(nullptr);
}

void WizEventTileDialog::build()
{
    WizFloorList& kinds = WizFloorList::instance();
    kinds.load(WizFloorList::kInfo.fileName, WizFloorList::kInfo.minRows);
    rows.clear();
    for (std::size_t row = 0; row < kinds.size(); ++row)
        rows.push_back(kinds.at(row));

    BoxLayout(getPane(), BoxLayout::Axis::Row, BoxLayout::Margin::None).add(list).add(fields, 1);
    buildList();
    buildFields();
    select(std::clamp(current, -1, static_cast<int>(rows.size()) - 1));
}

void WizEventTileDialog::buildList()
{
    constexpr int kListWidth = 224, kNumberWidth = 40;
    list.setMinimumSize(kListWidth, 0);
    BoxLayout(list, BoxLayout::Axis::Column, BoxLayout::Margin::None).add(table, 1).add(toolbar);
    table.setAccessibleName(u"Kinds of events");
    table.setColumns({{u"No.", kNumberWidth}, {u"Name", 0}});
    table.setEmptyText(u"No kinds of events yet. The button with the plus adds the first.");
    table.setModel(model.get());
    table.onAction([this] {
        takeRow();
        current = table.getSelectedRow();
        showRow();
    });
    toolbar.setListener(this);
}

void WizEventTileDialog::buildFields()
{
    form = std::make_unique<FormLayout>(fields, BoxLayout::Margin::None);
    form->addRow(u"&Name:", name);
    form->addRow(u"Display &Position:", displayPosition);
    form->addRow(u"&Script Type:", scriptType);
    form->addRow(u"&Texture:", texture).setBuddy(texture.getList());
    form->addRow(u"Sp&rite:", sprite);
    for (CheckBox* const box :
         {&visibility2D, &visibility3D, &dark, &showingDetails, &syncWithLayer1})
        form->addRow(*box);
    form->addRow(u"&Header:", header);
    form->addRow(u"&Footer:", footer);
    header.setHint(u"What the script of a new event begins with");
    footer.setHint(u"What the script of a new event ends with");
    constexpr int kLeastTextHeight = 64;
    for (TextArea* const text : {&header, &footer}) {
        text->setFixedPitch();
        text->setMinimumSize(0, kLeastTextHeight);
    }
    scriptType.setItems(translated(kScriptTypes));
    name.onChange([this] {
        takeRow();
        model->fireTableChanged({TableModelEvent::Changed, current, -1});
    });
}

// Rows

void WizEventTileDialog::showRow()
{
    const bool shown = current >= 0 && current < static_cast<int>(rows.size());
    fields.setEnabled(shown);
    toolbar.getMinus().setEnabled(shown && rows.size() > WizFloorList::kInfo.minRows);
    toolbar.getUp().setEnabled(shown && current > 0);
    toolbar.getDown().setEnabled(shown && current + 1 < static_cast<int>(rows.size()));
    const WizFloorData none;
    const WizFloorData& row = shown ? rows[static_cast<std::size_t>(current)] : none;

    name.setText(row.getName());
    std::vector<WString> positions = translated(kPositions);
    const std::int32_t position = row.getDisplayPosition();
    positionShown = position;
    if (position < 0 || position >= static_cast<std::int32_t>(positions.size())) {
        positions.push_back(translate(u"Exception: undefined DisplayPosition") + u" (" +
                            toDecimal(position) + u")");
        positionShown = static_cast<int>(positions.size()) - 1;
    }
    displayPosition.setItems(positions);
    displayPosition.setSelectedIndex(positionShown);
    scriptType.setSelectedIndex(scriptTypeOf(row));
    texture.setName(row.getTexture());
    sprite.setText(row.getSprite());
    visibility2D.setChecked(row.getVisibility2D());
    visibility3D.setChecked(row.getVisibility3D());
    dark.setChecked(row.getDark());
    showingDetails.setChecked(row.getShowingDetails());
    syncWithLayer1.setChecked(row.getSyncWithLayer1());
    header.setText(widen(row.getHeader()));
    footer.setText(widen(row.getFooter()));
}

void WizEventTileDialog::takeRow()
{
    if (current < 0 || current >= static_cast<int>(rows.size()))
        return;
    WizFloorData& row = rows[static_cast<std::size_t>(current)];
    if (name.getText() != row.getName())
        row.setName(name.getText());
    if (displayPosition.getSelectedIndex() != positionShown)
        row.setDisplayPosition(displayPosition.getSelectedIndex());
    setScriptType(row, static_cast<ScriptType>(scriptType.getSelectedIndex()));
    row.setTexture(texture.getName());
    row.setSprite(sprite.getText());
    row.setVisibility2D(visibility2D.isChecked());
    row.setVisibility3D(visibility3D.isChecked());
    row.setDark(dark.isChecked());
    row.setShowingDetails(showingDetails.isChecked());
    row.setSyncWithLayer1(syncWithLayer1.isChecked());
    const WString wasHeader = widen(row.getHeader()), wasFooter = widen(row.getFooter());
    const WString nextHeader = withLineEndsOf(wasHeader, header.getText());
    const WString nextFooter = withLineEndsOf(wasFooter, footer.getText());
    if (nextHeader != wasHeader) // bytes that are no text of the code page are kept
        row.setHeader(narrow(nextHeader));
    if (nextFooter != wasFooter)
        row.setFooter(narrow(nextFooter));
}

void WizEventTileDialog::select(int row)
{
    current = row;
    model->fireTableChanged({TableModelEvent::Changed, -1, -1});
    table.selectRow(row);
    table.ensureRowVisible(row);
    showRow();
}

void WizEventTileDialog::plusPressed(TableToolbar&)
{
    takeRow();
    const int place = current < 0 ? static_cast<int>(rows.size()) : current + 1;
    WizFloorData row;
    row.setName(translate(u"New kind"));
    rows.insert(rows.begin() + place, std::move(row));
    select(place);
    name.setFocus();
    name.selectAll();
}

void WizEventTileDialog::minusPressed(TableToolbar&)
{
    if (current < 0 || rows.size() <= WizFloorList::kInfo.minRows)
        return;
    rows.erase(rows.begin() + current);
    select(std::min(current, static_cast<int>(rows.size()) - 1));
}

void WizEventTileDialog::directionPressed(TableToolbar&, bool upwards)
{
    const int other = current + (upwards ? -1 : 1);
    if (current < 0 || other < 0 || other >= static_cast<int>(rows.size()))
        return;
    takeRow();
    std::swap(rows[static_cast<std::size_t>(current)], rows[static_cast<std::size_t>(other)]);
    select(other);
}

bool WizEventTileDialog::accept()
{
    takeRow();
    WizFloorList& kinds = WizFloorList::instance();
    const bool refused = kinds.wasRefused();
    if (refused && host().ask({.text = translate(u"The table could not be read whole. Replace it "
                                                 u"by what is shown here?")}) != Answer::Yes)
        return false;
    kinds.clear();
    for (const WizFloorData& row : rows)
        kinds.add(row);
    if (kinds.save())
        return true;
    host().showMessage(u"Couldn't save " + WString(WizFloorList::kInfo.fileName));
    return false;
}

} // namespace varn
