#include "MapEditor3D/frame/panes/EventTablePane.h"

#include "Component/Layout.h"
#include "Component/Translation.h"
#include "Game/Database/WizFloor.h"

namespace varn {

namespace {

enum Column
{
    kName,
    kKind,
    kColumn,
    kRow,
    kTrigger,
    kColumns
};

} // namespace

class EventTablePane::Model final : public TableModel
{
  public:
    explicit Model(const WizMapEditor& editor) : editor(editor) {}

    bool rowsFromBottom = true;

    int getRowCount() const override { return static_cast<int>(events().size()); }
    int getColumnCount() const override { return kColumns; }
    bool isNumber(int column) const override { return column == kColumn || column == kRow; }
    WString getValueAt(int row, int column) const override
    {
        const GameEvent& event = events().at(static_cast<std::size_t>(row));
        switch (column) {
        case kName:
            return event.names[0];
        case kKind: {
            const WizFloorData* const kind = WizFloorList::instance().find(event.type);
            return kind ? kind->getName() : toDecimal(event.type);
        }
        case kColumn:
            return toDecimal(event.x);
        case kRow:
            return toDecimal(rowsFromBottom ? editor.getMap().rows - 1 - event.y : event.y);
        default:
            return translate(triggerText(event.trigger));
        }
    }

  private:
    const EventManager& events() const { return editor.getMap().events; }

    const WizMapEditor& editor;
};

EventTablePane::EventTablePane(WizMapEditor& editor)
    : editor(editor), model(std::make_unique<Model>(editor))
{
    editor.addListener(*this);
}

EventTablePane::~EventTablePane()
{
    editor.removeListener(*this);
    table.setModel(nullptr);
}

void EventTablePane::onCreate()
{
    BoxLayout column(*this, BoxLayout::Axis::Column, BoxLayout::Margin::None);
    column.add(filter).add(table, 1).add(buttons);
    filter.setPlaceholder(u"Filter by name, kind, place or trigger");
    filter.setAccessibleName(u"Filter of the events");
    filter.onChange([this] { table.setFilter(filter.getText()); });

    constexpr int kPlaceWidth = 36, kKindWidth = 88, kTriggerWidth = 96;
    table.setAccessibleName(u"Events of this floor");
    table.setColumns({{u"Name", 0},
                      {u"Kind", kKindWidth},
                      {u"X", kPlaceWidth},
                      {u"Y", kPlaceWidth},
                      {u"Trigger", kTriggerWidth}});
    table.setSortable(true);
    table.setEmptyText(u"No events on this floor yet. Choose the event layer, then click a cell "
                       u"with the right button and take Create.");
    table.setModel(model.get());
    table.onAction([this] { chosen(); });
    table.on(kEventListener, [this](const EventObject& event) {
        if (event.id == kReturnCode)
            request(&EventTableListener::eventEditRequested);
    });

    BoxLayout row(buttons, BoxLayout::Axis::Row);
    row.add(createButton).add(editButton).add(deleteButton).addStretch();
    createButton.setLabel(u"Create...");
    createButton.onAction([this] {
        if (listener)
            listener->eventCreateRequested();
    });
    editButton.setLabel(u"Edit...");
    editButton.onAction([this] { request(&EventTableListener::eventEditRequested); });
    deleteButton.setLabel(u"Delete");
    deleteButton.onAction([this] { request(&EventTableListener::eventDeleteRequested); });
    mapName = editor.getMapName();
    show();
}

void EventTablePane::applyTexts()
{
    GroupComponent::applyTexts();
    show(); // kinds and triggers are worded anew
}

void EventTablePane::setRowsFromBottom(bool fromBottom)
{
    model->rowsFromBottom = fromBottom;
    show();
}

void EventTablePane::mapLoaded()
{
    if (std::exchange(mapName, editor.getMapName()) != mapName) {
        filter.setText({});
        table.setFilter({});
    }
    show();
}

void EventTablePane::show()
{
    if (!table.getHandle())
        return;
    model->fireTableChanged({TableModelEvent::Changed, -1, -1});
    eventSelected(editor.getSelectedEvent());
}

void EventTablePane::eventSelected(std::optional<std::size_t> event)
{
    if (!table.getHandle())
        return;
    const int row = event ? static_cast<int>(*event) : -1;
    if (table.getSelectedRow() != row) {
        table.selectRow(row);
        if (event)
            table.ensureRowVisible(row);
    }
    editButton.setEnabled(event.has_value());
    deleteButton.setEnabled(event.has_value());
}

void EventTablePane::chosen()
{
    const int row = table.getSelectedRow();
    if (row < 0)
        return;
    const auto event = static_cast<std::size_t>(row);
    editor.setSelectedEvent(event);
    if (listener)
        listener->eventShown(event);
}

void EventTablePane::request(void (EventTableListener::*what)(std::size_t))
{
    const int row = table.getSelectedRow();
    if (listener && row >= 0)
        (listener->*what)(static_cast<std::size_t>(row));
}

bool EventTablePane::EventTable::onKeyDown(int key, std::uint32_t flags)
{
    if (key != kKeyDelete)
        return Table::onKeyDown(key, flags);
    deletePressed();
    return true;
}

} // namespace varn
