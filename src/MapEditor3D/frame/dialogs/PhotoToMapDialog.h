#pragma once

#include "Component/Application.h"
#include "Component/Dialog.h"
#include "Component/UpDownTextField.h"
#include "MapEditor3D/frame/dialogs/MapPreview.h"
#include "MapEditor3D/frame/dialogs/PhotoImageWindow.h"
#include "Util/Settings.h"

namespace varn {

/// "Generate a map from an image": the picture at the left, the floor that comes of it at the
/// right. OK puts the walls over the open floor as one step of undo.
class PhotoToMapDialog final : public Dialog
{
  public:
    /// @param editor  of the open map, borrowed
    /// @param settings  where the numbers of the last run are kept
    PhotoToMapDialog(WizMapEditor& editor, Settings& settings);

    /// As the chooser and a drop do. False: it cannot be read, which was told.
    bool openImage(const std::filesystem::path& path);
    PhotoImageWindow& getPicture() { return picture; }
    MapPreview& getPreview() { return preview; }

  protected:
    void build() override;
    bool accept() override;

  private:
    void buildFields();
    void chooseImage();
    void readFields();
    void recognise();
    void execute();
    void showStatus();

    WizMapEditor& editor;
    Settings& settings;
    Splitter panes;
    GroupComponent fields, colourRow;
    PhotoImageWindow picture;
    MapPreview preview;
    UpDownTextField tileSize, offsetX, offsetY, thickness;
    UpDownTextField red, green, blue;
    Button openButton, executeButton;
    Label help, executeHelp, status;
    Timer later; // recognises once the fields rest
};

} // namespace varn
