#pragma once

#include "Component/CheckBox.h"
#include "Component/ComboBox.h"
#include "Component/Dialog.h"
#include "Component/TextArea.h"
#include "Component/UpDownTextField.h"
#include "Game/Map/WizMap.h"
#include "MapEditor3D/frame/panes/RowChoice.h"

namespace varn {

/// An event of a map: who it is, where it stands, what starts it and the script that runs then.
class EventDialog final : public Dialog
{
  public:
    /// @param map    of the event, borrowed
    /// @param event  what the fields show at first
    /// @param self   the map's event that is edited; null: a new one
    EventDialog(const WizMap& map, const GameEvent& event, const GameEvent* self);

    /// The event as it was made, of the class that goes with its kind; behind an OK, once.
    std::unique_ptr<GameEvent> takeEvent() { return std::move(made); }

  protected:
    void build() override;
    bool accept() override;
    BaseWindow* firstFocus() override { return &name; }

  private:
    void buildFields();
    void buildScript();
    void fill();
    void kindChanged();
    void chooseWarp();
    void check();
    std::int32_t directionValue() const;

    const WizMap& map;
    std::unique_ptr<GameEvent> event;
    const GameEvent* self;
    std::unique_ptr<GameEvent> made;

    GroupComponent fields, scriptPane, checkRow;
    std::unique_ptr<FormLayout> form;
    TextField name, name2;
    RowChoice kind;
    UpDownTextField x, y;
    ComboBoxLight direction, trigger, priority;
    CheckBox hitbox;
    UpDownTextField move{-9999, 9999};
    RowChoice condition;
    TextField sprite;
    RowChoice treasureBox;
    Button warpButton;
    Label scriptLabel;
    TextArea script;
    Button checkButton;
    Label checkResult;
    std::vector<std::int32_t> directions, triggers, priorities; ///< values of the lists' entries
    WString startScript; ///< what the kind put into the field
};

/// The event in the class that goes with its kind: a treasure box where the kind is one.
std::unique_ptr<GameEvent> inClassOfKind(const GameEvent& event);

} // namespace varn
