#include "MapEditor3D/canvas/TileStrip.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace varn {

namespace {

/// The share of each source pixel in a target pixel, along one axis.
struct Share
{
    int place;
    float part;
};

/// What target pixel `at` of `count` covers of `length` source pixels that begin at `first`.
std::vector<Share> sharesOf(int at, int count, int first, int length)
{
    const double from = static_cast<double>(at) * length / count;
    const double to = static_cast<double>(at + 1) * length / count;
    std::vector<Share> shares;
    for (int place = static_cast<int>(from); place < std::min<double>(length, std::ceil(to));
         ++place) {
        const double part = std::min<double>(to, place + 1) - std::max<double>(from, place);
        shares.push_back({first + place, static_cast<float>(part / (to - from))});
    }
    return shares;
}

float alphaOf(const Bitmap& bitmap, std::uint32_t pixel, std::uint32_t colour)
{
    if (bitmap.hasAlphaChannel())
        return static_cast<float>(pixel >> 24) / 255;
    return bitmap.isColorKeyEnabled() && colour == bitmap.getColorKey() ? 0.F : 1.F;
}

} // namespace

Image scaledPart(const Image& source, const Rect& part, int width, int height)
{
    Image scaled;
    if (!scaled.create(width, height))
        return scaled;
    scaled.getBitmap().setAlphaChannel(true);
    scaled.getBitmap().setColorKeyEnabled(false);
    const Bitmap& bitmap = source.getBitmap();
    std::vector<std::vector<Share>> columns(static_cast<std::size_t>(width));
    for (int x = 0; x < width; ++x)
        columns[static_cast<std::size_t>(x)] = sharesOf(x, width, part.x, part.width);
    for (int y = 0; y < height; ++y) {
        const std::vector<Share> rows = sharesOf(y, height, part.y, part.height);
        for (int x = 0; x < width; ++x) {
            // Channels weighted by alpha, or a clear pixel's colour would bleed into its
            // neighbours.
            std::array<float, 4> sum{};
            for (const Share& row : rows) {
                for (const Share& column : columns[static_cast<std::size_t>(x)]) {
                    if (column.place >= bitmap.getWidth() || row.place >= bitmap.getHeight())
                        continue;
                    const std::uint32_t pixel = bitmap.getPixelValue(column.place, row.place);
                    const float weight =
                        row.part * column.part *
                        alphaOf(bitmap, pixel, bitmap.getPixelColor(column.place, row.place));
                    for (std::size_t channel = 0; channel < 3; ++channel)
                        sum[channel] += weight * static_cast<float>(pixel >> (8 * channel) & 0xFF);
                    sum[3] += weight;
                }
            }
            std::uint32_t value = 0;
            for (std::size_t channel = 0; channel < 3 && sum[3] > 0; ++channel)
                value |= static_cast<std::uint32_t>(std::lround(sum[channel] / sum[3]))
                         << (8 * channel);
            const auto alpha = static_cast<std::uint32_t>(std::lround(sum[3] * 255));
            scaled.getBitmap().setPixelRgba(x, y, value | alpha << 24);
        }
    }
    return scaled;
}

void TileStrip::use(const Image* next, int nextSide)
{
    if (next == strip && nextSide == side)
        return;
    strip = next;
    side = nextSide;
    forget();
}

int TileStrip::count() const
{
    return strip ? std::max(1, strip->getWidth() / kTile) * (strip->getHeight() / kTile) : 0;
}

bool TileStrip::draw(Graphics& target, int index, Point corner, double opacity)
{
    if (index < 0 || index >= count() || side < 1)
        return false;
    auto known = tiles.find(index);
    if (known == tiles.end()) {
        const int perRow = std::max(1, strip->getWidth() / kTile);
        PlacedPicture tile;
        tile.picture = scaledPart(
            *strip, {index % perRow * kTile, index / perRow * kTile, kTile, kTile}, side, side);
        tile.trim();
        known = tiles.emplace(index, std::move(tile)).first;
    }
    known->second.draw(target, corner, opacity);
    return true;
}

} // namespace varn
