#pragma once

#include "Component/Button.h"
#include "Component/GroupComponent.h"
#include "Component/Table.h"
#include "Component/TextArea.h"
#include "MapEditor3D/MapEditorListener.h"
#include "MapEditor3D/WizMapEditor.h"

namespace varn {

/// Told what a person wants of the events of the open map. Events are places in the map's list.
class EventTableListener
{
  public:
    virtual ~EventTableListener() = default;
    /// An event was selected by hand; the editor has it already. Bring its cell into view.
    virtual void eventShown(std::size_t /*event*/) {}
    virtual void eventEditRequested(std::size_t event) = 0;
    virtual void eventCreateRequested() = 0;
    virtual void eventDeleteRequested(std::size_t event) = 0;
};

/// The events of the open map: name, kind, place and trigger, sorted and filtered as one likes.
class EventTablePane final : public GroupComponent, private MapEditorListener
{
  public:
    explicit EventTablePane(WizMapEditor& editor);
    ~EventTablePane() override;

    /// Borrowed; null: nobody.
    void setListener(EventTableListener* next) { listener = next; }
    /// Row numbers as the game counts, from the bottom; else from the top.
    void setRowsFromBottom(bool fromBottom);
    Table& getTable() { return table; }
    TextField& getFilter() { return filter; }

    void onCreate() override;

  protected:
    void applyTexts() override;

  private:
    class Model;
    /// The kit's table, with the key that deletes.
    class EventTable final : public Table
    {
      public:
        explicit EventTable(std::function<void()> deletePressed)
            : deletePressed(std::move(deletePressed))
        {}
        bool onKeyDown(int key, std::uint32_t flags) override;

      private:
        std::function<void()> deletePressed;
    };

    void mapLoaded() override;
    void eventsChanged() override { show(); }
    void eventSelected(std::optional<std::size_t> event) override;
    void show();
    void chosen();
    /// Asks the listener something about the selected event.
    void request(void (EventTableListener::*what)(std::size_t));

    WizMapEditor& editor;
    EventTableListener* listener = nullptr;
    std::unique_ptr<Model> model;
    WString mapName; // the map whose events were filtered
    TextField filter;
    EventTable table{[this] { request(&EventTableListener::eventDeleteRequested); }};
    GroupComponent buttons;
    Button createButton, editButton, deleteButton;
};

} // namespace varn
