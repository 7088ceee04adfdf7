#include "MapEditor3D/canvas/CanvasView.h"

#include <algorithm>
#include <cmath>

namespace varn {

namespace {

/// Whole cells below `pixels`, rounded down also before the first.
int cellOf(int pixels, int tileSize)
{
    return pixels >= 0 ? pixels / tileSize : -((-pixels - 1) / tileSize) - 1;
}

/// The scroll nearest to `scroll` at which [from, to) of the sheet lies in [least, most) of the
/// window.
int scrolledTo(int scroll, int from, int to, int least, int most)
{
    if (to - scroll > most)
        scroll = to - most;
    return std::min(scroll, from - least);
}

} // namespace

MapCell CanvasView::cellAt(Point window) const
{
    return {cellOf(window.x - origin() + scrollX, tileSize),
            cellOf(window.y - origin() + scrollY, tileSize)};
}

CanvasCell CanvasView::placeAt(Point window) const
{
    const MapCell cell = cellAt(window);
    const Rect place = cellInWindow(cell);
    return {cell, cellUnder({window.x - place.x, window.y - place.y}, tileSize).edge};
}

Rect CanvasView::cellInWindow(MapCell cell) const
{
    return {origin() - scrollX + cell.x * tileSize, origin() - scrollY + cell.y * tileSize,
            tileSize, tileSize};
}

int CanvasView::toDevice(int windowPixels) const
{
    return static_cast<int>(std::lround(windowPixels * scale));
}

Point CanvasView::deviceOrigin() const
{
    return {toDevice(origin() - scrollX), toDevice(origin() - scrollY)};
}

Rect CanvasView::cellOnDevice(MapCell cell) const
{
    const Point corner = deviceOrigin();
    const int side = deviceTile();
    return {corner.x + cell.x * side, corner.y + cell.y * side, side, side};
}

void CanvasView::clampScroll(const WizMap& map)
{
    scrollX = std::clamp(scrollX, 0, std::max(0, sheetWidth(map) - width));
    scrollY = std::clamp(scrollY, 0, std::max(0, sheetHeight(map) - height));
}

void CanvasView::zoomTo(int nextSize, Point window)
{
    const auto rescaled = [&](int scroll, int at) {
        const double cells = static_cast<double>(at - origin() + scroll) / tileSize;
        return static_cast<int>(std::lround(cells * nextSize)) + (nextSize + 4) - at;
    };
    const int nextX = rescaled(scrollX, window.x), nextY = rescaled(scrollY, window.y);
    tileSize = nextSize;
    scrollX = nextX;
    scrollY = nextY;
}

void CanvasView::reveal(const WizMap& map, MapCell cell)
{
    const int left = origin() + cell.x * tileSize, top = origin() + cell.y * tileSize;
    scrollX = scrolledTo(scrollX, left - tileSize, left + 2 * tileSize, kRuler, width);
    scrollY = scrolledTo(scrollY, top - tileSize, top + 2 * tileSize, kRuler, height);
    clampScroll(map);
}

void CanvasView::centreOn(const WizMap& map, MapCell cell)
{
    scrollX = origin() + cell.x * tileSize + tileSize / 2 - (width + kRuler) / 2;
    scrollY = origin() + cell.y * tileSize + tileSize / 2 - (height + kRuler) / 2;
    clampScroll(map);
}

CanvasPoint aim(WizMapEditor& editor, const CanvasView& view, Point window)
{
    const WizMap& map = editor.getMap();
    const MapCell cell = view.cellAt(window);
    const Rect place = view.cellInWindow(cell);
    // A cell before the first is outside wherever the editor's scroll lies.
    const int across = std::min(map.cols, kVisibleCells), down = std::min(map.rows, kVisibleCells);
    editor.setScroll({cell.x - across / 2, cell.y - down / 2});
    return {across / 2 * view.tileSize + window.x - place.x,
            down / 2 * view.tileSize + window.y - place.y};
}

} // namespace varn
