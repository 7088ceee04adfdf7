#include "DatabaseDialog/DatabasePage.h"

#include "Component/Dialog.h"
#include "Component/Menu.h"
#include "Component/Translation.h"
#include "Component/UpDownTextField.h"
#include "DatabaseDialog/DatabaseWindow.h"
#include "Game/Database/MarkerDatabase.h"
#include "Util/Exception.h"
#include "Util/Host.h"

#include <algorithm>

namespace varn {

namespace {

enum MenuCommand : int
{
    kClearMarker = 200,
    kEditMarker = 201,
    kCopy = 202,
    kPaste = 203,
    kClear = 204,
    kFirstMarker = 1000
};

constexpr int kEditMarkersCommand = 237; // of the frame

/// A number by the table: its width and kind.
void setOwn(GameRow& row, WStringView key, std::int32_t value)
{
    if (const Field* const field = row.getFieldTable().find(key))
        setNumber(row, *field, value);
}

std::int32_t getOwn(const GameRow& row, WStringView key, std::int32_t fallback)
{
    const Field* const field = row.getFieldTable().find(key);
    return field ? getNumber(row, *field) : fallback;
}

/// Asks for a number.
class NumberSelectDialog final : public Dialog
{
  public:
    NumberSelectDialog(WStringView english, WStringView label, int value)
        : Dialog(english), label(label), value(value)
    {}
    int getValue() const { return value; }

  protected:
    void build() override
    {
        FormLayout form(getPane());
        form.addRow(label, number);
        number.setValue(value);
    }
    bool accept() override
    {
        value = number.getValue();
        return true;
    }

  private:
    WString label;
    int value;
    UpDownTextField number{0, 99999};
};

} // namespace

/// The rows that pass the filter.
class DatabasePage::RowList final : public TableModel
{
  public:
    RowList(const GameTable& table, const FilterPane& filter) : table(table), filter(filter) {}

    std::vector<int> shown;

    void collect()
    {
        shown.clear();
        for (std::size_t row = 0; row < table.size(); ++row)
            if (filter.passes(table.rowAt(row), textOf(row)))
                shown.push_back(static_cast<int>(row));
        fireTableChanged({TableModelEvent::Changed, -1, -1});
    }
    int placeOf(int row) const
    {
        const auto found = std::ranges::find(shown, row);
        return found == shown.end() ? -1 : static_cast<int>(found - shown.begin());
    }
    int getRowCount() const override { return static_cast<int>(shown.size()); }
    int getColumnCount() const override { return 1; }
    WString getValueAt(int place, int) const override
    {
        const auto row = static_cast<std::size_t>(shown[static_cast<std::size_t>(place)]);
        return row < table.size() ? textOf(row) : WString();
    }
    std::optional<std::uint32_t> getRowColor(int place) const override
    {
        const GameRow* const row = table.findRow(shown[static_cast<std::size_t>(place)]);
        const std::int32_t marker = row ? getOwn(*row, u"marker", -1) : -1;
        const MarkerModel* const model = MarkerDatabase::instance().find(marker);
        return model ? std::optional(static_cast<std::uint32_t>(model->getBackgroundColor()))
                     : std::nullopt;
    }

  private:
    WString textOf(std::size_t row) const { return numberedText(row, rowName(table, row)); }

    const GameTable& table;
    const FilterPane& filter;
};

/// The list, with the keys of the row menu.
class DatabasePage::RowTable final : public Table
{
  public:
    explicit RowTable(DatabasePage& page) : page(page) {}

    bool onKeyDown(int key, std::uint32_t flags) override
    {
        const bool control = (flags & kHeldControl) != 0;
        if (control && key == 'C')
            page.copyRow();
        else if (control && key == 'V')
            page.pasteRow();
        else if (key == kKeyDelete)
            page.clearRow();
        else
            return Table::onKeyDown(key, flags);
        return true;
    }
    MessageResult windowProc(NativeHandle window, std::uint32_t message, WordParam wParam,
                             LongParam lParam) override
    {
        if (message != kContextMenuMessage)
            return Table::windowProc(window, message, wParam, lParam);
        page.showMenu(unpackX(lParam), unpackY(lParam));
        return 1;
    }

