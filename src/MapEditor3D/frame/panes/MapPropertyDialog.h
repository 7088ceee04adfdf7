#pragma once

#include "Component/CheckBox.h"
#include "Component/ColorPicker.h"
#include "Component/Dialog.h"
#include "Component/TabbedPane.h"
#include "Component/TextArea.h"
#include "Component/UpDownTextField.h"
#include "MapEditor3D/ProjectSession.h"
#include "MapEditor3D/frame/AuditionBar.h"
#include "MapEditor3D/frame/panes/MapProperties.h"
#include "MapEditor3D/frame/panes/ResourceChoice.h"
#include "MapEditor3D/frame/panes/RowChoice.h"

namespace varn {

/// The properties of a map: name, size, pictures, sounds, rules.
class MapPropertyDialog final : public Dialog
{
  public:
    /// @param map   what the fields show at first
    /// @param name  its name in the tree; empty: a new map, whose name is asked for
    MapPropertyDialog(const WizMap& map, WStringView name);

    /// What was chosen, behind an OK, with the keys of MapProperties.h.
    const Element& getValues() const { return *values; }
    std::uint32_t getBackgroundColor() const { return backgroundColor; }

  protected:
    void build() override;
    bool accept() override;
    BaseWindow* firstFocus() override;

  private:
    void buildGeneral();
    void buildPictures();
    void buildSounds();
    void fill();
    void tellSize();
    bool checkName();

    const WizMap& map;
    WString before; ///< the name in the tree
    NodeArena arena;
    Element* values = nullptr;
    std::uint32_t backgroundColor = 0;

    TabbedPane tabs;
    std::unique_ptr<FormLayout> form;
    TextField name, displayName, displayName2;
    UpDownTextField col{1, kMapStride}, row{1, kMapStride};
    Label sizeNote;
    UpDownTextField visibleDistance{0, WizMap::kMaxVisibleDistance};
    UpDownTextField level{-999, 999};
    CheckBox teleportable, displayable;
    RowChoice enemyTable;
    UpDownTextField encounterSteps{0, 9999};
    ColorPicker background;
    struct Picture
    {
        ImageType type;
        std::unique_ptr<ResourceChoice> choice;
    };
    std::vector<Picture> pictures;
    ResourceChoice bgm, bgs, footstep, door;
    AuditionBar audition;
};

/// Asks for the properties of a new map, writes its files and adds it to the tree, which is saved.
/// Gives its name; the caller opens it. Nothing: the person changed their mind, or it was refused
/// with a message.
std::optional<WString> createMapByDialog(ProjectSession& session, BaseWindow* parentWindow,
                                         std::optional<std::size_t> parent);
/// The same for the open map. True: it was changed; a new name has reached files and tree.
bool editOpenMapByDialog(ProjectSession& session, WizMapEditor& editor, BaseWindow* parentWindow);
/// The same for a map on the disk, which is saved.
bool editMapFileByDialog(ProjectSession& session, WStringView mapName, BaseWindow* parentWindow);

} // namespace varn
