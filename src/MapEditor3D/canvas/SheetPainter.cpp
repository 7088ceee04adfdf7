#include "MapEditor3D/canvas/SheetPainter.h"

#include "Game/Database/WizFloor.h"
#include "Graphics/Blit.h"
#include "MapEditor3D/canvas/WarpWay.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace varn {

namespace {

/// Every so many cells a line of the grid is stronger.
constexpr int kStrongEvery = 5;
/// The arrow of a warp: on its place, and one pixel to the lower right.
constexpr ColourRef kWarpLine = 0xFFC8C8, kWarpShadow = 0xFF4646;
/// How much of the desk lies over the cells beyond the edge of the map.
constexpr int kVeil = 150;

int floorDivide(int value, int by)
{
    return value >= 0 ? value / by : -((-value - 1) / by) - 1;
}

std::uint32_t toPixel(ColourRef colour)
{
    return blueOf(colour) | greenOf(colour) << 8 | redOf(colour) << 16 | 0xFF000000;
}

Rect clipped(const Rect& rect, const Rect& to)
{
    const int left = std::max(rect.left, to.left), top = std::max(rect.top, to.top);
    return {left, top, std::max(0, std::min(rect.right, to.right) - left),
            std::max(0, std::min(rect.bottom, to.bottom) - top)};
}

Rect inset(const Rect& rect, int by)
{
    return {rect.x + by, rect.y + by, rect.width - 2 * by, rect.height - 2 * by};
}

} // namespace

SheetPainter::SheetPainter(const SheetScene& scene, Graphics& target, const Rect& part)
    : scene(scene), map(scene.editor.getMap()), view(scene.view), palette(scene.palette),
      target(target), part(part), side(view.deviceTile())
{
    const Point corner = view.deviceOrigin();
    origin = {corner.x - part.x, corner.y - part.y};
    firstX = std::max(-1, floorDivide(part.left - corner.x, side));
    endX = std::min(map.cols + 1, floorDivide(part.right - 1 - corner.x, side) + 1);
    firstY = std::max(-1, floorDivide(part.top - corner.y, side));
    endY = std::min(map.rows + 1, floorDivide(part.bottom - 1 - corner.y, side) + 1);
}

void SheetPainter::paint()
{
    fill({0, 0, part.width, part.height}, palette.desk);
    if (firstX < endX && firstY < endY) {
        paintPaper();
        paintFloor();
        if (scene.options.areas)
            paintAreas();
        if (scene.options.events)
            paintEvents();
        paintWalls();
        paintVeil();
    }
    if (scene.options.areas)
        paintAreaNames();
    paintHover();
    paintBand();
    if (scene.options.events)
        paintWarp();
    if (scene.options.walker)
        paintWalker();
    paintRulers();
}

template <class Visit>
void SheetPainter::forEachCell(Visit visit) const
{
    for (int y = firstY; y < endY; ++y)
        for (int x = firstX; x < endX; ++x)
            visit(x, y);
}

const WizMapData& SheetPainter::cellAt(int x, int y) const
{
    return map.cellAt(wrapOnRing(x, map.cols), wrapOnRing(y, map.rows));
}

Rect SheetPainter::placeOf(int x, int y) const
{
    return {origin.x + x * side, origin.y + y * side, side, side};
}

Point SheetPainter::middleOf(int x, int y) const
{
    return {origin.x + x * side + side / 2, origin.y + y * side + side / 2};
}

bool SheetPainter::isBeyond(int x, int y) const
{
    return x < 0 || y < 0 || x >= map.cols || y >= map.rows;
}

int SheetPainter::thin() const
{
    return std::max(1, static_cast<int>(view.scale + 0.25));
}

void SheetPainter::fill(const Rect& rect, ColourRef colour, int opacity)
{
    target.fillRect(clipped(rect, {0, 0, part.width, part.height}), colour,
                    static_cast<std::uint8_t>(opacity));
}

void SheetPainter::frame(const Rect& rect, int width, ColourRef colour, int opacity)
{
    fill({rect.x, rect.y, rect.width, width}, colour, opacity);
    fill({rect.x, rect.bottom - width, rect.width, width}, colour, opacity);
    fill({rect.x, rect.y + width, width, rect.height - 2 * width}, colour, opacity);
    fill({rect.right - width, rect.y + width, width, rect.height - 2 * width}, colour, opacity);
}

