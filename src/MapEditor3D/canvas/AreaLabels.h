#pragma once

#include "MapEditor3D/canvas/CanvasView.h"

#include <vector>

namespace varn {

/// The name of an area and where it stands on the sheet: as near to the middle of its cells as it
/// can without covering an event.
struct AreaLabel
{
    int number = 0;
    WString text;
    Rect place; ///< device pixels of the surface

    bool operator==(const AreaLabel&) const = default;
};

/// Font of the names, in device pixels.
FontSpec areaLabelFont(const CanvasView& view);

/// One for each area that has cells on the map; its number where it has no name.
std::vector<AreaLabel> placeAreaLabels(const WizMap& map, const CanvasView& view);

} // namespace varn
