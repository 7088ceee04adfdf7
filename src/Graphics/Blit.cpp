#include "Graphics/Blit.h"

#include "Graphics/PixelLoops.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace varn {

namespace {

constexpr std::size_t kPixelBytes = 4;

/// The columns of one blit: which target columns are written, and from which source columns.
struct Columns
{
    int firstTarget = 0;
    /// Source column of each target column, left to right; outside the picture it may be anything.
    std::vector<std::int64_t> sources;
    bool contiguous = false; ///< each source column is the one before plus 1

    Columns(int surfaceWidth, const Rect& target, const Rect& source)
    {
        const std::int64_t x = target.x, count = std::abs(std::int64_t{target.width});
        const bool mirrored = target.width < 0;
        const double step = static_cast<double>(source.width) / static_cast<double>(count);
        // The walk goes in the picture's order: its steps are sums, and sums round.
        const std::int64_t first = std::max<std::int64_t>(0, mirrored ? x - surfaceWidth + 1 : -x);
        const std::int64_t end = std::min(count, mirrored ? x + 1 : surfaceWidth - x);
        if (first >= end)
            return;
        double at = source.x;
        for (std::int64_t i = 0; i < end; ++i, at += step)
            if (i >= first)
                sources.push_back(static_cast<std::int64_t>(at));
        firstTarget = static_cast<int>(mirrored ? x - end + 1 : x + first);
        if (mirrored)
            std::reverse(sources.begin(), sources.end());
        contiguous = !mirrored && step == 1.0;
    }
};

/// Hands out the source pixels of a row, side by side.
class SourceRows
{
  public:
    SourceRows(const Bitmap& picture, const Columns& columns)
        : picture(picture), columns(columns),
          buffer(columns.contiguous ? 0 : columns.sources.size())
    {}

    /// A run of pixels and how many target columns stand before it.
    struct Run
    {
        const std::uint8_t* pixels = nullptr;
        std::size_t skipped = 0;
        std::size_t count = 0;
    };

    Run row(std::int64_t sourceRow)
    {
        const std::int64_t rowStart = sourceRow * picture.getWidth();
        const auto pixelCount = static_cast<std::int64_t>(picture.byteCount() / kPixelBytes);
        const auto isInside = [&](std::int64_t column) {
            return rowStart + column >= 0 && rowStart + column < pixelCount;
        };
        // What runs past the picture ends the row; only the first columns can lie before it.
        const auto& from = columns.sources;
        std::size_t begin = 0, end = from.size();
        while (begin < end && !isInside(from[begin]))
            ++begin;
        while (end > begin && !isInside(from[end - 1]))
            --end;
        if (begin == end)
            return {};
        if (columns.contiguous)
            return {pixelAt(rowStart + from[begin]), begin, end - begin};
        for (std::size_t i = begin; i < end; ++i)
            std::memcpy(&buffer[i - begin], pixelAt(rowStart + from[i]), kPixelBytes);
        return {reinterpret_cast<const std::uint8_t*>(buffer.data()), begin, end - begin};
    }

  private:
    const std::uint8_t* pixelAt(std::int64_t index) const
    {
        return picture.getBits() + static_cast<std::size_t>(index) * kPixelBytes;
    }

    const Bitmap& picture;
    const Columns& columns;
    std::vector<std::uint32_t> buffer;
};

std::uint32_t toPixelOrder(std::uint32_t colourReference)
{
    return (colourReference & 0xFF00) | (colourReference & 0xFF) << 16 |
           (colourReference >> 16 & 0xFF);
}

RowStyle styleOf(const Image& picture, std::uint8_t opacity)
{
    const Bitmap& bitmap = picture.getBitmap();
    RowStyle style;
    style.hasAlpha = bitmap.hasAlphaChannel();
    style.keyed = bitmap.isColorKeyEnabled() && bitmap.getColorKey() <= 0xFFFFFF;
    style.key = toPixelOrder(bitmap.getColorKey());
    style.toneStrength = static_cast<std::uint8_t>(picture.tone >> 24);
    style.tone = toPixelOrder(picture.tone);
    style.opacity = opacity;
    return style;
}

} // namespace

void blitImage(Bitmap& surface, const Image& picture, const Rect& target, const Rect& source)
{
    const Bitmap& bitmap = picture.getBitmap();
    const auto opacity = static_cast<std::uint8_t>(picture.opacity * 255);
    if (opacity == 0 || target.width == 0 || target.height == 0 || source.width == 0 ||
        source.height == 0 || surface.isEmpty() || bitmap.isEmpty())
        return;
    const bool plain = !bitmap.isColorKeyEnabled() && !bitmap.hasAlphaChannel();
    const RowStyle style = styleOf(picture, opacity);
    const Columns columns(surface.getWidth(), target, source);
    SourceRows rows(bitmap, columns);
    const std::int64_t y = target.y, height = std::abs(std::int64_t{target.height});
    const double step = static_cast<double>(source.height) / static_cast<double>(height);
    const std::int64_t endRow = std::min(height, surface.getHeight() - y);
    for (std::int64_t j = std::max<std::int64_t>(0, -y); j < endRow; ++j) {
        const SourceRows::Run run =
            rows.row(static_cast<std::int64_t>(source.y + static_cast<double>(j) * step));
        if (run.count == 0)
            continue;
        std::uint8_t* const out =
            surface.getBits() + static_cast<std::size_t>(y + j) * surface.getStride() +
            (static_cast<std::size_t>(columns.firstTarget) + run.skipped) * kPixelBytes;
        if (plain)
            std::memcpy(out, run.pixels, run.count * kPixelBytes);
        else
            blendRow(style, run.pixels, out, run.count);
    }
}

void copyBitmap(Bitmap& surface, const Bitmap& picture, int x, int y)
{
    const int left = std::max(0, x), right = std::min(surface.getWidth(), x + picture.getWidth());
    const int bottom = std::min(surface.getHeight(), y + picture.getHeight());
    if (left >= right)
        return;
    for (int row = std::max(0, y); row < bottom; ++row)
        std::memcpy(surface.getBits() + static_cast<std::size_t>(row) * surface.getStride() +
                        static_cast<std::size_t>(left) * kPixelBytes,
                    picture.getBits() + static_cast<std::size_t>(row - y) * picture.getStride() +
                        static_cast<std::size_t>(left - x) * kPixelBytes,
                    static_cast<std::size_t>(right - left) * kPixelBytes);
}

} // namespace varn
