#include "Game/Map/View/DungeonView.h"

#include "Game/Database/WizFloor.h"
#include "Game/Map/GameResourceManager.h"
#include "Graphics/Blit.h"
#include "Graphics/PixelLoops.h"
#include "Util/FileLogger.h"

#include <algorithm>
#include <cstring>

namespace varn {

namespace {

constexpr ViewSide kSidesInPaintOrder[] = {ViewSide::Left, ViewSide::Front, ViewSide::Right};

ImageType backgroundFacing(Direction facing)
{
    switch (facing.getValue()) {
    case Direction::North:
        return ImageType::BackgroundNorth;
    case Direction::East:
        return ImageType::BackgroundEast;
    case Direction::South:
        return ImageType::BackgroundSouth;
    case Direction::West:
        return ImageType::BackgroundWest;
    default:
        return ImageType::Background;
    }
}

std::uint32_t pixelOrderOf(std::uint32_t colourReference)
{
    return (colourReference & 0xFF00) | (colourReference & 0xFF) << 16 |
           (colourReference >> 16 & 0xFF);
}

/// The largest part of a picture, from its middle, that has the view's shape.
Rect fittedTo(const Image& picture, const Rect& view)
{
    const std::int64_t width = picture.getWidth(), height = picture.getHeight();
    if (width * view.height > height * view.width) {
        const int part = std::max(1, static_cast<int>(height * view.width / view.height));
        return {static_cast<int>(width - part) / 2, 0, part, static_cast<int>(height)};
    }
    const int part = std::max(1, static_cast<int>(width * view.height / view.width));
    return {0, static_cast<int>(height - part) / 2, static_cast<int>(width), part};
}

} // namespace

void DungeonView::setBackBufferSize(int width, int height)
{
    width = std::clamp(width, 1, kSideLimit);
    height = std::clamp(height, 1, kSideLimit);
    if (viewBuffer.getWidth() == width && viewBuffer.getHeight() == height)
        return;
    FileLogger::instance().write(u"Map3D.setBackBufferSize: W:" + toDecimal(width) + u", H:" +
                                 toDecimal(height));
    resize(width, height);
}

void DungeonView::resize(int width, int height)
{
    viewBuffer.setSize(width, height);
    floorCeilingBuffer.setSize(width, height);
    backdrop.setSize(width, height);
    kept = {};
}

void DungeonView::reloadImages()
{
    images.clear();
    kept = {};
}

ViewGeometry DungeonView::geometry() const
{
    return ViewGeometry({0, 0, viewBuffer.getWidth(), viewBuffer.getHeight()}, map.eyeHeight);
}

std::optional<DungeonView::FogEdges> DungeonView::fogAt(int distance) const
{
    const int step = map.fogEnabled ? map.getFogStep() : 0;
    const int near = std::min(distance * step, 255), far = std::min((distance + 1) * step, 255);
    if (far == 0)
        return std::nullopt;
    return FogEdges{static_cast<std::uint8_t>(255 - near), static_cast<std::uint8_t>(255 - far)};
}

std::optional<Gradation> DungeonView::fogOnWall(ViewPlace place, ViewSide side) const
{
    const auto fog = fogAt(place.distance);
    if (!fog)
        return std::nullopt;
    switch (side) {
    case ViewSide::Left: // its near edge is at the left of the quad
        return Gradation{map.fogColor, fog->near, fog->far, true};
    case ViewSide::Right:
        return Gradation{map.fogColor, fog->far, fog->near, true};
    case ViewSide::Front:
        break;
    }
    return Gradation{map.fogColor, fog->far, fog->far, true};
}

void DungeonView::drawView(Graphics& target, const Rect& place, const Viewpoint& viewer,
                           Mirror mirror)
{
    setBackBufferSize(place.width, place.height);
    const Scene scene{viewer,
                      std::clamp(static_cast<int>(map.getVisibleDistance()), 0, kMaxDistance),
                      mirror, CellEvents(map)};
    const Kept wanted{scene.visibleDistance, map.getFogStep(), map.eyeHeight, map.fogColor,
                      map.fogEnabled};
    if (images.update(map) || wanted != kept) {
        stock.clear();
        backdropKept = {};
        paintFloorAndCeiling(scene.visibleDistance);
        kept = wanted;
    }
    // Where the view is all of the target, it is painted there: the buffer would be one copy more.
    const Rect whole(0, 0, viewBuffer.getWidth(), viewBuffer.getHeight());
    const bool direct = mirror == Mirror::Off && place == whole && target.getBounds() == whole;
    canvas = direct ? &target.getBitmap() : &viewBuffer.getBitmap();
    paint(scene);
    if (direct)
        return;
    viewBuffer.getBitmap().setColorKeyEnabled(false);
    const Rect onto = mirror == Mirror::On
                          ? Rect(place.x + place.width - 1, place.y, -place.width, place.height)
                          : Rect(place.x, place.y, place.width, place.height);
    blitImage(target.getBitmap(), viewBuffer.getImage(), onto, whole);
}

void DungeonView::paint(const Scene& scene)
{
    const bool veiled = scene.events.isDark(wrapped(map, scene.viewer.x, scene.viewer.y));
    if (veiled && !(map.light.active && map.light.power < 255)) {
        std::memset(canvas->getBits(), 0, canvas->byteCount());
        return;
    }
    paintBackdrop(scene);
    const std::vector<SeenCell> seen =
        walkView(map, scene.events, scene.viewer, scene.visibleDistance);
    for (auto cell = seen.rbegin(); cell != seen.rend(); ++cell)
        paintCell(scene, *cell);
    if (veiled)
        for (int y = 0; y < canvas->getHeight(); ++y)
            blendColour(pixelOrderOf(map.fogColor),
                        static_cast<std::uint8_t>(255 - map.light.power),
                        canvas->getBits() + static_cast<std::size_t>(y) *
                                                static_cast<std::size_t>(canvas->getStride()),
                        static_cast<std::size_t>(canvas->getWidth()));
}

void DungeonView::paintBackdrop(const Scene& scene)
{
    const ImageType facing = backgroundFacing(scene.viewer.facing);
    const ImageType type = images.find(facing) ? facing : ImageType::Background;
    const Image* const background = images.find(type);
    const auto* const entry = dynamic_cast<const ImageResourceItem*>(
        background ? GameResourceManager::instance().findByPath(ResourceCategory::Background,
                                                                map.getImageName(type))
                   : nullptr);
    const Rect whole(0, 0, canvas->getWidth(), canvas->getHeight());
    const Rect source = entry && entry->scalingType ? fittedTo(*background, whole)
                        : background                ? background->getBounds()
                                                    : Rect();
    // The finished picture is mirrored as a whole: what must not flip is mirrored here already.
    const bool mirrored = scene.mirror == Mirror::On && !(entry && entry->movementType);
    const Backdrop wanted{true, background, source, background && mirrored};
    if (wanted != backdropKept) {
        Bitmap& into = backdrop.getBitmap();
        std::memset(into.getBits(), 0, into.byteCount());
        if (background)
            blitImage(into, *background,
                      mirrored ? Rect(whole.width - 1, 0, -whole.width, whole.height) : whole,
                      source);
        if (images.find(ImageType::Floor) || images.find(ImageType::Ceiling))
            blitImage(into, floorCeilingBuffer.getImage(), whole, whole);
        backdropKept = wanted;
    }
    std::memcpy(canvas->getBits(), backdrop.getBitmap().getBits(), canvas->byteCount());
}

void DungeonView::paintFloorAndCeiling(int visibleDistance)
{
    floorCeilingBuffer.getBitmap().setAlphaChannel(true);
    floorCeilingBuffer.getImage().fill(0);
    const ViewGeometry quads = geometry();
    for (const ImageType type : {ImageType::Floor, ImageType::Ceiling}) {
        const Image* const picture = images.find(type);
        if (!picture)
            continue;
        const auto lay = [&](ViewPlace place, const std::optional<Gradation>& fog) {
            drawImageToQuad(*picture, fog,
                            type == ImageType::Floor ? quads.floor(place) : quads.ceiling(place),
                            floorCeilingBuffer.getBitmap());
        };
        for (int distance = 0; distance <= visibleDistance; ++distance) {
            std::optional<Gradation> gradation;
            if (const auto fog = fogAt(distance))
                gradation = type == ImageType::Floor
                                ? Gradation{map.fogColor, fog->far, fog->near, false}
                                : Gradation{map.fogColor, fog->near, fog->far, false};
            lay({0, distance}, gradation);
            for (int lateral = 1; lateral <= kMaxLateral[static_cast<std::size_t>(distance)];
                 ++lateral) {
                lay({lateral, distance}, gradation);
                lay({-lateral, distance}, gradation);
            }
        }
    }
}

void DungeonView::paintCell(const Scene& scene, const SeenCell& seen)
{
    if (seen.dark) {
        const bool lit = map.light.active && map.light.power < 255;
        const bool own = seen.place == ViewPlace{0, 0};
        if (!(own && lit)) {
            paintDark(seen);
            return;
        }
    }
    paintEvents(scene, seen, DisplayPosition::Floor);
    paintEvents(scene, seen, DisplayPosition::Ceiling);
    for (const ViewSide side : kSidesInPaintOrder)
        paintWall(scene, seen, side);
    paintEvents(scene, seen, DisplayPosition::Wall);
    paintEvents(scene, seen, DisplayPosition::Default);
}

void DungeonView::paintDark(const SeenCell& seen)
{
    const ViewGeometry quads = geometry();
    fillQuad(quads.floor(seen.place), 0);
    fillQuad(quads.ceiling(seen.place), 0);
    for (const ViewSide side : kSidesInPaintOrder)
        if (const auto quad = quads.wall(seen.place, side))
            fillQuad(*quad, 0);
}

void DungeonView::paintWall(const Scene& scene, const SeenCell& seen, ViewSide side)
{
    const auto quad = geometry().wall(seen.place, side);
    if (!quad)
        return;
    const Direction edge = sideOf(scene.viewer.facing, side);
    const SeenWall kind =
        seeWall(wallOf(map.cellAt(seen.cell.x, seen.cell.y), edge), edge, map.light);
    if (kind == SeenWall::Nothing) {
        const bool last = seen.place.distance == scene.visibleDistance;
        if (map.fillDistantView && last && side == ViewSide::Front)
            fillQuad(*quad, map.fogColor);
        return;
    }
    const Image* picture = images.find(kind == SeenWall::Door ? ImageType::Door : ImageType::Wall);
    if (picture)
        paintPiece(*picture, seen.place, side, *quad);
}

void DungeonView::paintPiece(const Image& picture, ViewPlace place, ViewSide side,
                             const QuadCorners& quad)
{
    const auto fog = fogOnWall(place, side);
    const StockKey key{&picture, static_cast<std::int8_t>(place.lateral),
                       static_cast<std::int8_t>(place.distance), static_cast<std::int8_t>(side),
                       fog};
    const StockImage* piece = stock.find(key);
    if (!piece)
        piece = &stock.add(key, quad, geometry().getView());
    piece->draw(*canvas);
}

void DungeonView::paintEvents(const Scene& scene, const SeenCell& seen, DisplayPosition position)
{
    scene.events.visit(seen.cell, [&](const GameEvent& event, const WizFloorData& type) {
        const std::int32_t stands =
            event.priority >= 0 ? event.priority : type.getDisplayPosition();
        if (stands != static_cast<std::int32_t>(position) || !type.getVisibility3D())
            return;
        if (const Image* const texture = images.texture(type.getTexture()))
            paintTexture(*texture, scene, seen.place, position, event.direction);
    });
}

void DungeonView::paintTexture(const Image& texture, const Scene& scene, ViewPlace place,
                               DisplayPosition position, Direction facing)
{
    std::optional<Gradation> fogged;
    if (const auto fog = fogAt(place.distance))
        fogged = Gradation{map.fogColor, fog->near, fog->near, false};
    const auto lay = [&](const QuadCorners& quad) {
        drawImageToQuad(texture, fogged, quad, *canvas);
    };
    const ViewGeometry quads = geometry();
    // What faces nowhere covers its tile: a pit is as large as the cell.
    const bool faces = facing.dx() != 0 || facing.dy() != 0;
    switch (position) {
    case DisplayPosition::Floor:
        lay(faces ? quads.flatFloor(place) : quads.floor(place));
        break;
    case DisplayPosition::Ceiling:
        lay(faces ? quads.flatCeiling(place) : quads.ceiling(place));
        break;
    case DisplayPosition::Wall:
        for (const ViewSide side : kSidesInPaintOrder)
            if (sideOf(scene.viewer.facing, side) == facing)
                if (const auto quad = quads.onWall(place, side))
                    lay(*quad);
        break;
    case DisplayPosition::Default:
        lay(quads.upright(place));
        break;
    }
}

void DungeonView::fillQuad(const QuadCorners& quad, std::uint32_t colour)
{
    fillConvexQuad(*canvas, quad, colour);
}

} // namespace varn
