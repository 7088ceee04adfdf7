#pragma once

#include "Component/CheckBox.h"
#include "Component/ColorPicker.h"
#include "Component/GroupComponent.h"
#include "Component/Layout.h"
#include "Component/UpDownTextField.h"
#include "MapEditor3D/MapEditorListener.h"
#include "MapEditor3D/WizMapEditor.h"
#include "MapEditor3D/frame/AuditionBar.h"
#include "MapEditor3D/frame/panes/ResourceChoice.h"

namespace varn {

/// What of the open map makes its scene and is tried out while one looks at the first-person view:
/// how far one sees, the fog, pictures, music. Changes reach the map at once.
class SceneSettingPane final : public GroupComponent, private MapEditorListener
{
  public:
    explicit SceneSettingPane(WizMapEditor& editor);
    ~SceneSettingPane() override;

    /// The resource catalogue changed.
    void reload();
    void onCreate() override;

  private:
    void mapLoaded() override { showMap(); }
    void showMap();
    void edit(const std::function<void(WizMap&)>& change);

    WizMapEditor& editor;
    ScrollPane scroll;
    UpDownTextField visibleDistance{0, WizMap::kMaxVisibleDistance};
    CheckBox fog, distantView;
    ColorPicker fogColor;
    struct Picture
    {
        ImageType type;
        std::unique_ptr<ResourceChoice> choice;
    };
    std::vector<Picture> pictures;
    ResourceChoice music, sound;
    AuditionBar audition;
    bool following = false; // the fields are being filled
    bool editing = false;   // this pane changes the map
};

} // namespace varn
