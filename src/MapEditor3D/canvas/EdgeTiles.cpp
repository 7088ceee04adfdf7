#include "MapEditor3D/canvas/EdgeTiles.h"

#include "Game/Map/WizMapData.h"
#include "MapEditor3D/canvas/TileStrip.h"

#include <algorithm>
#include <cmath>

namespace varn {

namespace {

constexpr int kStripTile = 16;

/// The shapes of the wall kinds, as on hand-drawn plans: a bar for a wall, a leaf in the bar for a
/// door, S for a secret, a triangle towards where a one-way kind lets pass. Places are told along
/// the edge (u) and across it (v), v growing to the side to which "SW" kinds open: south of a level
/// edge, west of an upright one.
class EdgeGlyph
{
  public:
    EdgeGlyph(int side, EdgeRun run, const CanvasPalette& palette)
        : palette(palette), run(run), length(static_cast<float>(side)),
          before(static_cast<float>(side / 2)), behind(static_cast<float>(side - side / 2)),
          bar(wallThickness(side)), barBefore(static_cast<float>(bar / 2)),
          barBehind(static_cast<float>(bar - bar / 2)), leafHalf(std::round(length * 0.27F)),
          leafDepth(std::max(3.F, std::round(length * 0.13F))),
          outline(std::max(1.F, std::round(length * 0.045F))), disc(std::max(4.5F, length * 0.19F)),
          pointer(std::max(4.F, length * 0.17F))
    {}

    Glyph make(int kind)
    {
        switch (kind) {
        case WallKind::None:
            dots(palette.erase, 5, std::max(1.F, outline));
            break;
        case WallKind::Wall:
            wall();
            break;
        case WallKind::Door:
        case WallKind::SwDoor:
        case WallKind::NeDoor:
            door();
            break;
        case WallKind::SecretDoor:
        case WallKind::SwSecretDoor:
        case WallKind::NeSecretDoor:
            secret();
            break;
        case WallKind::HalfDoor:
        case WallKind::HalfSwDoor:
        case WallKind::HalfNeDoor:
            halfDoor();
            break;
        case WallKind::InvisibleWall:
            dots(palette.inkSoft, 4, static_cast<float>(bar));
            break;
        case WallKind::SwShutter:
        case WallKind::NeShutter:
            shutter(kind == WallKind::SwShutter ? 1.F : -1.F);
            break;
        default:
            unknown();
        }
        addPointer(kind);
        return std::move(glyph);
    }

  private:
    GlyphPoint place(float u, float v) const
    {
        return run == EdgeRun::Level ? GlyphPoint{u, v} : GlyphPoint{-v, u};
    }
    void box(float u0, float v0, float u1, float v1, ColourRef colour)
    {
        const GlyphPoint a = place(u0, v0), b = place(u1, v1);
        glyph.add(GlyphShape::box(std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x),
                                  std::max(a.y, b.y)),
                  colour);
    }
    /// Part of the wall's bar; upright bars keep the same offset from the edge as level ones.
    void barPart(float u0, float u1, ColourRef colour)
    {
        if (run == EdgeRun::Level)
            glyph.add(GlyphShape::box(u0, -barBefore, u1, barBehind), colour);
        else
            glyph.add(GlyphShape::box(-barBefore, u0, barBehind, u1), colour);
    }
    void wall() { barPart(-before - barBefore, behind + barBehind, palette.ink); }
    void posts(float upTo)
    {
        barPart(-before - barBefore, -upTo, palette.ink);
        barPart(upTo, behind + barBehind, palette.ink);
    }
    void door()
    {
        posts(leafHalf - 1);
        box(-leafHalf, -leafDepth, leafHalf, leafDepth, palette.ink);
        box(-leafHalf + outline, -leafDepth + outline, leafHalf - outline, leafDepth - outline,
            palette.paper);
    }
    void halfDoor()
    {
        door();
        box(-leafHalf + outline, -leafDepth + outline, 0, leafDepth - outline, palette.ink);
    }
    void secret()
    {
        wall();
        glyph.add(GlyphShape::disc({0, 0}, disc), palette.signal);
        const float s = disc * 0.62F;
        glyph.add(GlyphShape::strokes({{0.72F * s, -0.62F * s},
                                       {0.3F * s, -s},
                                       {-0.35F * s, -s},
                                       {-0.72F * s, -0.6F * s},
                                       {-0.5F * s, -0.15F * s},
                                       {0.5F * s, 0.15F * s},
                                       {0.72F * s, 0.6F * s},
                                       {0.35F * s, s},
                                       {-0.3F * s, s},
                                       {-0.72F * s, 0.62F * s}},
                                      std::max(1.F, disc * 0.26F)),
                  palette.paper);
    }
    void dots(ColourRef colour, int count, float size)
    {
        for (int i = 0; i < count; ++i) {
            const float u = std::round(
                -before + (static_cast<float>(i) + 0.5F) * length / static_cast<float>(count) -
                size / 2);
            const float v = std::round(-size / 2);
            box(u, v, u + size, v + size, colour);
        }
    }
    void shutter(float to)
    {
        posts(std::round(length * 0.34F));
        box(-std::round(length * 0.34F), -outline / 2, std::round(length * 0.34F), outline / 2,
            palette.inkSoft);
        const float reach = length * 0.15F, wide = length * 0.24F;
        for (const float shift : {-0.08F, 0.12F}) {
            const float v = to * length * shift;
            glyph.add(
                GlyphShape::strokes({place(-wide, v - to * reach * 0.6F), place(0, v + to * reach),
                                     place(wide, v - to * reach * 0.6F)},
                                    outline + 0.4F),
                palette.ink);
        }
    }
    void unknown()
    {
        dots(palette.ink, 3, static_cast<float>(bar) * 1.5F);
        const float s = disc * 0.6F;
        glyph.add(GlyphShape::disc({0, 0}, disc), palette.inkSoft);
        for (const float side : {-1.F, 1.F})
            glyph.add(GlyphShape::strokes({{-s, -s * side}, {s, s * side}}, outline + 0.5F),
                      palette.paper);
    }
    /// The triangle of a one-way kind, outside its leaf or disc.
    void addPointer(int kind)
    {
        float to = 0;
        if (kind == WallKind::SwDoor || kind == WallKind::SwSecretDoor ||
            kind == WallKind::HalfSwDoor)
            to = 1;
        if (kind == WallKind::NeDoor || kind == WallKind::NeSecretDoor ||
            kind == WallKind::HalfNeDoor)
            to = -1;
        if (to == 0)
            return;
        const bool isSecret = kind == WallKind::SwSecretDoor || kind == WallKind::NeSecretDoor;
        const float base = (isSecret ? disc - 0.5F : leafDepth + 0.5F) * to;
        std::vector<GlyphPoint> corners{place(-pointer, base), place(pointer, base),
                                        place(0, base + to * pointer * 1.1F)};
        if (to < 0)
            std::swap(corners[0], corners[1]);
        glyph.add(GlyphShape::polygon(std::move(corners)), isSecret ? palette.signal : palette.ink);
    }

