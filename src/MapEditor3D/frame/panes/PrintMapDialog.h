#pragma once

#include "Component/CheckBox.h"
#include "Component/ComboBox.h"
#include "Component/Dialog.h"
#include "Component/Table.h"
#include "Component/TextArea.h"
#include "Game/Map/View/MapPicture.h"

namespace varn {

/// How a map is printed; as it stands, as the tool prints maps without being asked.
struct PrintOptions
{
    int cellSize = kPrintedCell; ///< pixels
    bool numbers = true;
    bool events = true;
};

/// Makes the surface of a printed map: a margin of one cell on every side. False: too large.
bool printMap(Graphics& surface, const WizMap& map, const WizMapImage& images,
              const PrintOptions& options);

/// Asks how the map is to be printed, with a preview, then for the file, and writes a PNG. False:
/// the person changed their mind, or it could not be written, which was told.
bool saveMapAsImageByDialog(const WizMap& map, WStringView mapName, BaseWindow* parent);

/// Asks which of the project's maps go on a page, then for the file, and writes it.
/// @param chosen  maps that are chosen at first; with none "No output map selected" is shown
/// @param all     the project's maps, in the order of the tree
bool exportMapsAsHtmlByDialog(const std::vector<WString>& chosen, const std::vector<WString>& all,
                              BaseWindow* parent);

} // namespace varn
