#pragma once

#include "Component/CheckBox.h"
#include "Component/ComboBox.h"
#include "Component/Dialog.h"
#include "Component/Table.h"
#include "Component/TableToolbar.h"
#include "Component/TextArea.h"
#include "Game/Database/WizFloor.h"
#include "MapEditor3D/frame/panes/ResourceChoice.h"

namespace varn {

/// "Tile Settings": the table of event kinds. It works on a copy of the rows; OK puts them into the
/// table and writes "EventFloor.xml".
class WizEventTileDialog final : public Dialog, private TableToolbar::Listener
{
  public:
    /// @param kind  the row that is shown first
    explicit WizEventTileDialog(int kind = 0);
    ~WizEventTileDialog() override;

  protected:
    void build() override;
    bool accept() override;
    BaseWindow* firstFocus() override { return &table; }

  private:
    class Model;

    void buildList();
    void buildFields();
    void showRow();
    void takeRow();
    void select(int row);
    void plusPressed(TableToolbar& bar) override;
    void minusPressed(TableToolbar& bar) override;
    void directionPressed(TableToolbar& bar, bool upwards) override;

    std::vector<WizFloorData> rows;
    int current;
    std::unique_ptr<Model> model;
    Table table;
    TableToolbar toolbar;
    GroupComponent list, fields;
    std::unique_ptr<FormLayout> form;
    TextField name;
    ComboBoxLight displayPosition, scriptType;
    ResourceChoice texture;
    TextField sprite;
    CheckBox visibility2D, visibility3D, dark, showingDetails, syncWithLayer1;
    TextArea header, footer;
    int positionShown = 0; // entry of the list of positions, as the row has it
};

} // namespace varn
