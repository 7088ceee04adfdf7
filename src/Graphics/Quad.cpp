#include "Graphics/Quad.h"

#include "Graphics/PixelLoops.h"
#include "Graphics/QuadMapping.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace varn {

namespace {

constexpr double kFarthest = 1 << 20; // pixels; keeps boxes of wild corners countable

std::uint32_t loadPixel(const std::uint8_t* at)
{
    std::uint32_t value;
    std::memcpy(&value, at, sizeof value);
    return value;
}

int approach(int c, int d, int weight)
{
    return (c - d) * weight / 255 + d;
}

std::uint32_t swapRedBlue(std::uint32_t colour)
{
    return (colour & 0xFF00) | (colour & 0xFF) << 16 | (colour >> 16 & 0xFF);
}

/// The colours of one quad's pixels: how a source pixel meets the target pixel below it.
struct QuadPaint
{
    QuadPaint(const Image& source, const std::optional<Gradation>& gradation)
        : hasAlpha(source.getBitmap().hasAlphaChannel()),
          keyed(!hasAlpha && source.getBitmap().isColorKeyEnabled()),
          key(source.getColorKey() == Bitmap::kNoKey ? Bitmap::kNoKey
                                                     : swapRedBlue(source.getColorKey())),
          gradation(gradation)
    {}

    void paint(std::uint32_t pixel, int strength, std::uint8_t* target) const
    {
        const int alpha = hasAlpha ? static_cast<int>(pixel >> 24) : 255;
        if (alpha == 0 || (keyed && (pixel & 0xFFFFFF) == key))
            return;
        for (int channel = 0; channel < 3; ++channel) {
            int c = static_cast<int>(pixel >> (channel * 8) & 0xFF);
            if (alpha != 255)
                c = approach(c, target[channel], alpha);
            if (gradation)
                c = approach(c, static_cast<int>(gradation->colour >> ((2 - channel) * 8) & 0xFF),
                             strength);
            target[channel] = static_cast<std::uint8_t>(c);
        }
        target[3] = static_cast<std::uint8_t>(alpha);
    }

    bool hasAlpha, keyed;
    std::uint32_t key;
    const std::optional<Gradation>& gradation;
};

/// Paints rows of one quad.
class QuadRow
{
  public:
    QuadRow(const QuadPaint& paint, const Image& source, const Rect& box)
        : paint(paint), pixels(source.getBitmap().getBits())
    {
        if (paint.gradation)
            strengths = strengthTable(*paint.gradation,
                                      paint.gradation->horizontal ? box.width : box.height);
    }

    /// @param places  where the columns from `column` on lie in the picture, -1 outside
    /// @param out     the target's pixel of the first of them
    void draw(std::span<const std::int32_t> places, int row, int column, std::uint8_t* out)
    {
        while (!places.empty() && places.front() < 0) {
            places = places.subspan(1);
            ++column;
            out += 4;
        }
        while (!places.empty() && places.back() < 0)
            places = places.first(places.size() - 1);
        if (places.empty())
            return;
        if (!isOneRun(places) || !drawRun(places, row, column, out))
            drawPixels(places, row, column, out);
    }

  private:
    static bool isOneRun(std::span<const std::int32_t> places)
    {
        std::int32_t signs = 0;
        for (const std::int32_t place : places)
            signs |= place;
        return signs >= 0;
    }

    /// A run of opaque pixels, many at a time; false, and nothing is drawn, where one is not.
    bool drawRun(std::span<const std::int32_t> places, int row, int column, std::uint8_t* out)
    {
        source.resize(std::max(source.size(), places.size()));
        const std::span<std::uint32_t> run(source.data(), places.size());
        const std::uint32_t common = gatherPixels(pixels, places.data(), run.data(), run.size());
        if (paint.hasAlpha && common >> 24 != 255)
            return false;
        std::span<std::uint32_t> colours = run;
        if (paint.gradation) {
            if (paint.keyed) {
                fogged.assign(run.begin(), run.end());
                colours = fogged;
            }
            applyGradation(*paint.gradation, strengths, row, column, colours);
        }
        if (paint.hasAlpha)
            std::memcpy(out, colours.data(), colours.size_bytes());
        else // no colour equals a key with a top byte
            copyUnlessKey(paint.keyed ? paint.key : Bitmap::kNoKey, run.data(), colours.data(), out,
                          run.size());
        return true;
    }

    void drawPixels(std::span<const std::int32_t> places, int row, int column,
                    std::uint8_t* out) const
    {
        for (std::size_t i = 0; i < places.size(); ++i, out += 4) {
            if (places[i] < 0)
                continue;
            const std::size_t step = !paint.gradation ? 0
                                     : paint.gradation->horizontal
                                         ? static_cast<std::size_t>(column) + i
                                         : static_cast<std::size_t>(row);
            paint.paint(loadPixel(pixels + static_cast<std::size_t>(places[i]) * 4),
                        strengths.empty() ? 255 : strengths[step], out);
        }
    }

