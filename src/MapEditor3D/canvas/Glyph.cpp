#include "MapEditor3D/canvas/Glyph.h"

#include "Graphics/Blit.h"

#include <algorithm>
#include <cmath>

namespace varn {

namespace {

float distanceToSegment(GlyphPoint p, GlyphPoint a, GlyphPoint b)
{
    const float abX = b.x - a.x, abY = b.y - a.y;
    const float length = abX * abX + abY * abY;
    float along = 0;
    if (length > 0)
        along = std::clamp(((p.x - a.x) * abX + (p.y - a.y) * abY) / length, 0.F, 1.F);
    return std::hypot(p.x - a.x - along * abX, p.y - a.y - along * abY);
}

/// How much of the pixel around a point lies inside, by its distance from the rim.
float coverage(float distance)
{
    return std::clamp(0.5F - distance, 0.F, 1.F);
}

/// Whole pixels around the glyph.
Rect boundsOf(const Glyph& glyph, float margin)
{
    GlyphShape::Extent all{0, 0, 0, 0};
    bool first = true;
    for (const Glyph::Part& part : glyph.parts) {
        const GlyphShape::Extent one = part.shape.extent();
        all = first ? one
                    : GlyphShape::Extent{std::min(all.left, one.left), std::min(all.top, one.top),
                                         std::max(all.right, one.right),
                                         std::max(all.bottom, one.bottom)};
        first = false;
    }
    const int left = static_cast<int>(std::floor(all.left - margin));
    const int top = static_cast<int>(std::floor(all.top - margin));
    return {left, top, static_cast<int>(std::ceil(all.right + margin)) - left,
            static_cast<int>(std::ceil(all.bottom + margin)) - top};
}

/// A pixel that is composed, its channels already weighted by its alpha.
struct Composed
{
    float red = 0, green = 0, blue = 0, alpha = 0;

    void lay(ColourRef colour, float share)
    {
        const float rest = 1 - share;
        red = red * rest + static_cast<float>(redOf(colour)) * share;
        green = green * rest + static_cast<float>(greenOf(colour)) * share;
        blue = blue * rest + static_cast<float>(blueOf(colour)) * share;
        alpha = alpha * rest + share;
    }
    std::uint32_t pixel() const
    {
        if (alpha <= 0)
            return 0;
        const auto channel = [&](float value) {
            return static_cast<std::uint32_t>(std::lround(value / alpha));
        };
        return channel(blue) | channel(green) << 8 | channel(red) << 16 |
               static_cast<std::uint32_t>(std::lround(alpha * 255)) << 24;
    }
};

template <class Compose>
PlacedPicture makePicture(const Rect& bounds, Compose compose)
{
    PlacedPicture placed;
    placed.corner = {bounds.x, bounds.y};
    if (!placed.picture.create(bounds.width, bounds.height))
        return placed;
    Bitmap& bitmap = placed.picture.getBitmap();
    bitmap.setAlphaChannel(true);
    bitmap.setColorKeyEnabled(false);
    for (int y = 0; y < bounds.height; ++y) {
        for (int x = 0; x < bounds.width; ++x) {
            const GlyphPoint centre{static_cast<float>(bounds.x + x) + 0.5F,
                                    static_cast<float>(bounds.y + y) + 0.5F};
            bitmap.setPixelRgba(x, y, compose(centre).pixel());
        }
    }
    return placed;
}

} // namespace

GlyphShape GlyphShape::box(float left, float top, float right, float bottom)
{
    return {Kind::Box, {{left, top}, {right, bottom}}, 0};
}

GlyphShape GlyphShape::disc(GlyphPoint centre, float radius)
{
    return {Kind::Strokes, {centre, centre}, radius};
}

GlyphShape GlyphShape::strokes(std::vector<GlyphPoint> points, float width)
{
    return {Kind::Strokes, std::move(points), width / 2};
}

GlyphShape GlyphShape::polygon(std::vector<GlyphPoint> corners)
{
    return {Kind::Polygon, std::move(corners), 0};
}

float GlyphShape::distanceTo(GlyphPoint point) const
{
    switch (kind) {
    case Kind::Box: {
        const float outX = std::max(points[0].x - point.x, point.x - points[1].x);
        const float outY = std::max(points[0].y - point.y, point.y - points[1].y);
        return outX > 0 && outY > 0 ? std::hypot(outX, outY) : std::max(outX, outY);
    }
    case Kind::Strokes: {
        float nearest = distanceToSegment(point, points[0], points[1]);
        for (std::size_t i = 1; i + 1 < points.size(); ++i)
            nearest = std::min(nearest, distanceToSegment(point, points[i], points[i + 1]));
        return nearest - radius;
    }
    case Kind::Polygon:
        break;
    }
    float farthest = -1e9F;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const GlyphPoint a = points[i], b = points[(i + 1) % points.size()];
        const float edgeX = b.x - a.x, edgeY = b.y - a.y;
        const float length = std::hypot(edgeX, edgeY);
        if (length > 0)
            farthest =
                std::max(farthest, (edgeY * (point.x - a.x) - edgeX * (point.y - a.y)) / length);
    }
    return farthest;
}

