#include "MapEditor3D/canvas/MapPainter.h"

#include <algorithm>
#include <cstring>

namespace varn {

namespace {

/// Above so many parts, one rectangle around all of them is painted.
constexpr std::size_t kMostParts = 24;

bool contains(const Rect& outer, const Rect& inner)
{
    return outer.left <= inner.left && outer.top <= inner.top && outer.right >= inner.right &&
           outer.bottom >= inner.bottom;
}

Rect around(const Rect& a, const Rect& b)
{
    const int left = std::min(a.left, b.left), top = std::min(a.top, b.top);
    return {left, top, std::max(a.right, b.right) - left, std::max(a.bottom, b.bottom) - top};
}

std::int64_t areaOf(const Rect& rect)
{
    return std::int64_t{rect.width} * rect.height;
}

/// The size at which an event's picture is painted: half sizes of its 16 pixels keep its strokes
/// even.
int eventSide(int cell)
{
    return std::max(8, cell * 9 / 10 / 8 * 8);
}

} // namespace

MapPainter::MapPainter(WizMapEditor& editor) : editor(editor)
{
    editor.addListener(*this);
    mapLoaded();
}

MapPainter::~MapPainter()
{
    editor.removeListener(*this);
}

void MapPainter::setView(const CanvasView& next)
{
    if (next == view)
        return;
    view = next;
    invalidate();
}

void MapPainter::setPalette(const CanvasPalette& next)
{
    palette = next;
    invalidate();
}

void MapPainter::setOptions(const CanvasOptions& next)
{
    if (next == options)
        return;
    options = next;
    invalidate();
}

void MapPainter::setHover(std::optional<CanvasCell> place)
{
    if (place == hover)
        return;
    markHover();
    hover = place;
    markHover();
}

void MapPainter::reloadImages()
{
    images.clear();
    edges.forget();
    floorTiles.forget();
    eventTiles.forget();
    mapLoaded();
}

void MapPainter::invalidate()
{
    allDirty = true;
    labelsCurrent = false;
    dirty.clear();
}

void MapPainter::mapLoaded()
{
    images.update(editor.getMap());
    invalidate();
}

void MapPainter::eventsChanged()
{
    markEvents();
    markWarp();
    labelsCurrent = false; // they keep clear of events
}

void MapPainter::areasChanged(const CellRect& cells)
{
    markCells({cells.left - 1, cells.top - 1, cells.right + 1, cells.bottom + 1});
    labelsCurrent = false;
}

void MapPainter::tileSelected(int)
{
    if (editor.getMode() == EditorMode::Area)
        invalidate(); // the area that is painted stands out
    else
        gestureChanged();
}

void MapPainter::eventSelected(std::optional<std::size_t>)
{
    markEvents();
    markWarp();
}

void MapPainter::toolChanged()
{
    invalidate();
}

void MapPainter::gestureChanged()
{
    markHover();
    markBand();
}

void MapPainter::bandChanged()
{
    markBand();
}

void MapPainter::walkerMoved()
{
    markWalker();
}

Rect MapPainter::surfaceRect() const
{
    return {0, 0, view.toDevice(view.width), view.toDevice(view.height)};
}

void MapPainter::mark(Rect device)
{
    const Rect surface = surfaceRect();
    if (allDirty || !device.overlaps(surface))
        return;
    const int left = std::max(0, device.left), top = std::max(0, device.top);
    device = {left, top, std::min(surface.right, device.right) - left,
              std::min(surface.bottom, device.bottom) - top};
    // One part for two that would paint much of the same twice.
    for (std::size_t i = 0; i < dirty.size();) {
        if (contains(dirty[i], device))
            return;
        const Rect both = around(dirty[i], device);
        if (areaOf(both) <= areaOf(dirty[i]) + areaOf(device)) {
            device = both;
            dirty.erase(dirty.begin() + static_cast<std::ptrdiff_t>(i));
            i = 0;
        } else {
            ++i;
        }
    }
    dirty.push_back(device);
    if (dirty.size() > kMostParts) {
        Rect all = dirty.front();
        for (const Rect& one : dirty)
            all = around(all, one);
        dirty.assign(1, all);
    }
}

void MapPainter::markCells(const CellRect& cells)
{
    // Shapes on an edge reach half a cell to either side.
    const int reach = view.deviceTile() / 2 + 2;
    const auto markAt = [&](int dx, int dy) {
        const Rect first = view.cellOnDevice({cells.left + dx, cells.top + dy});
        mark({first.x - reach, first.y - reach, cells.width() * first.width + 2 * reach,
              cells.height() * first.height + 2 * reach});
    };
    markAt(0, 0);
    // What lies along one side of the map shows beyond the other one too.
    const WizMap& map = editor.getMap();
    const int atX = cells.left <= 0 ? map.cols : cells.right >= map.cols ? -map.cols : 0;
    const int atY = cells.top <= 0 ? map.rows : cells.bottom >= map.rows ? -map.rows : 0;
    if (atX != 0)
        markAt(atX, 0);
    if (atY != 0)
        markAt(0, atY);
    if (atX != 0 && atY != 0)
        markAt(atX, atY);
}

void MapPainter::markFrame(const Rect& device, int reach)
{
    const int thick = 2 * reach;
    mark({device.x - reach, device.y - reach, device.width + thick, thick});
    mark({device.x - reach, device.bottom - reach, device.width + thick, thick});
    mark({device.x - reach, device.y - reach, thick, device.height + thick});
    mark({device.right - reach, device.y - reach, thick, device.height + thick});
}

void MapPainter::markHover()
{
    if (!hover)
        return;
    const int reach = view.deviceTile() / 2 + 2;
    const Rect cell = view.cellOnDevice(hover->cell);
    mark({cell.x - reach, cell.y - reach, cell.width + 2 * reach, cell.height + 2 * reach});
    const int ruler = view.toDevice(CanvasView::kRuler);
    mark({cell.x, 0, cell.width, ruler});
    mark({0, cell.y, ruler, cell.height});
}

void MapPainter::markBand()
{
    const int reach = view.deviceTile() + 2;
    const auto markOf = [&](const std::optional<MapCursor::Band>& band) {
        if (!band)
            return;
        const auto [left, right] = std::minmax({band->from.x, band->to.x});
        const auto [top, bottom] = std::minmax({band->from.y, band->to.y});
        const Rect first = view.cellOnDevice({left, top});
        markFrame(
            {first.x, first.y, (right - left + 1) * first.width, (bottom - top + 1) * first.height},
            reach);
    };
    markOf(bandShown);
    bandShown = editor.getBand();
    if (bandShown) {
        const MapCell scroll = editor.getScroll();
        for (MapCell* const end : {&bandShown->from, &bandShown->to}) {
            end->x += scroll.x;
            end->y += scroll.y;
        }
    }
    markOf(bandShown);
}

/// A long line is cut into pieces, so that a way across the map does not repaint the map.
void MapPainter::markWarp()
{
    const auto markOf = [&](const std::optional<WarpWay>& way) {
        if (!way)
            return;
        const int side = view.deviceTile();
        const Rect from = view.cellOnDevice(way->from), to = view.cellOnDevice(way->to);
        const int steps =
            1 + std::max(std::abs(way->to.x - way->from.x), std::abs(way->to.y - way->from.y)) / 4;
        for (int i = 0; i < steps; ++i) {
            const auto along = [&](int a, int b, int step) { return a + (b - a) * step / steps; };
            const Rect piece =
                around({along(from.x, to.x, i), along(from.y, to.y, i), side, side},
                       {along(from.x, to.x, i + 1), along(from.y, to.y, i + 1), side, side});
            mark({piece.x - 4, piece.y - 4, piece.width + 8, piece.height + 8});
        }
    };
    markOf(warpShown);
    warpShown = selectedWarpWay(editor);
    markOf(warpShown);
}

void MapPainter::markWalker()
{
    const auto markAt = [&](MapCell cell) {
        const Rect place = view.cellOnDevice(cell);
        mark({place.x - 2, place.y - 2, place.width + 4, place.height + 4});
    };
    markAt(walkerShown);
    walkerShown = editor.getCursor().cell;
    markAt(walkerShown);
}

std::vector<MapCell> MapPainter::eventCells() const
{
    std::vector<MapCell> cells;
    for (const auto& event : editor.getMap().events.list())
        cells.push_back({event->x, event->y});
    return cells;
}

void MapPainter::markEvents()
{
    std::vector<MapCell> now = eventCells();
    for (const auto* const cells : {&eventsShown, &now})
        for (const MapCell& cell : *cells)
            markCells({cell.x, cell.y, cell.x + 1, cell.y + 1});
    eventsShown = std::move(now);
}

/// Labels may move when their areas change.
void MapPainter::placeLabels()
{
    if (labelsCurrent)
        return;
    std::vector<AreaLabel> next = placeAreaLabels(editor.getMap(), view);
    const auto markMoved = [&](const std::vector<AreaLabel>& some,
                               const std::vector<AreaLabel>& others) {
        for (const AreaLabel& label : some) {
            if (std::find(others.begin(), others.end(), label) != others.end())
                continue;
            const Rect& place = label.place;
            mark({place.x - 4, place.y - 4, place.width + 8, place.height + 8});
        }
    };
    markMoved(labels, next);
    markMoved(next, labels);
    labels = std::move(next);
    labelsCurrent = true;
}

std::vector<Rect> MapPainter::paint(Graphics& surface)
{
    const Rect whole = surfaceRect();
    if (whole.width < 1 || whole.height < 1)
        return {};
    if (surface.getWidth() != whole.width || surface.getHeight() != whole.height) {
        surface.setSize(whole.width, whole.height);
        allDirty = true;
    }
    placeLabels();
    if (!isDirty())
        return {};

    const int side = view.deviceTile();
    floorTiles.use(images.find(ImageType::Floor2D), side);
    eventTiles.use(images.find(ImageType::EventFloor), eventSide(side));
    edges.use(options.walls == WallLook::Strip ? images.find(ImageType::Wall2D) : nullptr, side,
              palette);
    const SheetScene scene{editor,     view,       palette, options, images,
                           floorTiles, eventTiles, edges,   labels,  hover};
    if (allDirty) {
        SheetPainter(scene, surface, whole).paint();
        bandShown.reset();
        markBand();
        warpShown = selectedWarpWay(editor);
        walkerShown = editor.getCursor().cell;
        eventsShown = eventCells();
        allDirty = false;
        dirty.clear();
        return {whole};
    }
    const std::vector<Rect> parts = std::move(dirty);
    dirty.clear();
    for (const Rect& part : parts) {
        if (scratch.getWidth() < part.width || scratch.getHeight() < part.height)
            scratch.setSize(std::max(scratch.getWidth(), part.width),
                            std::max(scratch.getHeight(), part.height));
        SheetPainter(scene, scratch, part).paint();
        const Bitmap& from = scratch.getBitmap();
        Bitmap& to = surface.getBitmap();
        for (int y = 0; y < part.height; ++y)
            std::memcpy(to.getBits() + static_cast<std::size_t>(part.y + y) * to.getStride() +
                            static_cast<std::size_t>(part.x) * 4,
                        from.getBits() + static_cast<std::size_t>(y) * from.getStride(),
                        static_cast<std::size_t>(part.width) * 4);
    }
    return parts;
}

} // namespace varn
