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

} // namespace

StockImage::StockImage(const Image& source, const std::optional<Gradation>& fog,
                       const QuadCorners& corners, const Rect& view)
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
    std::vector<std::int32_t> places(static_cast<std::size_t>(box.width));
    spans.reserve(static_cast<std::size_t>(box.height));
    pixels.reserve(static_cast<std::size_t>(box.width) * static_cast<std::size_t>(box.height));
    for (int y = top; y < bottom; ++y) {
        mapping.mapRow(y - whole.y, left - whole.x, places);
        addRow(places, source);
        const Span& span = spans.back();
        if (fog)
            applyGradation(*fog, strengths, y - whole.y, left - whole.x + span.first,
                           std::span(pixels).subspan(span.start));
    }
    pixels.shrink_to_fit();
}

bool StockImage::isOpaque(std::span<const std::uint32_t> run) const
{
    if (hasAlpha)
        return std::all_of(run.begin(), run.end(), [](std::uint32_t p) { return p >> 24 == 255; });
    return !keyed || std::none_of(run.begin(), run.end(),
                                  [this](std::uint32_t p) { return (p & 0xFFFFFF) == key; });
}

void StockImage::addRow(std::span<const std::int32_t> places, const Image& source)
{
    // A quad of the view is convex: what lies inside a row is one run.
    std::size_t first = 0, end = places.size();
    while (first < end && places[first] < 0)
        ++first;
    while (end > first && places[end - 1] < 0)
        --end;
    const std::size_t before = pixels.size();
    pixels.resize(before + (end - first));
    const std::uint8_t* const bits = source.getBitmap().getBits();
    for (std::size_t i = first; i < end; ++i)
        std::memcpy(&pixels[before + i - first],
                    bits + static_cast<std::size_t>(std::max(places[i], 0)) * 4,
                    sizeof(std::uint32_t));
    spans.push_back({static_cast<std::uint32_t>(before), static_cast<std::int32_t>(first),
                     static_cast<std::int32_t>(end), isOpaque(std::span(pixels).subspan(before))});
}

void StockImage::draw(Bitmap& view) const
{
    RowStyle style;
    style.hasAlpha = hasAlpha;
    style.keyed = keyed;
    style.key = key;
    for (std::size_t row = 0; row < spans.size(); ++row) {
        const Span& span = spans[row];
        const auto count = static_cast<std::size_t>(span.end - span.first);
        if (count == 0)
            continue;
        std::uint8_t* const out = view.getBits() +
                                  (static_cast<std::size_t>(box.y) + row) * view.getStride() +
                                  (static_cast<std::size_t>(box.x) + span.first) * 4;
        const auto* const from = reinterpret_cast<const std::uint8_t*>(&pixels[span.start]);
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

const StockImage& StockImageContainer::add(const StockKey& key, StockImage piece)
{
    return *pieces.emplace_back(key, std::make_unique<StockImage>(std::move(piece))).second;
}

} // namespace varn