/// Paper with its grid: a row of pixels is made once for each kind of row and copied down.
void SheetPainter::paintPaper()
{
    const Rect paper = clipped({placeOf(firstX, firstY).x, placeOf(firstX, firstY).y,
                                (endX - firstX) * side, (endY - firstY) * side},
                               {0, 0, part.width, part.height});
    const int line = scene.options.grid ? thin() : 0;
    std::vector<std::uint32_t> plain(static_cast<std::size_t>(paper.width), toPixel(palette.paper));
    std::vector<std::uint32_t> across(plain.size(), toPixel(palette.grid));
    std::vector<std::uint32_t> acrossStrong(plain.size(), toPixel(palette.gridStrong));
    for (int pass = 0; pass < 2 && line > 0; ++pass) { // strong lines lie over weak ones
        for (int x = firstX; x <= endX; ++x) {
            const bool strong = x % kStrongEvery == 0;
            if (strong != (pass == 1))
                continue;
            const std::uint32_t colour = toPixel(strong ? palette.gridStrong : palette.grid);
            for (int i = 0; i < line; ++i) {
                const int at = origin.x + x * side + i - paper.x;
                if (at < 0 || at >= paper.width)
                    continue;
                plain[static_cast<std::size_t>(at)] = colour;
                if (strong)
                    across[static_cast<std::size_t>(at)] = colour;
            }
        }
    }
    Bitmap& bitmap = target.getBitmap();
    for (int y = paper.top; y < paper.bottom; ++y) {
        const int row = floorDivide(y - origin.y, side);
        const bool onLine = y - origin.y - row * side < line;
        const bool strong = (map.rows - row) % kStrongEvery == 0;
        const auto& pixels = !onLine ? plain : strong ? acrossStrong : across;
        std::memcpy(bitmap.getBits() + static_cast<std::size_t>(y) * bitmap.getStride() +
                        static_cast<std::size_t>(paper.left) * 4,
                    pixels.data(), pixels.size() * 4);
    }

    const Image* const background = scene.images.find(ImageType::Background2D);
    if (!background)
        return;
    target.drawImage(*background, {origin.x, origin.y, map.cols * side, map.rows * side},
                     background->getBounds());
    if (palette.tileDim)
        fill({origin.x, origin.y, map.cols * side, map.rows * side}, palette.paper,
             palette.tileDim);
    forEachCell([&](int x, int y) {
        if (!isBeyond(x, y))
            paintGridLines(placeOf(x, y), x, y, 120);
    });
}

/// The two lines at the upper and the left side of a cell.
void SheetPainter::paintGridLines(const Rect& place, int x, int y, int opacity)
{
    if (!scene.options.grid)
        return;
    const auto colour = [&](bool strong) { return strong ? palette.gridStrong : palette.grid; };
    fill({place.x, place.y, place.width, thin()}, colour((map.rows - y) % kStrongEvery == 0),
         opacity);
    fill({place.x, place.y + thin(), thin(), place.height - thin()}, colour(x % kStrongEvery == 0),
         opacity);
}

void SheetPainter::paintFloor()
{
    forEachCell([&](int x, int y) {
        const int index = cellAt(x, y).floor;
        if (index == 0)
            return;
        const Rect place = placeOf(x, y);
        if (scene.floorTiles.draw(target, index, {place.x, place.y})) {
            if (palette.tileDim)
                fill(place, palette.paper, palette.tileDim);
            paintGridLines(place, x, y, 100);
        } else {
            // A number that the strip does not have: shaded, so that it is not taken for empty.
            fill(inset(place, thin()), palette.grid);
        }
    });
}

void SheetPainter::paintAreas()
{
    for (const AreaModel& area : map.areas.list())
        paintArea(area);
}

