#include "Game/Map/View/CellEvents.h"

namespace varn {

MapCell wrapped(const WizMap& map, int x, int y)
{
    return {(x % map.cols + map.cols) % map.cols, (y % map.rows + map.rows) % map.rows};
}

CellEvents::CellEvents(const WizMap& map)
    : map(map), first(static_cast<std::size_t>(map.cols) * static_cast<std::size_t>(map.rows), -1)
{
    const WizFloorList& types = WizFloorList::instance();
    const auto& events = map.events.list();
    placed.reserve(events.size());
    // Each goes in front of its cell's list, so the last is put first.
    for (auto at = events.rbegin(); at != events.rend(); ++at) {
        const GameEvent& event = **at;
        const bool known = event.type >= 0 && static_cast<std::size_t>(event.type) < types.size();
        const bool onMap = event.x >= 0 && event.x < map.cols && event.y >= 0 && event.y < map.rows;
        if (!known || !onMap)
            continue;
        std::int32_t& head = first[indexOf({event.x, event.y})];
        placed.push_back({&event, &types.at(static_cast<std::size_t>(event.type)), head});
        head = static_cast<std::int32_t>(placed.size()) - 1;
    }
}

bool CellEvents::isDark(MapCell cell) const
{
    bool dark = false;
    visit(cell, [&](const GameEvent&, const WizFloorData& type) { dark |= type.getDark(); });
    return dark;
}

std::optional<MapCell> CellEvents::warpAt(MapCell cell) const
{
    std::optional<MapCell> target;
    visit(cell, [&](const GameEvent& event, const WizFloorData& type) {
        if (!target && type.getWarp())
            if (const auto script = parseWarp(event.script))
                target = wrapped(map, script->x, script->y);
    });
    return target;
}

} // namespace varn
