#include "Game/Map/View/ViewGeometry.h"

#include <cmath>

namespace varn {

namespace {

/// Overlap of a side wall with the wall behind it; without it a crack of one pixel shows.
constexpr double kCrack = 0.05;

double whole(double value)
{
    return std::trunc(value);
}

QuadPoint at(double x, double y)
{
    return {whole(x), whole(y)};
}

QuadPoint between(const QuadPoint& a, const QuadPoint& b, double part)
{
    return {a.x + (b.x - a.x) * part, a.y + (b.y - a.y) * part};
}

} // namespace

struct ViewGeometry::Measures
{
    double farWidth, farHeight, nearWidth, nearHeight;
    double sideShift;
    double centreX, centreY;
    double frontLeft, frontTop, nearTop;
};

ViewGeometry::Measures ViewGeometry::measure(ViewPlace place) const
{
    const int width = view.width * 4 / 3, height = view.height * 4 / 3;
    const double scale = std::ldexp(1.0, -(std::abs(place.distance) + 1));
    const double eyeLift = 128 - eyeHeight;
    const double eyeScale = (2 - eyeHeight / 128.0) * 0.5;
    Measures m{};
    m.farWidth = scale * width;
    m.farHeight = scale * height;
    m.nearWidth = m.farWidth / 0.5;
    m.nearHeight = m.farHeight / 0.5;
    m.sideShift = (std::abs(place.lateral) + 0.5) * (m.nearWidth - m.farWidth);
    m.centreX = view.x + view.width / 2;
    m.centreY = view.y + view.height / 2;
    m.frontLeft = place.lateral * m.farWidth + m.centreX - m.farWidth * 0.5;
    m.frontTop = m.centreY + eyeLift - m.farHeight * eyeScale;
    m.nearTop = m.centreY + eyeLift - m.nearHeight * eyeScale;
    return m;
}

std::optional<QuadCorners> ViewGeometry::wall(ViewPlace place, ViewSide side) const
{
    const Measures m = measure(place);
    const double frontBottom = m.frontTop + m.farHeight, nearBottom = m.nearTop + m.nearHeight;
    switch (side) {
    case ViewSide::Front: {
        const double right = m.frontLeft + m.farWidth;
        return QuadCorners{at(m.frontLeft, m.frontTop), at(m.frontLeft, frontBottom),
                           at(right, frontBottom), at(right, m.frontTop)};
    }
    case ViewSide::Right: {
        if (place.lateral < 0)
            return std::nullopt;
        const double farX = whole(m.frontLeft + m.farWidth - kCrack);
        const double nearX = farX + m.sideShift + 1;
        return QuadCorners{at(farX, m.frontTop), at(farX, frontBottom), at(nearX, nearBottom),
                           at(nearX, m.nearTop)};
    }
    case ViewSide::Left: {
        if (place.lateral > 0)
            return std::nullopt;
        const double nearX = m.frontLeft - m.sideShift, farX = m.frontLeft + kCrack;
        return QuadCorners{at(nearX, m.nearTop), at(nearX, nearBottom), at(farX, frontBottom),
                           at(farX, m.frontTop)};
    }
    }
    return std::nullopt;
}

QuadCorners ViewGeometry::trapezoid(ViewPlace place, double marginFar, double marginNear,
                                    double insetFar, double insetNear) const
{
    const Measures m = measure(place);
    const double stepX = m.nearWidth - m.farWidth, stepY = m.nearHeight - m.farHeight;
    const double nearLeft = m.centreX - m.nearWidth * 0.5 + place.lateral * m.nearWidth;
    const double farY = m.frontTop + m.farHeight + m.farHeight * marginFar;
    const double nearY = m.nearTop + m.nearHeight - stepY * marginNear - 1;
    const double farIn = stepX * insetFar, nearIn = stepX * insetNear;
    return {at(m.frontLeft + farIn, farY), at(nearLeft + nearIn, nearY),
            at(nearLeft + m.nearWidth - nearIn, nearY), at(m.frontLeft + m.farWidth - farIn, farY)};
}

QuadCorners ViewGeometry::mirrored(const QuadCorners& floorQuad) const
{
    const double axis = 2.0 * (view.y + view.height / 2);
    const auto flip = [axis](const QuadPoint& p) { return QuadPoint{p.x, axis - p.y}; };
    return {flip(floorQuad[1]), flip(floorQuad[0]), flip(floorQuad[3]), flip(floorQuad[2])};
}

QuadCorners ViewGeometry::floor(ViewPlace place) const
{
    return trapezoid(place, 0, 0, 0, 0);
}

QuadCorners ViewGeometry::ceiling(ViewPlace place) const
{
    return mirrored(floor(place));
}

QuadCorners ViewGeometry::flatFloor(ViewPlace place) const
{
    return trapezoid(place, 0.1, 0.1, 0.24, 0.3);
}

QuadCorners ViewGeometry::flatCeiling(ViewPlace place) const
{
    return mirrored(flatFloor(place));
}

QuadCorners ViewGeometry::upright(ViewPlace place) const
{
    constexpr double kPictureWidth = 0.6;
    const QuadCorners tile = floor(place);
    const QuadPoint left = between(tile[0], tile[1], 0.5), right = between(tile[3], tile[2], 0.5);
    const double width = right.x - left.x;
    // A cell is as high as it is wide on a view of 4 by 3: height follows the view's shape.
    const double height = width * view.height / view.width * kPictureWidth;
    const double inset = width * (1 - kPictureWidth) / 2;
    return {at(left.x + inset, left.y - height), at(left.x + inset, left.y),
            at(right.x - inset, right.y), at(right.x - inset, right.y - height)};
}

std::optional<QuadCorners> ViewGeometry::onWall(ViewPlace place, ViewSide side) const
{
    constexpr double kEdge = 0.2;
    const std::optional<QuadCorners> quad = wall(place, side);
    if (!quad)
        return std::nullopt;
    const auto inside = [&](double u, double v) {
        const QuadPoint p =
            between(between((*quad)[0], (*quad)[1], v), between((*quad)[3], (*quad)[2], v), u);
        return at(p.x, p.y);
    };
    return QuadCorners{inside(kEdge, kEdge), inside(kEdge, 1 - kEdge), inside(1 - kEdge, 1 - kEdge),
                       inside(1 - kEdge, kEdge)};
}

} // namespace varn
