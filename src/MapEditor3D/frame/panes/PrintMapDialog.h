#pragma once

#include "Game/Map/WizMap.h"

namespace varn {

class BaseWindow;

/// Asks how the map is to be printed, with a preview, then for the file, and writes a PNG. False:
/// the person changed their mind, or it could not be written, which was told.
bool saveMapAsImageByDialog(const WizMap& map, WStringView mapName, BaseWindow* parent);

/// Asks which of the project's maps go on a page, then for the file, and writes it.
/// @param chosen  maps that are chosen at first; with none "No output map selected" is shown
/// @param all     the project's maps, in the order of the tree
bool exportMapsAsHtmlByDialog(const std::vector<WString>& chosen, const std::vector<WString>& all,
                              BaseWindow* parent);

} // namespace varn
