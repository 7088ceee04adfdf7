#pragma once

#include <cstdint>

namespace varn {

/// A rectangle in the two spellings the drawing classes use. The two are set together; `right` and
/// `bottom` are exclusive.
struct Rect
{
    std::int32_t left = 0, top = 0, right = 0, bottom = 0;
    std::int32_t x = 0, y = 0, width = 0, height = 0;

    Rect() = default;
    Rect(std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height)
        : left(x), top(y), right(sum(x, width)), bottom(sum(y, height)), x(x), y(y), width(width),
          height(height)
    {}

    /// True when each starts before the other ends on both axes; touching is no overlap.
    bool overlaps(const Rect& other) const
    {
        return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }
    bool operator==(const Rect&) const = default;

  private:
    /// Wraps: numbers of a script may be any.
    static std::int32_t sum(std::int32_t a, std::int32_t b)
    {
        return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) +
                                         static_cast<std::uint32_t>(b));
    }
};

} // namespace varn