/// A tint over its cells and a line along its rim.
void SheetPainter::paintArea(const AreaModel& area)
{
    // Its cells in the part and around it, as a board: a look at a neighbour then costs nothing.
    const int columns = endX - firstX + 2, rows = endY - firstY + 2;
    std::vector<std::uint8_t> board(static_cast<std::size_t>(columns) *
                                    static_cast<std::size_t>(rows));
    const auto isIn = [&](int x, int y) -> std::uint8_t& {
        return board[static_cast<std::size_t>((y - firstY + 1) * columns + x - firstX + 1)];
    };
    const auto& cells = area.getCoordinates();
    bool any = false;
    for (auto at = std::lower_bound(cells.begin(), cells.end(),
                                    AreaModel::Coodinate{INT32_MIN, firstY - 1});
         at != cells.end() && at->y <= endY; ++at) {
        if (at->x < firstX - 1 || at->x > endX || at->y < 0 || at->x < 0 || at->x >= map.cols ||
            at->y >= map.rows)
            continue;
        isIn(at->x, at->y) = 1;
        any = true;
    }
    if (!any)
        return;

    const bool isMode = scene.editor.getMode() == EditorMode::Area;
    const bool isSelected = isMode && scene.editor.getSelectedTile() == area.number;
    const int tint = isSelected ? 110 : isMode ? 70 : 30;
    const int rimOpacity = isSelected ? 255 : isMode ? 200 : 110;
    const int rim = isSelected ? 2 * thin() : thin();
    const ColourRef colour =
        palette.areas[static_cast<std::size_t>(area.number) % palette.areas.size()];
    for (int y = firstY; y < endY; ++y) {
        for (int x = firstX; x < endX; ++x) {
            if (!isIn(x, y))
                continue;
            int end = x + 1;
            while (end < endX && isIn(end, y))
                ++end;
            const Rect run(placeOf(x, y).x, placeOf(x, y).y, (end - x) * side, side);
            fill(run, colour, tint);
            for (; x < end; ++x) {
                const Rect place = placeOf(x, y);
                if (!isIn(x, y - 1))
                    fill({place.x, place.y, side, rim}, colour, rimOpacity);
                if (!isIn(x, y + 1))
                    fill({place.x, place.bottom - rim, side, rim}, colour, rimOpacity);
                if (!isIn(x - 1, y))
                    fill({place.x, place.y, rim, side}, colour, rimOpacity);
                if (!isIn(x + 1, y))
                    fill({place.right - rim, place.y, rim, side}, colour, rimOpacity);
            }
        }
    }
}

void SheetPainter::paintEvents()
{
    const WizFloorList& types = WizFloorList::instance();
    const auto selected = scene.editor.getSelectedEvent();
    for (std::size_t i = 0; i < map.events.size(); ++i) {
        const GameEvent& event = map.events.at(i);
        const bool known = event.type >= 0 && static_cast<std::size_t>(event.type) < types.size();
        // A kind that is not shown on the map can still be found while events are edited.
        const bool shown =
            !known || types.at(static_cast<std::size_t>(event.type)).getVisibility2D();
        if (!shown && scene.editor.getMode() != EditorMode::Event)
            continue;
        for (const int x : {event.x, event.x - map.cols, event.x + map.cols}) {
            for (const int y : {event.y, event.y - map.rows, event.y + map.rows}) {
                if (x < firstX || x >= endX || y < firstY || y >= endY)
                    continue;
                paintEvent(event, placeOf(x, y), shown ? 1 : 0.5);
                if (selected == i && scene.editor.getMode() == EditorMode::Event)
                    frame(inset(placeOf(x, y), thin()), 2 * thin(), palette.selection);
            }
        }
    }
}

void SheetPainter::paintEvent(const GameEvent& event, const Rect& place, double opacity)
{
    const int off = (side - scene.eventTiles.getSide()) / 2;
    if (scene.eventTiles.draw(target, event.type, {place.x + off, place.y + off}, opacity))
        return;
    // A kind without a picture: a lozenge, as pins on a plan.
    const float reach = static_cast<float>(side) * 0.3F;
    Glyph lozenge;
    lozenge.add(GlyphShape::polygon({{0, -reach}, {reach, 0}, {0, reach}, {-reach, 0}}),
                palette.event);
    lozenge.add(GlyphShape::disc({0, 0}, reach * 0.3F), palette.eventText);
    render(lozenge).draw(target, {place.x + side / 2, place.y + side / 2}, opacity);
}

