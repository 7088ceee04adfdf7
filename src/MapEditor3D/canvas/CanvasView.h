#pragma once

#include "Graphics/Raster.h"
#include "MapEditor3D/WizMapEditor.h"
#include "Util/Rect.h"

namespace varn {

/// How the sheet lies in its window. Window pixels are those that pointers and layouts count in
/// ("logical"); device pixels are those of the surface, `scale` to one of them. The rulers lie over
/// the upper and left edge of the window; the first cell stands one cell and a bit from its corner
/// (`WizMapEditor::getOrigin`) as long as nothing is scrolled, so that a strip of the cells beyond
/// the seam can be seen.
///
/// Sizes of cells are multiples of 4, so quarters of a scale (1.25, 1.5, 1.75) give whole device
/// pixels.
struct CanvasView
{
    /// Width of a ruler in window pixels.
    static constexpr int kRuler = 24;

    int width = 0, height = 0;    ///< of the window, in window pixels
    double scale = 1;             ///< 1 to 4
    int tileSize = 20;            ///< window pixels of a cell; `WizMapEditor::getTileSize`
    int scrollX = 0, scrollY = 0; ///< window pixels that the sheet is moved left and up

    bool operator==(const CanvasView&) const = default;

    int origin() const { return tileSize + 4; }
    /// The cell under a point of the window; may lie beyond the map, also before its first cell.
    MapCell cellAt(Point window) const;
    /// The same with its nearest edge, in cells of the map; for lighting up what a click would
    /// take.
    CanvasCell placeAt(Point window) const;
    /// The cell in window pixels.
    Rect cellInWindow(MapCell cell) const;
    /// Points under the rulers are not on the sheet.
    bool isOnSheet(Point window) const { return window.x >= kRuler && window.y >= kRuler; }

    // In device pixels.
    int toDevice(int windowPixels) const;
    int deviceTile() const { return toDevice(tileSize); }
    /// The corner of cell (0, 0) on the surface.
    Point deviceOrigin() const;
    Rect cellOnDevice(MapCell cell) const;

    /// Window pixels of the whole sheet with its margins: the range of the scroll bars.
    int sheetWidth(const WizMap& map) const { return map.cols * tileSize + 2 * origin(); }
    int sheetHeight(const WizMap& map) const { return map.rows * tileSize + 2 * origin(); }
    /// The scroll back into that range.
    void clampScroll(const WizMap& map);
    /// Takes another size of cells; what lies under the point stays there.
    void zoomTo(int tileSize, Point window);
    /// Scrolls just as far as it takes to show a cell, with one more around it.
    void reveal(const WizMap& map, MapCell cell);
    void centreOn(const WizMap& map, MapCell cell);
};

/// Brings a pointer of the window to the editor, which sees at most 50 by 50 cells from its own
/// scroll on: that scroll is moved so that the point lies in its middle, whatever the window shows.
/// A band that is being drawn stays on its cells. The result goes to `press`, `move`, `release` and
/// `doubleClick`.
CanvasPoint aim(WizMapEditor& editor, const CanvasView& view, Point window);

} // namespace varn
