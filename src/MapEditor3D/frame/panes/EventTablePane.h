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

    void mapLoaded() override;
    void eventsChanged() override;
    void eventSelected(std::optional<std::size_t> event) override;
    void chosen();
    void updateButtons();
    MessageResult windowProc(NativeHandle window, std::uint32_t message, WordParam wParam,
                             LongParam lParam) override;

    WizMapEditor& editor;
    EventTableListener* listener = nullptr;
    std::unique_ptr<Model> model;
    TextField filter;
    Table table;
    GroupComponent buttons;
    Button createButton, editButton, deleteButton;
    bool following = false; // the editor's selection is being shown
};

} // namespace varn
