#pragma once

#include "Game/Map/View/WizMapImage.h"
#include "Graphics/Graphics.h"

namespace varn {

/// Part of a map and where it goes on a surface.
struct MapSheet
{
    int firstColumn = 0, firstRow = 0;
    int columns = 0, rows = 0;
    int x = 0, y = 0;     ///< place of the first cell, in pixels
    int tileSize = 16;    ///< pixels of a cell's side
    bool numbers = false; ///< column numbers above, row numbers (from the bottom) at the left
    bool events = true;
};

/// The map seen from above: grid and floor tiles, events, then walls, from the pictures of the map.
/// What has no picture is left out.
void drawMap(Graphics& graphics, const WizMap& map, const WizMapImage& images,
             const MapSheet& sheet);

/// Pixels of a cell on printed maps, and of the margin that holds the numbers.
inline constexpr int kPrintedCell = 16;

/// How a map is printed; as it stands, as the tool does it unasked.
struct MapPrint
{
    int cellSize = kPrintedCell; ///< pixels, even
    bool numbers = true;
    bool events = true;
};

/// Makes the surface of a printed map: all its cells, a margin of 16 pixels on every side. False:
/// it would be too large.
bool drawMapPicture(Graphics& graphics, const WizMap& map, const WizMapImage& images,
                    const MapPrint& print = {});

} // namespace varn
