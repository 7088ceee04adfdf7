#pragma once

#include "Graphics/Image.h"
#include "Graphics/Quad.h"
#include "Util/Rect.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace varn {

/// The warped picture of one piece of the view, kept ready to be laid down: its pixels with the fog
/// in them, and for each row the one run of columns that it covers.
class StockImage
{
  public:
    /// Warps a picture into a quad, as far as it lies on the view, and lays the fog over it.
    StockImage(const Image& source, const std::optional<Gradation>& fog, const QuadCorners& corners,
               const Rect& view);

    /// Lays the piece over a view of the size that it was made for.
    void draw(Bitmap& view) const;

  private:
    struct Span
    {
        std::uint32_t start = 0; ///< index of the first pixel in `pixels`
        std::int32_t first = 0, end = 0;
        bool opaque = true; ///< nothing below shows through
    };

    void addRow(std::span<const std::int32_t> places, const Image& source);
    bool isOpaque(std::span<const std::uint32_t> run) const;

    Rect box; ///< on the view, clipped to it
    std::vector<Span> spans;
    std::vector<std::uint32_t> pixels;
    bool hasAlpha;
    bool keyed;
    std::uint32_t key;
};

/// What tells one piece from another: the picture, where it lies, and the fog on it. The view's
/// size and the eye's height belong to the whole container, which is emptied when they change.
struct StockKey
{
    const Image* picture = nullptr;
    std::int8_t lateral = 0, distance = 0, side = 0;
    bool foggy = false;
    Gradation fog;

    bool operator==(const StockKey&) const = default;
};

/// The pieces made so far. It is emptied when the view's size or any picture changes.
class StockImageContainer
{
  public:
    const StockImage* find(const StockKey& key) const;
    const StockImage& add(const StockKey& key, StockImage piece);
    void clear() { pieces.clear(); }
    std::size_t size() const { return pieces.size(); }

  private:
    std::vector<std::pair<StockKey, std::unique_ptr<StockImage>>> pieces;
};

} // namespace varn
