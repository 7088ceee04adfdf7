#pragma once

#include "MapEditor3D/WizMapEditor.h"

#include <optional>

namespace varn {

/// One wall kind or floor tile that takes the place of another.
struct TileReplacement
{
    enum class Layer
    {
        Walls,
        Floor
    };

    Layer layer = Layer::Walls;
    int from = 0, to = 0;
    std::optional<int> area; ///< number of the area whose cells are meant; nothing: all cells
};

/// How many edges or cells of the map it would change. Each edge counts once, also where both its
/// cells are meant.
int countTiles(const WizMap& map, const TileReplacement& replacement);

/// Replaces them as one step of undo. @return how many were changed
int replaceTiles(WizMapEditor& editor, const TileReplacement& replacement);

} // namespace varn
