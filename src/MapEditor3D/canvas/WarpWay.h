#pragma once

#include "MapEditor3D/WizMapEditor.h"

#include <optional>

namespace varn {

/// The way that a warp leads, both ends on the map's torus.
struct WarpWay
{
    MapCell from, to;
    bool operator==(const WarpWay&) const = default;
};

/// The way of an event; nothing where its type is no warp or its script is not the warp's form.
std::optional<WarpWay> warpWayOf(const WizMap& map, const GameEvent& event);
/// That of the selected event, which the canvas shows as an arrow.
std::optional<WarpWay> selectedWarpWay(const WizMapEditor& editor);

} // namespace varn