GlyphShape::Extent GlyphShape::extent() const
{
    Extent all{points[0].x, points[0].y, points[0].x, points[0].y};
    for (const GlyphPoint& point : points) {
        all.left = std::min(all.left, point.x);
        all.top = std::min(all.top, point.y);
        all.right = std::max(all.right, point.x);
        all.bottom = std::max(all.bottom, point.y);
    }
    return {all.left - radius, all.top - radius, all.right + radius, all.bottom + radius};
}

void PlacedPicture::trim()
{
    const Bitmap& bitmap = picture.getBitmap();
    int left = bitmap.getWidth(), top = bitmap.getHeight(), right = 0, bottom = 0;
    std::uint32_t all = 0xFF;
    const auto alphaAt = [&](int x, int y) { return bitmap.getPixelValue(x, y) >> 24; };
    for (int y = 0; y < bitmap.getHeight(); ++y) {
        for (int x = 0; x < bitmap.getWidth(); ++x) {
            if (alphaAt(x, y) == 0)
                continue;
            left = std::min(left, x);
            right = std::max(right, x + 1);
            top = std::min(top, y);
            bottom = y + 1;
        }
    }
    if (right == 0)
        return;
    Image cut;
    cut.create(right - left, bottom - top);
    cut.getBitmap().setAlphaChannel(true);
    cut.getBitmap().setColorKeyEnabled(false);
    for (int y = top; y < bottom; ++y) {
        for (int x = left; x < right; ++x) {
            cut.getBitmap().setPixelRgba(x - left, y - top, bitmap.getPixelValue(x, y));
            all &= alphaAt(x, y);
        }
    }
    opaque = all == 0xFF;
    corner = {corner.x + left, corner.y + top};
    picture = std::move(cut);
}

void PlacedPicture::draw(Graphics& target, Point middle, double opacity)
{
    if (opaque && opacity == 1) {
        copyBitmap(target.getBitmap(), picture.getBitmap(), middle.x + corner.x,
                   middle.y + corner.y);
        return;
    }
    picture.opacity = opacity;
    target.drawImage(picture, middle.x + corner.x, middle.y + corner.y);
}

PlacedPicture render(const Glyph& glyph)
{
    return makePicture(boundsOf(glyph, 1), [&](GlyphPoint at) {
        Composed pixel;
        for (const Glyph::Part& part : glyph.parts)
            if (const float share = coverage(part.shape.distanceTo(at)); share > 0)
                pixel.lay(part.colour, share);
        return pixel;
    });
}

PlacedPicture renderHalo(const Glyph& glyph, ColourRef colour, float width, float opacity)
{
    return makePicture(boundsOf(glyph, width + 1), [&](GlyphPoint at) {
        float share = 0;
        for (const Glyph::Part& part : glyph.parts)
            share = std::max(share, coverage(part.shape.distanceTo(at) - width));
        Composed pixel;
        pixel.lay(colour, share * opacity);
        return pixel;
    });
}

void draw(Graphics& target, const Glyph& glyph, Point middle)
{
    render(glyph).draw(target, middle);
}

} // namespace varn
