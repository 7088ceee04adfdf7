#pragma once

#include "Component/CheckBox.h"
#include "Component/ComboBox.h"
#include "Component/Dialog.h"
#include "MapEditor3D/TileReplacement.h"
#include "MapEditor3D/WizMapEditor.h"

namespace varn {

/// "Replace": puts one wall kind or floor tile in the place of another, on the whole floor or in
/// one area, after it said how many there are. One step of undo.
class ReplaceDialog final : public Dialog
{
  public:
    /// @param editor  of the open map, borrowed; its layer tells whether walls or floor tiles are
    ///                meant
    explicit ReplaceDialog(WizMapEditor& editor);

  protected:
    void build() override;
    bool accept() override;
    void opened() override;
    BaseWindow* firstFocus() override { return &from; }

  private:
    TileReplacement getReplacement() const;
    void fillValues();
    void chooseRange(bool onlyArea);
    void count();

    WizMapEditor& editor;
    std::vector<int> values;  ///< of the entries of both lists
    std::vector<int> numbers; ///< of the areas
    ComboBoxLight layer, from, to, area;
    RadioButton everywhere, inArea;
    GroupComponent areaRow;
    Label found;
};

} // namespace varn
