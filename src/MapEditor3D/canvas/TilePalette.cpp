#include "MapEditor3D/canvas/TilePalette.h"

#include "Game/Database/LanguageManager.h"
#include "Game/Database/WizFloor.h"
#include "MapEditor3D/canvas/PointerInfo.h"

#include <algorithm>

namespace varn {

namespace {

/// Tiles that a floor byte can name.
constexpr int kFloorTiles = 256;
/// How many tiles are offered where the project has no floor strip.
constexpr int kFallbackTiles = 16;

WString say(WStringView english)
{
    return LanguageManager::instance().getDisplayText(english);
}

} // namespace

PaletteKind paletteKindOf(const WizMapEditor& editor)
{
    switch (editor.getMode()) {
    case EditorMode::Event:
        return PaletteKind::Events;
    case EditorMode::Area:
        return PaletteKind::Areas;
    case EditorMode::Tile:
        break;
    }
    return editor.isFloorLayer() ? PaletteKind::Floor : PaletteKind::Walls;
}

std::vector<PaletteEntry> TilePalette::entries()
{
    std::vector<PaletteEntry> list;
    switch (paletteKindOf(editor)) {
    case PaletteKind::Walls:
        for (int kind = 0; kind < kWallKinds; ++kind)
            list.push_back({kind, wallKindName(kind)});
        break;
    case PaletteKind::Floor: {
        images.update(editor.getMap());
        const Image* const strip = images.find(ImageType::Floor2D);
        floorTiles.use(strip, TileStrip::kTile);
        const int count = strip ? std::min(floorTiles.count(), kFloorTiles) : kFallbackTiles;
        list.push_back({0, say(u"No floor")});
        for (int tile = 1; tile < count; ++tile)
            list.push_back({tile, say(u"Floor tile") + u" " + toDecimal(tile)});
        break;
    }
    case PaletteKind::Events: {
        const WizFloorList& kinds = WizFloorList::instance();
        for (std::size_t kind = 0; kind < kinds.size(); ++kind)
            list.push_back({static_cast<int>(kind), kinds.at(kind).getName()});
        break;
    }
    case PaletteKind::Areas: {
        list.push_back({0, say(u"No area")});
        int next = 1;
        for (const AreaModel& area : editor.getMap().areas.list()) {
            list.push_back({area.number, area.name.empty()
                                             ? say(u"Area") + u" " + toDecimal(area.number)
                                             : widen(area.name)});
            next = std::max(next, area.number + 1);
        }
        list.push_back({next, say(u"New area")});
        break;
    }
    }
    return list;
}

void TilePalette::drawPicture(Graphics& target, const Rect& square, int value,
                              const CanvasPalette& colours, WallLook look)
{
    images.update(editor.getMap());
    target.fillRect(square, colours.paper, 255);
    const auto drawTile = [&](TileStrip& strip, ImageType type, int side) {
        strip.use(images.find(type), side);
        return strip.draw(
            target, value,
            {square.x + (square.width - side) / 2, square.y + (square.height - side) / 2});
    };
    const int side = std::min(square.width, square.height);
    switch (paletteKindOf(editor)) {
    case PaletteKind::Walls:
        // A bar is longer than its edge by its thickness.
        edges.use(look == WallLook::Strip ? images.find(ImageType::Wall2D) : nullptr,
                  std::max(8, side - 2 * wallThickness(side)), colours);
        drawWall(target, square, value);
        break;
    case PaletteKind::Floor:
        if (value != 0 && !drawTile(floorTiles, ImageType::Floor2D, side))
            target.fillRect(square, colours.grid, 255);
        break;
    case PaletteKind::Events:
        drawTile(eventTiles, ImageType::EventFloor, std::max(8, side / 8 * 8));
        break;
    case PaletteKind::Areas:
        if (value != 0)
            target.fillRect(
                square, colours.areas[static_cast<std::size_t>(value) % colours.areas.size()], 150);
        break;
    }
}

/// A level edge across the middle.
void TilePalette::drawWall(Graphics& target, const Rect& square, int kind)
{
    const Point middle{square.x + square.width / 2, square.y + square.height / 2};
    edges.drawHalo(target, kind, EdgeRun::Level, middle);
    edges.draw(target, kind, EdgeRun::Level, middle);
}

std::optional<int> valueOfDigit(const std::vector<PaletteEntry>& entries, int digit)
{
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&](const PaletteEntry& one) { return one.value == digit; });
    if (found == entries.end())
        return std::nullopt;
    return digit;
}

int cycledValue(const std::vector<PaletteEntry>& entries, int value, int by)
{
    if (entries.empty())
        return value;
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&](const PaletteEntry& one) { return one.value == value; });
    const auto at = found == entries.end() ? 0 : found - entries.begin();
    return entries[static_cast<std::size_t>(wrapOnRing(at + by, static_cast<int>(entries.size())))]
        .value;
}

} // namespace varn
