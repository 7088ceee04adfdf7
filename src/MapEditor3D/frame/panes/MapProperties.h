#pragma once

#include "Game/Map/GameResourceManager.h"
#include "MapEditor3D/WizMapEditor.h"
#include "Parser/Element.h"

#include <span>

namespace varn {

/// What the property dialog hands over: an element with the attributes "name", "col", "row",
/// "imageNames", "displayName", "displayName2", "visibleDistance", "level", "teleportable",
/// "displayable", "enemyTableID", "encounterSteps", "bgm", "bgs", "footstep", "door". "imageNames"
/// holds the files of the map's pictures in the order of `mapPictureFields`, joined by "|".

/// A picture of a map that people choose.
struct MapPictureField
{
    ImageType type;
    WStringView label;       ///< English, with its mnemonic
    WStringView folder = {}; ///< whose pictures are offered, for one that is in no catalogue
    std::optional<ResourceCategory> category = {}; ///< of the catalogue

    /// Seen in the first-person view, not on the map from above.
    bool isInView() const { return category.has_value(); }
};
std::span<const MapPictureField> mapPictureFields();

/// The properties of a map, unlinked, in `arena`. @param name  in the tree
Element* mapPropertiesOf(const WizMap& map, WStringView name, NodeArena& arena);
/// Takes them over, all but "name", which is the file's. Values out of range are brought into it;
/// an attribute that is missing leaves what stands. Cells keep their bytes whatever the size.
void applyMapProperties(WizMap& map, const Element& values);
/// A new map has neither cells nor events nor steps of undo.
enum class MapOrigin
{
    New,
    Existing
};
/// The same for the editor's map, which tells its listeners.
void applyMapProperties(WizMapEditor& editor, const Element& values, MapOrigin origin);

} // namespace varn