    const CanvasPalette& palette;
    EdgeRun run;
    float length, before, behind;
    int bar;
    float barBefore, barBehind;
    float leafHalf, leafDepth, outline, disc, pointer;
    Glyph glyph;
};

/// Light for dark and dark for light, hue and strength of colour kept: a strip drawn for white
/// paper.
void turnLightness(Bitmap& bitmap)
{
    for (int y = 0; y < bitmap.getHeight(); ++y) {
        for (int x = 0; x < bitmap.getWidth(); ++x) {
            const std::uint32_t pixel = bitmap.getPixelValue(x, y);
            const int parts[] = {static_cast<int>(pixel & 0xFF),
                                 static_cast<int>(pixel >> 8 & 0xFF),
                                 static_cast<int>(pixel >> 16 & 0xFF)};
            const auto [least, most] = std::minmax({parts[0], parts[1], parts[2]});
            const int lift = 255 - most - least;
            bitmap.setPixelRgba(x, y,
                                (pixel & 0xFF000000) | static_cast<std::uint32_t>(parts[0] + lift) |
                                    static_cast<std::uint32_t>(parts[1] + lift) << 8 |
                                    static_cast<std::uint32_t>(parts[2] + lift) << 16);
        }
    }
}

} // namespace

int wallThickness(int side)
{
    return std::max(2, static_cast<int>(std::lround(side * 0.09)));
}

void EdgeTiles::use(const Image* nextStrip, int nextSide, const CanvasPalette& nextPalette)
{
    if (nextStrip == strip && nextSide == side && nextPalette == palette)
        return;
    strip = nextStrip;
    side = nextSide;
    palette = nextPalette;
    forget();
}

EdgeTiles::Tile& EdgeTiles::tile(int kind, EdgeRun run)
{
    const int key = kind * 2 + static_cast<int>(run);
    const auto known = tiles.find(key);
    if (known != tiles.end())
        return known->second;
    const bool inStrip = strip && kind != WallKind::None && kind < kWallKinds &&
                         (kind + 1) * kStripTile <= strip->getWidth();
    if (inStrip)
        return tiles.emplace(key, makeFromStrip(kind, run)).first->second;
    const Glyph glyph = EdgeGlyph(side, run, palette).make(kind);
    Tile made{render(glyph),
              renderHalo(glyph, palette.halo, std::max(1.F, static_cast<float>(side) * 0.035F), 1)};
    made.stroke.trim();
    made.halo.trim();
    return tiles.emplace(key, std::move(made)).first->second;
}

/// The strip's tile is centred on its edge.
EdgeTiles::Tile EdgeTiles::makeFromStrip(int kind, EdgeRun run) const
{
    const Rect part(kind * kStripTile, run == EdgeRun::Level ? 0 : kStripTile, kStripTile,
                    kStripTile);
    Image scaled = scaledPart(*strip, part, side, side);
    if (palette.dark)
        turnLightness(scaled.getBitmap());
    Tile made;
    made.stroke.corner = {-side / 2, -side / 2};
    made.stroke.picture = std::move(scaled);
    made.stroke.trim();
    return made;
}

void EdgeTiles::drawHalo(Graphics& target, int kind, EdgeRun run, Point middle)
{
    PlacedPicture& halo = tile(kind, run).halo;
    if (!halo.picture.getBitmap().isEmpty())
        halo.draw(target, middle);
}

void EdgeTiles::draw(Graphics& target, int kind, EdgeRun run, Point middle, double opacity)
{
    tile(kind, run).stroke.draw(target, middle, opacity);
}

} // namespace varn