  private:
    DatabasePage& page;
};

DatabasePage::DatabasePage(const PageOutline& outline)
    : outline(outline), table(*outline.table), fields(table.getFieldTable()),
      filter(table.getFieldTable()), rows(std::make_unique<RowList>(table, filter)),
      list(std::make_unique<RowTable>(*this)), maximumButton(u"..."), checkButton(u"Check")
{
    checkButton.setHint(u"Compiles the text and tells what is wrong");
}

DatabasePage::~DatabasePage() = default;

void DatabasePage::onCreate()
{
    BoxLayout row(*this, BoxLayout::Axis::Row, BoxLayout::Margin::None);
    if (outline.shape == PageOutline::Shape::OneRow) {
        row.add(fieldSide, 1);
        buildFields(fieldSide);
        table.pad(1);
        selected = 0;
        showSelected();
        return;
    }
    row.add(halves, 1);
    listPane.create(&halves);
    fieldSide.create(&halves);
    buildList(listPane);
    buildFields(fieldSide);
    constexpr int kListWidth = 250, kFieldsWidth = 760;
    halves.setSizes({kListWidth, kFieldsWidth});
    selected = -1;
    filterChanged();
    selectRow(table.empty() ? -1 : 0);
}

void DatabasePage::buildList(GroupComponent& pane)
{
    BoxLayout column(pane, BoxLayout::Axis::Column, BoxLayout::Margin::None);
    column.add(filter).add(*list, 1);
    filter.setListener(this);
    list->setColumns({{u"Name", 0}});
    list->setModel(rows.get());
    list->setAccessibleName(outline.title);
    list->onAction([this] {
        const int place = list->getSelectedRow();
        if (place >= 0)
            selectRow(rows->shown[static_cast<std::size_t>(place)]);
    });
    GroupComponent& line = pane.add<GroupComponent>();
    column.add(line);
    BoxLayout count(line, BoxLayout::Axis::Row, BoxLayout::Margin::None);
    count.add(countLabel).addStretch().add(maximumButton);
    maximumButton.setHint(u"Change Maximum");
    maximumButton.onAction([this] { changeMaximum(); });
    fitCount();
}

void DatabasePage::buildFields(GroupComponent& pane)
{
    BoxLayout column(pane, BoxLayout::Axis::Column, BoxLayout::Margin::None);
    if (outline.shape == PageOutline::Shape::Rows)
        column.add(idLabel);
    column.add(scroll, 1);
    BoxLayout inside(scroll.getContent(), BoxLayout::Axis::Column, BoxLayout::Margin::None);
    inside.add(fields, 1);
    fields.onAction([this] { rowChanged(); });
    if (!outline.check)
        return;
    GroupComponent& line = pane.add<GroupComponent>();
    column.add(line);
    BoxLayout checkLine(line, BoxLayout::Axis::Row, BoxLayout::Margin::None);
    checkLine.add(checkButton).add(result, 1);
    result.setWrapped(true);
    checkButton.onAction([this] { check(); });
}

std::vector<int> DatabasePage::getShownRows() const
{
    return rows->shown;
}

void DatabasePage::filterChanged()
{
    rows->collect();
    list->selectRow(rows->placeOf(selected));
}

GameRow* DatabasePage::findSelected() const
{
    return table.findRow(selected);
}

void DatabasePage::selectRow(int row)
{
    store();
    selected = table.findRow(row) ? row : -1;
    const int place = rows->placeOf(selected);
    if (list->getHandle() && list->getSelectedRow() != place)
        list->selectRow(place);
    showSelected();
}

void DatabasePage::showSelected()
{
    fields.show(findSelected());
    idLabel.setText(selected < 0 ? WString() : translate(u"ID: ") + toDecimal(selected));
    checkResult.clear();
    result.setText({});
}

void DatabasePage::store()
{
    fields.store();
}

void DatabasePage::refresh()
{
    store();
    fields.refreshChoices();
    showSelected();
    rows->collect();
    list->selectRow(rows->placeOf(selected));
}

void DatabasePage::rowChanged()
{
    const int place = rows->placeOf(selected);
    if (place >= 0)
        rows->fireTableChanged({TableModelEvent::Changed, place, 0});
}

void DatabasePage::fitCount()
{
    list->setEmptyText(table.empty() ? WStringView(u"No rows yet: \"...\" below makes some.")
                                     : WStringView(u"No rows match the filter."));
    countLabel.setText(translate(u"Maximum") + u": " +
                       toDecimal(static_cast<std::int64_t>(table.size())));
}

void DatabasePage::copyRow()
{
    store();
    const GameRow* const row = findSelected();
    if (!row) {
        host().showMessage(translate(u"Couldn't copy data."));
        return;
    }
    copied.clear();
    copied.push_back(table.getFieldTable().clone(*row));
}

void DatabasePage::pasteRow()
{
    if (copied.empty())
        return;
    store();
    GameRow* const target = findSelected();
    if (!target) {
        host().showMessage(translate(u"Couldn't paste data."));
        return;
    }
    // Everything but the number; the copy keeps its own, for the next paste.
    const std::int32_t id = getOwn(*target, u"id", 0);
    table.getFieldTable().assign(*target, *copied.front());
    setOwn(*target, u"id", id);
    showSelected();
    rowChanged();
}

void DatabasePage::clearRow()
{
    store();
    GameRow* const target = findSelected();
    if (!target) {
        host().showMessage(translate(u"Couldn't clear data."));
        return;
    }
    const std::int32_t id = getOwn(*target, u"id", 0);
    table.getFieldTable().assign(*target, *table.getFieldTable().make());
    setOwn(*target, u"id", id);
    setOwn(*target, u"marker", -1);
    showSelected();
    rowChanged();
}

void DatabasePage::markRow(int marker)
{
    if (GameRow* const row = findSelected()) {
        setOwn(*row, u"marker", marker);
        rowChanged();
    }
}

void DatabasePage::changeMaximum()
{
    NumberSelectDialog dialog(u"Change Maximum", u"&Maximum:", static_cast<int>(table.size()));
    if (dialog.doModal(this) == Dialog::Ok)
        setMaximum(static_cast<std::size_t>(dialog.getValue()));
}

void DatabasePage::setMaximum(std::size_t count)
{
    store();
    fields.show(nullptr); // its row may go
    try {
        table.resize(count);
    } catch (const Exception& fault) {
        host().showMessage(translate(fault.getMessage()));
    }
    selected = std::min(selected, static_cast<int>(table.size()) - 1);
    if (selected < 0 && !table.empty())
        selected = 0;
    fitCount();
    filterChanged();
    showSelected();
}

void DatabasePage::check()
{
    store();
    const GameRow* const row = findSelected();
    if (!row || !outline.check)
        return;
    checkResult.clear();
    for (const Field& field : table.getFieldTable().fields)
        if (field.kind == Kind::CDataTexts)
            checkResult += outline.check(row->getName(), varn::getText(*row, field));
    result.setWarning(!checkResult.empty());
    result.setText(checkResult.empty() ? translate(u"No faults.") : checkResult);
}

void DatabasePage::showMenu(int x, int y)
{
    const bool hasRow = findSelected() != nullptr;
    PopupMenu menu;
    if (table.getFieldTable().find(u"marker")) {
        MenuLine& markers = menu.add(translate(u"Marker"), 0);
        markers.enabled = hasRow;
        const auto addMarker = [&markers](WStringView text, int command, WStringView shortcut) {
            MenuLine& line = markers.children.emplace_back();
            line.text = text;
            line.command = command;
            line.shortcut = shortcut;
        };
        const MarkerDatabase& all = MarkerDatabase::instance();
        for (std::size_t marker = 0; marker < all.size(); ++marker)
            addMarker(numberedText(marker, rowName(all, marker)),
                      kFirstMarker + static_cast<int>(marker), u"M");
        addMarker(translate(u"Clear Marker"), kClearMarker, {});
        addMarker(translate(u"Edit Marker"), kEditMarker, {});
        menu.addSeparator();
    }
    const auto addRowEntry = [&](WStringView english, WStringView shortcut, int command) {
        MenuLine& line = menu.add(translate(english), command);
        line.shortcut = shortcut;
        line.enabled = hasRow && (command != kPaste || !copied.empty());
    };
    addRowEntry(u"&Copy", u"Ctrl+C", kCopy);
    addRowEntry(u"&Paste", u"Ctrl+V", kPaste);
    addRowEntry(u"Clear", u"Delete", kClear);
    const std::optional<int> chosen = menu.show(*list, x, y);
    switch (chosen.value_or(0)) {
    case 0:
        break;
    case kClearMarker:
        markRow(-1);
        break;
    case kEditMarker:
        showDatabaseWindow(this, kEditMarkersCommand);
        list->repaint();
        break;
    case kCopy:
        copyRow();
        break;
    case kPaste:
        pasteRow();
        break;
    case kClear:
        clearRow();
        break;
    default:
        markRow(*chosen - kFirstMarker);
    }
}

} // namespace varn