/// The edges of the part's cells and those on its far rim, each once: the upper and the left one of
/// every cell. `visit(kind, run, middle, isFloored)`; the last: a tile or the map's background lies
/// beside it.
template <class Visit>
void SheetPainter::forEachWall(Visit visit) const
{
    const int half = side / 2;
    const bool background = scene.images.find(ImageType::Background2D) != nullptr;
    // Shapes reach half a cell beyond their edge.
    for (int y = firstY - 1; y <= endY + 1; ++y) {
        for (int x = firstX - 1; x <= endX + 1; ++x) {
            if (x < -1 || y < -1 || x > map.cols + 1 || y > map.rows + 1)
                continue;
            const WizMapData& cell = cellAt(x, y);
            const Rect place = placeOf(x, y);
            // The far sides of the map show their own byte, which a file may hold unequal.
            const int level = y == map.rows ? cellAt(x, y - 1).south : cell.north;
            const int upright = x == map.cols ? cellAt(x - 1, y).east : cell.west;
            const auto isFloored = [&](const WizMapData& neighbour) {
                return cell.floor != 0 || neighbour.floor != 0 || background;
            };
            if (level != 0 && x <= map.cols)
                visit(level, EdgeRun::Level, Point{place.x + half, place.y},
                      isFloored(cellAt(x, y - 1)));
            if (upright != 0 && y <= map.rows)
                visit(upright, EdgeRun::Upright, Point{place.x, place.y + half},
                      isFloored(cellAt(x - 1, y)));
        }
    }
}

void SheetPainter::paintWalls()
{
    // On bare paper a stroke needs no halo.
    forEachWall([&](int kind, EdgeRun run, Point middle, bool isFloored) {
        if (isFloored)
            scene.edges.drawHalo(target, kind, run, middle);
    });
    forEachWall([&](int kind, EdgeRun run, Point middle, bool) {
        scene.edges.draw(target, kind, run, middle);
    });
}

/// What lies beyond the edge shows only faintly, and the edge has a line.
void SheetPainter::paintVeil()
{
    const Rect sheet(origin.x, origin.y, map.cols * side, map.rows * side);
    const int line = thin();
    // Walls on the edge keep their outer half.
    const int keep = wallThickness(side) / 2 + line;
    const Rect all(0, 0, part.width, part.height);
    const Rect inner(sheet.x - keep, sheet.y - keep, sheet.width + 2 * keep,
                     sheet.height + 2 * keep);
    const auto veil = [&](int left, int top, int right, int bottom) {
        fill(clipped({left, top, std::max(0, right - left), std::max(0, bottom - top)}, all),
             palette.desk, kVeil);
    };
    veil(0, 0, part.width, inner.top);
    veil(0, inner.bottom, part.width, part.height);
    veil(0, std::max(0, inner.top), inner.left, std::min(part.height, inner.bottom));
    veil(inner.right, std::max(0, inner.top), part.width, std::min(part.height, inner.bottom));
    // Beyond the one cell around the map there is desk; shapes on the outermost edges reach into
    // it.
    const Rect around(sheet.x - side, sheet.y - side, sheet.width + 2 * side,
                      sheet.height + 2 * side);
    const auto desk = [&](int left, int top, int right, int bottom) {
        fill(clipped({left, top, std::max(0, right - left), std::max(0, bottom - top)}, all),
             palette.desk);
    };
    desk(0, 0, part.width, around.top);
    desk(0, around.bottom, part.width, part.height);
    desk(0, 0, around.left, part.height);
    desk(around.right, 0, part.width, part.height);

    frame({sheet.x - keep, sheet.y - keep, sheet.width + 2 * keep, sheet.height + 2 * keep}, line,
          palette.border);
}

void SheetPainter::paintAreaNames()
{
    if (scene.labels.empty())
        return;
    target.selectFont(areaLabelFont(view));
    const int halo = thin();
    for (const AreaLabel& label : scene.labels) {
        const Rect around(label.place.x - halo - part.x, label.place.y - halo - part.y,
                          label.place.width + 2 * halo, label.place.height + 2 * halo);
        if (!around.overlaps({0, 0, part.width, part.height}))
            continue;
        const int x = around.x + halo, y = around.y + halo;
        target.setTextColor(palette.halo);
        for (const auto& [dx, dy] :
             {Point{-halo, 0}, Point{halo, 0}, Point{0, -halo}, Point{0, halo}, Point{-halo, -halo},
              Point{halo, halo}, Point{-halo, halo}, Point{halo, -halo}})
            target.drawString(label.text, x + dx, y + dy);
        target.setTextColor(palette.ink);
        target.drawString(label.text, x, y);
    }
}

