#pragma once

#include "Component/ComboBox.h"
#include "Component/Dialog.h"
#include "Component/UpDownTextField.h"
#include "MapEditor3D/frame/dialogs/MapPreview.h"
#include "MapEditor3D/generators/DungeonGenerator.h"

namespace varn {

/// "Map Generator": fills a preview of the open floor's size with rooms and passages. The preview
/// follows the fields as they change; "Execute" takes another seed. OK puts it over the floor as
/// one step of undo; events, areas and settings stay.
class MapGeneratorDialog final : public Dialog
{
  public:
    /// @param editor  of the open map, borrowed
    explicit MapGeneratorDialog(WizMapEditor& editor);

  protected:
    void build() override;
    bool accept() override;
    BaseWindow* firstFocus() override { return &passageway; }

  private:
    generator::GeneratorOptions getOptions() const;
    void anotherSeed();
    void generate();

    WizMapEditor& editor;
    GroupComponent fields;
    ComboBoxLight layout, deadEnds;
    UpDownTextField passageway, roomTries, roomExtraSize, seed;
    Button execute;
    Label summary;
    MapPreview preview;
};

} // namespace varn
