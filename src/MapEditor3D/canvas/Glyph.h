#pragma once

#include "Graphics/Graphics.h"
#include "Util/Colour.h"

#include <optional>
#include <vector>

namespace varn {

/// A place in a glyph, in device pixels from its middle.
struct GlyphPoint
{
    float x = 0, y = 0;
};

/// A shape with smooth edges, told by how far a point is from it: less than 0 inside. That gives
/// its coverage of a pixel, and that of a halo around it, by the same rule.
class GlyphShape
{
  public:
    /// Sides on whole pixels come out sharp.
    static GlyphShape box(float left, float top, float right, float bottom);
    static GlyphShape disc(GlyphPoint centre, float radius);
    /// Straight strokes from point to point, round at ends and corners.
    static GlyphShape strokes(std::vector<GlyphPoint> points, float width);
    /// Convex, its corners clockwise as seen.
    static GlyphShape polygon(std::vector<GlyphPoint> corners);

    float distanceTo(GlyphPoint point) const;
    /// Left, top, right, bottom.
    struct Extent
    {
        float left, top, right, bottom;
    };
    Extent extent() const;

  private:
    enum class Kind
    {
        Box,
        Strokes,
        Polygon
    };
    GlyphShape(Kind kind, std::vector<GlyphPoint> points, float radius)
        : kind(kind), points(std::move(points)), radius(radius)
    {}

    Kind kind;
    std::vector<GlyphPoint> points;
    float radius; ///< of strokes, half their width
};

/// Shapes of one colour each, the later over the earlier.
struct Glyph
{
    struct Part
    {
        GlyphShape shape;
        ColourRef colour;
    };
    std::vector<Part> parts;

    void add(GlyphShape shape, ColourRef colour) { parts.push_back({std::move(shape), colour}); }
};

/// A picture with alpha, and where its corner lies from the middle of what it shows.
struct PlacedPicture
{
    Image picture;
    Point corner;
    bool opaque = false; ///< no pixel of it lets anything through: it can be copied

    /// Leaves out what is clear around the picture, and looks whether it can be copied.
    void trim();
    void draw(Graphics& target, Point middle, double opacity = 1);
};

PlacedPicture render(const Glyph& glyph);
/// One colour around the glyph's shapes, so many pixels wide, of an opacity from 0 to 1.
PlacedPicture renderHalo(const Glyph& glyph, ColourRef colour, float width, float opacity);

/// Lays the glyph on a surface at once, for what changes with every painting.
void draw(Graphics& target, const Glyph& glyph, Point middle);

} // namespace varn
