#pragma once

#include <span>
#include <string_view>

namespace varn {

/// A point of an icon in its box of 24 by 24 units, from the upper left corner.
struct IconPoint
{
    float x, y;
};

/// One stroke of an icon.
struct IconStroke
{
    enum class Kind
    {
        Line,   ///< straight from point to point
        Closed, ///< the same, the last point joined with the first
        Filled, ///< closed and filled, without a stroke
        Curve,  ///< cubic Bezier curves: a start, then two handles and an end for each
        Circle, ///< its centre, and the point of it to the right
        Disc    ///< the same, filled, without a stroke
    };

    Kind kind;
    std::span<const IconPoint> points;
};

/// A drawn icon. All have one stroke width, `kIconStroke`, with round ends and corners; with it
/// they keep a unit of their box free on every side.
struct IconPath
{
    std::string_view name; ///< "zoomIn"
    std::span<const IconStroke> strokes;
};

inline constexpr float kIconBox = 24;
inline constexpr float kIconStroke = 1.75F;

/// All icons, in the order of the table; they live as long as the program.
std::span<const IconPath> iconPaths();
/// Null for an unknown name.
const IconPath* findIcon(std::string_view name);

} // namespace varn
