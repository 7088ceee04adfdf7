#pragma once

#include <span>
#include <string_view>

namespace varn {

/// A point of an icon in its box of 24 by 24 units, from the upper left corner.
struct IconPoint
{
    float x, y;
};

/// One stroke of an icon: straight lines from point to point, or an arc of a circle.
struct IconStroke
{
    enum class Kind
    {
        Line,   ///< open
        Closed, ///< the last point is joined with the first
        Filled, ///< closed and filled, without a stroke
        Curve,  ///< cubic Bezier curves: a start, then three points for each
        Circle, ///< one point, the centre, and one on the circle
        Disc    ///< the same, filled
    };

    Kind kind;
    std::span<const IconPoint> points;
};

/// A drawn icon. All have one stroke width, `kIconStroke`, with round ends and corners, and keep
/// two units of their box free on every side.
struct IconPath
{
    std::string_view name; ///< "zoomIn"
    std::span<const IconStroke> strokes;
};

inline constexpr float kIconBox = 24;
inline constexpr float kIconStroke = 1.75F;

/// All icons, by name.
std::span<const IconPath> iconPaths();
/// Null for an unknown name.
const IconPath* findIcon(std::string_view name);

} // namespace varn
