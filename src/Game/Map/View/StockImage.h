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

/// Room for the pixels of many pieces, which is all given back at once and kept for the next ones:
/// fresh memory would cost more than the warping.
class PixelPool
{
  public:
    /// Room for so many pixels, not set to anything; it stays until `clear`.
    std::uint32_t* take(std::size_t count);
    /// Returns the last part of what was taken last.
    void giveBack(std::size_t count) { used -= count; }
    void clear() { current = used = 0; }

  private:
    struct Block
    {
        std::unique_ptr<std::uint32_t[]> pixels;
        std::size_t size;
    };

    std::vector<Block> blocks;
    std::size_t current = 0, used = 0; ///< the block in use, and how much of it
};

/// The warped picture of one piece of the view, kept ready to be laid down: its pixels with the fog
/// in them, and for each row the one run of columns that it covers.
class StockImage
{
  public:
    /// Warps a picture into a quad, as far as it lies on the view, and lays the fog over it. The
    /// pixels live in the pool.
    StockImage(const Image& source, const std::optional<Gradation>& fog, const QuadCorners& corners,
               const Rect& view, PixelPool& pool);

    /// Lays the piece over a view of the size that it was made for.
    void draw(Bitmap& view) const;

  private:
    struct Span
    {
        std::uint32_t* pixels = nullptr; ///< may be those of the row above
        std::int32_t first = 0, end = 0;
        bool opaque = true; ///< nothing below shows through
    };

    /// @param first, end  the columns of `places` that were mapped
    Span makeSpan(std::span<const std::int32_t> places, std::size_t first, std::size_t end,
                  const Image& source, std::uint32_t* pixels) const;

    Rect box; ///< on the view, clipped to it
    std::vector<Span> spans;
    bool hasAlpha;
    bool keyed; ///< by a colour; the pixels here carry it as alpha
    std::uint32_t key;
};

/// What tells one piece from another: the picture, where it lies, and the fog on it. The view's
/// size and the eye's height belong to the whole container, which is emptied when they change.
struct StockKey
{
    const Image* picture = nullptr;
    std::int8_t lateral = 0, distance = 0, side = 0;
    std::optional<Gradation> fog;

    bool operator==(const StockKey&) const = default;
};

/// The pieces made so far. It is emptied when the view's size or any picture changes.
class StockImageContainer
{
  public:
    const StockImage* find(const StockKey& key) const;
    const StockImage& add(const StockKey& key, const QuadCorners& corners, const Rect& view);
    void clear();

  private:
    PixelPool pool;
    std::vector<std::pair<StockKey, std::unique_ptr<StockImage>>> pieces;
};

} // namespace varn
