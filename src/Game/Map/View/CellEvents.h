#pragma once

#include "Game/Database/WizFloor.h"
#include "Game/Map/WizMap.h"

#include <optional>
#include <vector>

namespace varn {

/// The events of a floor by the cell they stand in, as they are at one moment: a drawing asks for
/// every cell in view several times. Events without a row in the table of event floors are left
/// out.
class CellEvents
{
  public:
    explicit CellEvents(const WizMap& map);

    /// Calls `visit(event, type)` for the events of a cell, in list order.
    template <class Visit>
    void visit(MapCell cell, Visit visit) const
    {
        for (std::int32_t i = first[indexOf(cell)]; i >= 0;
             i = placed[static_cast<std::size_t>(i)].next)
            visit(*placed[static_cast<std::size_t>(i)].event,
                  *placed[static_cast<std::size_t>(i)].type);
    }

    /// True when an event of the cell darkens it.
    bool isDark(MapCell cell) const;
    /// Where the first warp of the cell leads, on the map's torus.
    std::optional<MapCell> warpAt(MapCell cell) const;

  private:
    struct Placed
    {
        const GameEvent* event;
        const WizFloorData* type;
        std::int32_t next; ///< of the same cell; -1: none
    };

    std::size_t indexOf(MapCell cell) const
    {
        return static_cast<std::size_t>(cell.y) * static_cast<std::size_t>(map.cols) +
               static_cast<std::size_t>(cell.x);
    }

    const WizMap& map;
    std::vector<std::int32_t> first; ///< by cell; -1: none
    std::vector<Placed> placed;
};

/// The position brought onto the map's torus.
MapCell wrapped(const WizMap& map, int x, int y);

} // namespace varn
