#pragma once

#include "MapEditor3D/frame/panes/MapProperties.h"
#include "MapEditor3D/frame/panes/ResourceChoice.h"

namespace varn {

/// A choice of what a picture of a map can be: the catalogue's, or the pictures of a folder.
std::unique_ptr<ResourceChoice> makePictureChoice(const MapPictureField& field);

/// The pictures that lie in a project folder, as project paths, by name.
std::vector<WString> picturesIn(WStringView folder);

} // namespace varn
