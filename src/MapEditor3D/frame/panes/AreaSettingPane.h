#pragma once

#include "Component/Button.h"
#include "Component/CheckBox.h"
#include "Component/Layout.h"
#include "Component/Table.h"
#include "Component/TextArea.h"
#include "Component/UpDownTextField.h"
#include "MapEditor3D/MapEditorListener.h"
#include "MapEditor3D/WizMapEditor.h"
#include "MapEditor3D/frame/panes/RowChoice.h"

namespace varn {

/// Told what a person wants of the areas of the open map.
class AreaSettingPaneListener
{
  public:
    virtual ~AreaSettingPaneListener() = default;
    /// A number was chosen to paint with: the area layer is to come into force. Behind that the
    /// pane selects the number in the editor.
    virtual void areaChosen(std::int32_t /*number*/) {}
    /// A cell of the chosen area; bring it into view.
    virtual void areaShown(MapCell /*cell*/) {}
};

/// The areas of the open map, and the settings of the selected one, which change the map as they
/// are typed.
class AreaSettingPane final : public GroupComponent, private MapEditorListener
{
  public:
    explicit AreaSettingPane(WizMapEditor& editor);
    ~AreaSettingPane() override;

    /// Borrowed; null: nobody.
    void setListener(AreaSettingPaneListener* next) { listener = next; }
    /// The smallest number from 1 that no area of the map has.
    std::int32_t nextFreeNumber() const;
    /// Selects the area of a number, if there is one.
    void selectArea(std::int32_t number);
    /// Tables on the disk changed.
    void reload();
    Table& getTable() { return table; }

    void onCreate() override;

  protected:
    void applyTexts() override;

  private:
    class Model;

    void mapLoaded() override;
    void areasChanged(const CellRect& cells) override;
    void tileSelected(int tile) override;
    void toolChanged() override;

    void buildList();
    void buildFields();
    AreaModel* selected();
    void chosen();
    void paintWith(std::int32_t wanted);
    void showArea();
    void takeFields();
    void changeNumber();
    void removeArea();
    void tellEdited();

    WizMapEditor& editor;
    AreaSettingPaneListener* listener = nullptr;
    std::unique_ptr<Model> model;
    Table table;
    GroupComponent buttons;
    Button nextButton, removeButton;
    GroupComponent fields;
    std::unique_ptr<FormLayout> form;
    UpDownTextField number{1, kLastAreaNumber};
    TextField name;
    TextArea text;
    RowChoice enemyTable;
    CheckBox room, teleportBlock;
    std::int32_t shownNumber = 0; // of the area in the fields; 0: none
    bool following = false;       // the fields are being filled
    bool editing = false;         // this pane changes the map

    static constexpr int kLastAreaNumber = 9999;
};

} // namespace varn
