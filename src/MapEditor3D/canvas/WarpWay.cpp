#include "MapEditor3D/canvas/WarpWay.h"

#include "Game/Database/WizFloor.h"

namespace varn {

std::optional<WarpWay> warpWayOf(const WizMap& map, const GameEvent& event)
{
    const WizFloorList& types = WizFloorList::instance();
    if (event.type < 0 || static_cast<std::size_t>(event.type) >= types.size() ||
        !types.at(static_cast<std::size_t>(event.type)).getWarp())
        return std::nullopt;
    const auto target = parseWarp(event.script);
    if (!target)
        return std::nullopt;
    return WarpWay{{event.x, event.y}, wrapped(map, target->x, target->y)};
}

std::optional<WarpWay> selectedWarpWay(const WizMapEditor& editor)
{
    const auto selected = editor.getSelectedEvent();
    if (!selected || *selected >= editor.getMap().events.size())
        return std::nullopt;
    return warpWayOf(editor.getMap(), editor.getMap().events.at(*selected));
}

} // namespace varn
