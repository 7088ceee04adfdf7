#pragma once

#include "Util/Colour.h"

#include <array>
#include <cstdint>

namespace varn {

/// The colours of the canvas. What tells something has a shape as well; these only make it easy on
/// the eyes.
struct CanvasPalette
{
    bool dark = false; ///< strips of the project are turned to light strokes, tiles dimmed

    ColourRef desk;  ///< beyond the map
    ColourRef paper; ///< an empty cell
    ColourRef grid;  ///< lines between cells, and every fifth of them
    ColourRef gridStrong;
    ColourRef border;  ///< the edge of the map
    ColourRef ink;     ///< walls
    ColourRef inkSoft; ///< what is there but not seen: invisible walls
    ColourRef signal;  ///< marks on walls that people must notice: secret doors
    ColourRef halo;    ///< around strokes and texts, so that they stand off any floor tile
    ColourRef ruler;   ///< the bands with the numbers
    ColourRef rulerText;
    ColourRef rulerMark; ///< behind the numbers of the pointer's column and row
    ColourRef rulerMarkText;
    ColourRef hover; ///< around what would be written
    ColourRef erase; ///< around what would be taken away
    ColourRef band;  ///< the rubber band
    ColourRef walker;
    ColourRef walkerEdge;
    ColourRef event; ///< plate of an event whose type has no picture
    ColourRef eventText;
    ColourRef selection;            ///< frame of the selected event
    std::array<ColourRef, 8> areas; ///< tints, by an area's number modulo 8
    std::uint8_t tileDim;           ///< how much of `paper` lies over floor tiles: 0 none, 255 all

    bool operator==(const CanvasPalette&) const = default;
};

const CanvasPalette& lightCanvasPalette();
const CanvasPalette& darkCanvasPalette();

} // namespace varn
