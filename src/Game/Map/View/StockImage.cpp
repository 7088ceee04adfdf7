#include "Game/Map/View/StockImage.h"

#include "Graphics/PixelLoops.h"
#include "Graphics/QuadMapping.h"

#include <algorithm>
#include <cstring>

namespace varn {

namespace {

std::uint32_t toPixelOrder(std::uint32_t colourReference)
{
    return (colourReference & 0xFF00) | (colourReference & 0xFF) << 16 |
           (colourReference >> 16 & 0xFF);
}

/// Gives pixels of the key colour alpha 0 and all others 255, since fog changes colours; returns
/// what all of them have in common.
std::uint32_t turnKeyToAlpha(std::uint32_t key, std::span<std::uint32_t> pixels)
{
    std::uint32_t common = ~0U;
    for (std::uint32_t& pixel : pixels) {
        const std::uint32_t colour = pixel & 0xFFFFFF;
        pixel = colour == key ? colour : colour | 0xFF000000;
        common &= pixel;
    }
    return common;
}

} // namespace

std::uint32_t* PixelPool::take(std::size_t count)
{
    constexpr std::size_t kBlock = 1 << 18;
    while (current < blocks.size() && blocks[current].size - used < count) {
        ++current;
        used = 0;
    }
    if (current == blocks.size()) {
        const std::size_t size = std::max(count, kBlock);
        blocks.push_back({std::make_unique_for_overwrite<std::uint32_t[]>(size), size});
    }
    std::uint32_t* const room = blocks[current].pixels.get() + used;
    used += count;
    return room;
}

StockImage::StockImage(const Image& source, const std::optional<Gradation>& fog,
                       const QuadCorners& corners, const Rect& view, PixelPool& pool)
    : hasAlpha(source.getBitmap().hasAlphaChannel()),
      keyed(!hasAlpha && source.getBitmap().isColorKeyEnabled() &&
            source.getColorKey() <= 0xFFFFFF),
      key(toPixelOrder(source.getColorKey()))
{
    const Rect whole = boundsOf(corners);
    const int left = std::max(view.x, whole.x),
              right = std::min(view.x + view.width, whole.x + whole.width);
    const int top = std::max(view.y, whole.y),
              bottom = std::min(view.y + view.height, whole.y + whole.height);
    if (left >= right || top >= bottom || source.getWidth() < 2 || source.getHeight() < 2)
        return;
    box = Rect(left, top, right - left, bottom - top);

    QuadCorners inBox = corners;
    for (QuadPoint& corner : inBox) {
        corner.x -= whole.x;
        corner.y -= whole.y;
    }
    const QuadMapping mapping(inBox, whole, source.getWidth(), source.getHeight());
    const std::vector<std::uint8_t> strengths =
        fog ? strengthTable(*fog, fog->horizontal ? whole.width : whole.height)
            : std::vector<std::uint8_t>();
    const bool rowsShareFog = !fog || fog->horizontal;
    std::vector<std::int32_t> places(static_cast<std::size_t>(box.width));
    spans.reserve(static_cast<std::size_t>(box.height));
    std::size_t unused = places.size() * static_cast<std::size_t>(box.height);
    std::uint32_t* room = pool.take(unused);
    std::optional<std::int32_t> above;
    for (int y = top; y < bottom; ++y) {
        const std::optional<std::int32_t> level = mapping.levelRow(y - whole.y);
        if (rowsShareFog && level && level == above) {
            spans.push_back(spans.back());
            continue;
        }
        above = level;
        const QuadMapping::Run run = mapping.mapRow(y - whole.y, left - whole.x, places);
        const Span span = makeSpan(places, run.first, run.end, source, room);
        const auto count = static_cast<std::size_t>(span.end - span.first);
        if (fog)
            applyGradation(*fog, strengths, y - whole.y, left - whole.x + span.first,
                           std::span(room, count));
        spans.push_back(span);
        room += count;
        unused -= count;
    }
    pool.giveBack(unused);
}

StockImage::Span StockImage::makeSpan(std::span<const std::int32_t> places, std::size_t first,
                                      std::size_t end, const Image& source,
                                      std::uint32_t* pixels) const
{
    // A quad of the view is convex: what lies inside a row is one run.
    while (first < end && places[first] < 0)
        ++first;
    while (end > first && places[end - 1] < 0)
        --end;
    std::uint32_t common =
        gatherPixels(source.getBitmap().getBits(), places.data() + first, pixels, end - first);
    if (keyed)
        common = turnKeyToAlpha(key, {pixels, end - first});
    const bool opaque = !(hasAlpha || keyed) || common >> 24 == 255;
    return {pixels, static_cast<std::int32_t>(first), static_cast<std::int32_t>(end), opaque};
}

void StockImage::draw(Bitmap& view) const
{
    RowStyle style;
    style.hasAlpha = hasAlpha || keyed;
    for (std::size_t row = 0; row < spans.size(); ++row) {
        const Span& span = spans[row];
        const auto count = static_cast<std::size_t>(span.end - span.first);
        if (count == 0)
            continue;
        std::uint8_t* const out = view.getBits() +
                                  (static_cast<std::size_t>(box.y) + row) * view.getStride() +
                                  (static_cast<std::size_t>(box.x) + span.first) * 4;
        const auto* const from = reinterpret_cast<const std::uint8_t*>(span.pixels);
        if (span.opaque)
            std::memcpy(out, from, count * 4);
        else
            blendRow(style, from, out, count);
    }
}

const StockImage* StockImageContainer::find(const StockKey& key) const
{
    for (const auto& [known, piece] : pieces)
        if (known == key)
            return piece.get();
    return nullptr;
}

const StockImage& StockImageContainer::add(const StockKey& key, const QuadCorners& corners,
                                           const Rect& view)
{
    return *pieces
                .emplace_back(
                    key, std::make_unique<StockImage>(*key.picture, key.fog, corners, view, pool))
                .second;
}

void StockImageContainer::clear()
{
    pieces.clear();
    pool.clear();
}

} // namespace varn