    const QuadPaint& paint;
    const std::uint8_t* pixels;
    std::vector<std::uint8_t> strengths;
    std::vector<std::uint32_t> source, fogged; // room for a run
};

QuadCorners relativeTo(const QuadCorners& corners, const Rect& box)
{
    QuadCorners shifted = corners;
    for (QuadPoint& corner : shifted) {
        corner.x -= box.x;
        corner.y -= box.y;
    }
    return shifted;
}

bool isDrawable(const Image& source, const Rect& box)
{
    return source.getWidth() >= 2 && source.getHeight() >= 2 && box.width > 0;
}

} // namespace

Rect boundsOf(const QuadCorners& corners)
{
    double left = corners[0].x, right = left, top = corners[0].y, bottom = top;
    for (const QuadPoint& corner : corners) {
        if (!(std::abs(corner.x) < kFarthest && std::abs(corner.y) < kFarthest))
            return {};
        left = std::min(left, corner.x);
        right = std::max(right, corner.x);
        top = std::min(top, corner.y);
        bottom = std::max(bottom, corner.y);
    }
    const int x = static_cast<int>(left), y = static_cast<int>(top);
    return {x, y, static_cast<int>(right) - x + 1, static_cast<int>(bottom) - y + 1};
}

void drawImageToQuad(const Image& source, const QuadCorners& corners, Bitmap& target)
{
    drawImageToQuad(source, source.gradation, corners, target);
}

void drawImageToQuad(const Image& source, const std::optional<Gradation>& gradation,
                     const QuadCorners& corners, Bitmap& target)
{
    const Rect box = boundsOf(corners);
    if (!isDrawable(source, box) || target.isEmpty())
        return;
    const int firstColumn = std::max(0, -box.x);
    const int endColumn = std::min(box.width, target.getWidth() - box.x);
    const int firstRow = std::max(0, -box.y);
    const int endRow = std::min(box.height, target.getHeight() - box.y);
    if (firstColumn >= endColumn || firstRow >= endRow)
        return;

    const QuadMapping mapping(relativeTo(corners, box), box, source.getWidth(), source.getHeight());
    const QuadPaint paint(source, gradation);
    std::vector<std::int32_t> places(static_cast<std::size_t>(endColumn - firstColumn));
    QuadRow painter(paint, source, box);
    for (int row = firstRow; row < endRow; ++row) {
        const QuadMapping::Run run = mapping.mapRow(row, firstColumn, places);
        const int column = firstColumn + static_cast<int>(run.first);
        painter.draw(std::span(places).subspan(run.first, run.end - run.first), row, column,
                     target.getBits() + static_cast<std::size_t>(box.y + row) * target.getStride() +
                         static_cast<std::size_t>(box.x + column) * 4);
    }
}

Rect createWarpedImage(const Image& source, const QuadCorners& corners, Image& result)
{
    const Rect box = boundsOf(corners);
    if (!isDrawable(source, box) || !result.create(box.width, box.height))
        return {};
    result.getBitmap().setAlphaChannel(source.getBitmap().hasAlphaChannel());
    result.getBitmap().setColorKeyEnabled(source.getBitmap().isColorKeyEnabled());
    if (source.getColorKey() != Bitmap::kNoKey)
        result.setColorKey(source.getColorKey());
    const std::uint32_t outside = swapRedBlue(source.getColorKey()) & 0xFFFFFF;
    const QuadMapping mapping(relativeTo(corners, box), box, source.getWidth(), source.getHeight());
    const std::uint8_t* const pixels = source.getBitmap().getBits();
    std::vector<std::int32_t> places(static_cast<std::size_t>(result.getWidth()));
    for (int row = 0; row < result.getHeight(); ++row) {
        std::fill(places.begin(), places.end(), -1);
        mapping.mapRow(row, 0, places);
        for (int x = 0; x < result.getWidth(); ++x) {
            const std::int32_t place = places[static_cast<std::size_t>(x)];
            const std::uint32_t value =
                place < 0 ? outside : loadPixel(pixels + static_cast<std::size_t>(place) * 4);
            result.getBitmap().setPixelRgba(x, row, value);
        }
    }
    return box;
}

void fillConvexQuad(Bitmap& target, const QuadCorners& corners, std::uint32_t colour)
{
    const Rect box = boundsOf(corners);
    const int top = std::max(0, box.y), bottom = std::min(target.getHeight(), box.y + box.height);
    for (int y = top; y < bottom; ++y) {
        double left = target.getWidth(), right = 0;
        for (std::size_t i = 0; i < corners.size(); ++i) {
            const QuadPoint& a = corners[i];
            const QuadPoint& b = corners[(i + 1) % corners.size()];
            if (y < std::min(a.y, b.y) || y > std::max(a.y, b.y))
                continue;
            // A level edge covers the row between its ends, any other crosses it at one place.
            const double crossing = a.y == b.y ? a.x : a.x + (y - a.y) / (b.y - a.y) * (b.x - a.x);
            left = std::min({left, crossing, a.y == b.y ? b.x : crossing});
            right = std::max({right, crossing, a.y == b.y ? b.x : crossing});
        }
        const int first = std::max(0, static_cast<int>(std::ceil(left)));
        const int end = std::min(target.getWidth(), static_cast<int>(std::floor(right)) + 1);
        if (first < end)
            blendColour(swapRedBlue(colour), 255,
                        target.getBits() + static_cast<std::size_t>(y) * target.getStride() +
                            static_cast<std::size_t>(first) * 4,
                        static_cast<std::size_t>(end - first));
    }
}

} // namespace varn