/// The way to the target of the selected event: a line from middle to middle, and a box around the
/// target's cell.
void SheetPainter::paintWarp()
{
    const auto way = selectedWarpWay(scene.editor);
    if (!way)
        return;
    const Point from = middleOf(way->from.x, way->from.y), to = middleOf(way->to.x, way->to.y);
    const int shift = thin();
    target.setPen(kWarpShadow, thin());
    target.drawLine(from.x + shift, from.y + shift, to.x + shift, to.y + shift);
    target.setPen(kWarpLine, thin());
    target.drawLine(from.x, from.y, to.x, to.y);
    frame(placeOf(way->to.x, way->to.y), 2 * thin(), kWarpShadow);
}

void SheetPainter::paintHover()
{
    if (!scene.hover)
        return;
    const CanvasCell& at = *scene.hover;
    if (at.cell.x < 0 || at.cell.y < 0 || at.cell.x > map.cols || at.cell.y > map.rows)
        return;
    const Rect place = placeOf(at.cell.x, at.cell.y);
    const WizMapEditor& editor = scene.editor;
    const int value = editor.getSelectedTile();
    const bool erases = editor.isErasing() || value == 0;
    const int width = 2 * thin();
    const ColourRef colour = erases ? palette.erase : palette.hover;
    switch (editor.getMode()) {
    case EditorMode::Event:
        frame(place, width, palette.selection, 200);
        if (const auto held = editor.getSelectedEvent(); held && editor.isEventHeld())
            paintEvent(map.events.at(*held), place, 0.7);
        return;
    case EditorMode::Area:
        if (erases) {
            frame(place, width, palette.erase);
            return;
        }
        fill(place, palette.areas[static_cast<std::size_t>(value) % palette.areas.size()], 90);
        frame(place, width, palette.areas[static_cast<std::size_t>(value) % palette.areas.size()]);
        return;
    case EditorMode::Tile:
        break;
    }
    if (!editor.isFloorLayer()) {
        paintHoveredEdge(at, erases);
        return;
    }
    if (!erases && scene.floorTiles.draw(target, value, {place.x, place.y})) {
        if (palette.tileDim)
            fill(place, palette.paper, palette.tileDim / 2);
    }
    frame(place, width, colour);
}

/// The edge that a click would take, with what it would write there.
void SheetPainter::paintHoveredEdge(const CanvasCell& at, bool erases)
{
    const Rect place = placeOf(at.cell.x, at.cell.y);
    const EdgeRun run = at.edge == Direction::North || at.edge == Direction::South
                            ? EdgeRun::Level
                            : EdgeRun::Upright;
    const int x = at.edge == Direction::East ? place.right : place.x;
    const int y = at.edge == Direction::South ? place.bottom : place.y;
    const ColourRef colour = erases ? palette.erase : palette.hover;
    const int reach = wallThickness(side) / 2 + 2 * thin();
    const Rect glow = run == EdgeRun::Level
                          ? Rect(x - reach, y - reach, side + 2 * reach, 2 * reach)
                          : Rect(x - reach, y - reach, 2 * reach, side + 2 * reach);
    fill(glow, colour, 90);
    frame(glow, thin(), colour);
    const Point middle = run == EdgeRun::Level ? Point{x + side / 2, y} : Point{x, y + side / 2};
    if (!erases)
        scene.edges.draw(target, scene.editor.getSelectedTile(), run, middle);
}

void SheetPainter::paintBand()
{
    const auto& band = scene.editor.getBand();
    if (!band)
        return;
    const MapCell scroll = scene.editor.getScroll();
    const auto [left, right] = std::minmax({band->from.x + scroll.x, band->to.x + scroll.x});
    const auto [top, bottom] = std::minmax({band->from.y + scroll.y, band->to.y + scroll.y});
    const ColourRef colour = scene.editor.isErasing() || scene.editor.getSelectedTile() == 0
                                 ? palette.erase
                                 : palette.band;
    if (scene.editor.bandSnapsToCells()) {
        // The ring of cells that will be written.
        const Rect outer(placeOf(left, top).x, placeOf(left, top).y, (right - left + 1) * side,
                         (bottom - top + 1) * side);
        const int ring = std::min(side, std::min(outer.width, outer.height));
        if (right - left < 2 || bottom - top < 2)
            fill(outer, colour, 70);
        else
            frame(outer, ring, colour, 70);
        frame(outer, 2 * thin(), colour);
        return;
    }
    const int reach = wallThickness(side) / 2 + thin();
    const Rect outer(placeOf(left, top).x - reach, placeOf(left, top).y - reach,
                     (right - left) * side + 2 * reach, (bottom - top) * side + 2 * reach);
    frame(outer, 2 * reach, colour, 150);
    frame(outer, thin(), colour);
}

/// An arrow head that points where the walker looks.
void SheetPainter::paintWalker()
{
    const DungeonCursor& walker = scene.editor.getCursor();
    const Rect place = placeOf(walker.cell.x, walker.cell.y);
    if (!place.overlaps({0, 0, part.width, part.height}))
        return;
    const float size = static_cast<float>(side) * 0.36F;
    const Direction right = walker.facing.turnedRight();
    const auto at = [&](float ahead, float aside) {
        return GlyphPoint{(static_cast<float>(walker.facing.dx()) * ahead +
                           static_cast<float>(right.dx()) * aside) *
                              size,
                          (static_cast<float>(walker.facing.dy()) * ahead +
                           static_cast<float>(right.dy()) * aside) *
                              size};
    };
    // Two triangles with a notch between them at the back.
    const GlyphPoint tip = at(1, 0), notch = at(-0.45F, 0);
    Glyph arrow;
    const auto addHalves = [&](ColourRef colour) {
        arrow.add(GlyphShape::polygon({tip, at(-0.85F, 0.8F), notch}), colour);
        arrow.add(GlyphShape::polygon({tip, notch, at(-0.85F, -0.8F)}), colour);
    };
    const float rim = std::max(1.5F, static_cast<float>(side) * 0.045F);
    arrow.add(GlyphShape::strokes({tip, at(-0.85F, 0.8F), notch, at(-0.85F, -0.8F), tip}, 2 * rim),
              palette.walkerEdge);
    addHalves(palette.walker);
    arrow.add(GlyphShape::strokes({tip, notch}, 1.2F), palette.walker);
    draw(target, arrow, middleOf(walker.cell.x, walker.cell.y));
}

void SheetPainter::paintRulers()
{
    const int ruler = view.toDevice(CanvasView::kRuler);
    if (part.top < ruler)
        paintRuler(EdgeRun::Level);
    if (part.left < ruler)
        paintRuler(EdgeRun::Upright);
    if (part.top < ruler && part.left < ruler)
        fill({-part.x, -part.y, ruler, ruler}, palette.ruler);
}

void SheetPainter::paintRuler(EdgeRun run)
{
    const int ruler = view.toDevice(CanvasView::kRuler);
    const bool level = run == EdgeRun::Level;
    const Rect strip =
        level ? Rect(0, -part.y, part.width, ruler) : Rect(-part.x, 0, ruler, part.height);
    fill(strip, palette.ruler);
    fill(level ? Rect(0, strip.bottom - thin(), part.width, thin())
               : Rect(strip.right - thin(), 0, thin(), part.height),
         palette.gridStrong);

    const FontSpec font{.height = view.toDevice(11), .antialias = true};
    target.selectFont(font);
    const int height = raster().measureFont(font).height;
    const int count = level ? map.cols : map.rows;
    const int first = std::max(0, level ? firstX : firstY);
    const int end = std::min(count, level ? endX : endY);
    const auto hovered = [&](int i) {
        return scene.hover && (level ? scene.hover->cell.x : scene.hover->cell.y) == i;
    };
    for (int i = first; i < end; ++i) {
        const int shown = level || !scene.options.rowsFromBottom ? i : count - 1 - i;
        WString text = toDecimal(shown);
        if (!level && shown < 10)
            text = u"0" + text;
        const int width = raster().measureText(font, text);
        Rect place = level ? placeOf(i, 0) : placeOf(0, i);
        place = level ? Rect(place.x, strip.y, side, ruler - thin())
                      : Rect(strip.x, place.y, ruler - thin(), side);
        if (hovered(i))
            fill(place, palette.rulerMark);
        target.setTextColor(hovered(i) ? palette.rulerMarkText : palette.rulerText);
        target.drawString(text, place.x + (place.width - width) / 2,
                          place.y + (place.height - height) / 2);
    }
}

} // namespace varn
