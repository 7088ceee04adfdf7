#include "Graphics/QuadMapping.h"

#include "Graphics/QuadRows.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace varn {

namespace {

QuadPoint minus(const QuadPoint& p, const QuadPoint& q)
{
    return {p.x - q.x, p.y - q.y};
}

/// Stands for a linear part of 0, whose root is 0.
constexpr float kNoLinear = std::numeric_limits<float>::infinity();

/// The linear case's root, in single precision.
float linearRoot(double b, double c)
{
    return b == 0 ? 0.0F : static_cast<float>(-c) / static_cast<float>(b);
}

/// Keeps of a run what lies between two columns, and a few more: rounding moves them by far less.
QuadMapping::Run clip(std::size_t count, double least, double most)
{
    constexpr double kSpare = 2;
    const auto columns = static_cast<double>(count);
    const double first = std::clamp(std::floor(least) - kSpare, 0.0, columns);
    const double end = std::clamp(std::ceil(most) + kSpare, first, columns);
    return {static_cast<std::size_t>(first), static_cast<std::size_t>(end)};
}

} // namespace

QuadMapping::QuadMapping(const QuadCorners& q, const Rect& box, int sourceWidth, int sourceHeight)
    : origin(q[0]), b(minus(q[3], q[0])), c(minus(q[1], q[0])), width(sourceWidth),
      height(sourceHeight)
{
    a = {q[2].x - q[3].x - q[1].x + q[0].x, q[2].y - q[3].y - q[1].y + q[0].y};
    quadratic = a.x * c.y - c.x * a.y;
    shape = Shape::General;
    if (c.x == 0 && a.x == 0 && b.x != 0)
        shape = b.y == 0 && a.y == 0 && c.y != 0 ? Shape::Front : Shape::Wall;
    else if (b.y == 0 && a.y == 0)
        shape = Shape::Floor;
    if (shape == Shape::Wall || shape == Shape::Front)
        prepareColumns(box);
}

void QuadMapping::prepareColumns(const Rect& box)
{
    const auto columns = static_cast<std::size_t>(std::max(0, box.width));
    sourceColumns.resize(columns);
    linearParts.resize(columns);
    constantParts.resize(columns);
    scales.resize(columns);
    offsets.resize(columns);
    margins.resize(columns);
    // The largest rowConstant there can be.
    const double reach = std::abs(b.x) * (std::abs(origin.y) + std::max(0, box.height));
    for (std::size_t i = 0; i < columns; ++i) {
        const double dx = static_cast<int>(i) - origin.x;
        const double x = (width - 1) * (dx / b.x);
        sourceColumns[i] = x >= 0 && x < width ? static_cast<std::int32_t>(x) : -1;
        const double linear = b.x * c.y + dx * a.y;
        linearParts[i] = linear == 0 ? kNoLinear : static_cast<float>(linear);
        constantParts[i] = dx * b.y;
        const double scale = (height - 1) / static_cast<double>(linearParts[i]);
        const double offset = -constantParts[i] * scale;
        scales[i] = static_cast<float>(scale);
        offsets[i] = static_cast<float>(offset);
        margins[i] = static_cast<float>((std::abs(scale) * reach + std::abs(offset) + height) *
                                        quadrows::kRounding);
    }
}

std::int32_t QuadMapping::indexOf(double u, double v) const
{
    const double x = (width - 1) * u;
    const double y = (height - 1) * v;
    // Written so that a position that is no number is outside.
    const bool inside = x >= 0 && y >= 0 && x < width && y < height;
    return inside ? static_cast<std::int32_t>(y) * width + static_cast<std::int32_t>(x) : -1;
}

std::int32_t QuadMapping::solve(double dx, double dy) const
{
    const double linear = b.x * c.y + dx * a.y - c.x * b.y - a.x * dy;
    const double constant = dx * b.y - b.x * dy;
    double v;
    if (quadratic == 0) {
        v = linearRoot(linear, constant);
    } else {
        const double discriminant = linear * linear - 4 * quadratic * constant;
        if (discriminant < 0)
            return -1;
        v = (-linear + std::sqrt(discriminant)) / (2 * quadratic);
    }
    const double divisor = a.x * v + b.x;
    const double u = divisor == 0 ? 0 : (dx - c.x * v) / divisor;
    return indexOf(u, v);
}

void QuadMapping::mapRowPlain(int row, int first, std::span<std::int32_t> out) const
{
    const double dy = row - origin.y;
    for (std::size_t i = 0; i < out.size(); ++i)
        out[i] = solve(first + static_cast<int>(i) - origin.x, dy);
}

void QuadMapping::mapWallRow(double dy, int first, std::span<std::int32_t> out) const
{
    const auto from = static_cast<std::size_t>(first);
    quadrows::wallRow({.linear = linearParts.data() + from,
                       .constant = constantParts.data() + from,
                       .columns = sourceColumns.data() + from,
                       .scale = scales.data() + from,
                       .offset = offsets.data() + from,
                       .margin = margins.data() + from,
                       .rowConstant = b.x * dy,
                       .width = width,
                       .height = height},
                      out);
}

QuadMapping::Run QuadMapping::mapFloorRow(double dy, int first, std::span<std::int32_t> out) const
{
    const double linear = b.x * c.y - a.x * dy;
    const double constant = -(b.x * dy);
    double v;
    if (quadratic == 0) {
        v = linearRoot(linear, constant);
    } else {
        const double discriminant = linear * linear - 4 * quadratic * constant;
        v = (-linear + std::sqrt(discriminant)) /
            (2 * quadratic); // no number when negative: outside
    }
    const double y = (height - 1) * v;
    if (!(y >= 0 && y < height))
        return {};
    const std::int32_t rowStart = static_cast<std::int32_t>(y) * width;
    const double divisor = a.x * v + b.x, shift = c.x * v;
    Run run{0, out.size()};
    if (divisor == 0) { // u is 0 all over
        std::fill(out.begin(), out.end(), rowStart);
        return run;
    }
    if (divisor > 0) {
        const double left = shift + origin.x - first;
        run = clip(out.size(), left, left + divisor * width / (width - 1));
    }
    quadrows::floorRow({.first = -origin.x,
                        .index = first + static_cast<int>(run.first),
                        .shift = shift,
                        .divisor = divisor,
                        .rowStart = rowStart,
                        .width = width},
                       out.subspan(run.first, run.end - run.first));
    return run;
}

std::optional<std::int32_t> QuadMapping::levelRow(int row) const
{
    if (shape != Shape::Front)
        return std::nullopt;
    const double dy = row - origin.y;
    const double y = (height - 1) * static_cast<double>(linearRoot(b.x * c.y, -(b.x * dy)));
    return y >= 0 && y < height ? static_cast<std::int32_t>(y) : -1;
}

void QuadMapping::mapFrontRow(int row, int first, std::span<std::int32_t> out) const
{
    const std::int32_t y = *levelRow(row);
    const std::int32_t* const columns = sourceColumns.data() + first;
    const std::int32_t start = y * width;
    for (std::size_t i = 0; i < out.size(); ++i)
        out[i] = columns[i] < 0 ? -1 : start + columns[i];
}

QuadMapping::Run QuadMapping::wallRun(double dy, int first, std::size_t count) const
{
    // Where the wall has a height all along, a row meets its upper and its lower edge once each.
    const bool upright = b.x > 0 && !linearParts.empty() && linearParts.front() > 0 &&
                         linearParts.back() > 0 && std::isfinite(linearParts.front()) &&
                         std::isfinite(linearParts.back());
    if (!upright)
        return {0, count};
    const double past = static_cast<double>(height) / (height - 1); // v there is outside
    double least = -1e9, most = 1e9;
    if (b.y > 0)
        most = b.x * dy / b.y;
    else if (b.y < 0)
        least = b.x * dy / b.y;
    const double slope = past * a.y + b.y, lower = b.x * dy - past * b.x * c.y;
    if (slope > 0)
        least = std::max(least, lower / slope);
    else if (slope < 0)
        most = std::min(most, lower / slope);
    return clip(count, least + origin.x - first, most + origin.x - first);
}

QuadMapping::Run QuadMapping::mapRow(int row, int first, std::span<std::int32_t> out) const
{
    const double dy = row - origin.y;
    Run run{0, out.size()};
    switch (shape) {
    case Shape::Front:
        if (*levelRow(row) < 0)
            return {};
        mapFrontRow(row, first, out);
        break;
    case Shape::Wall:
        run = wallRun(dy, first, out.size());
        mapWallRow(dy, first + static_cast<int>(run.first),
                   out.subspan(run.first, run.end - run.first));
        break;
    case Shape::Floor:
        run = mapFloorRow(dy, first, out);
        break;
    case Shape::General:
        mapRowPlain(row, first, out);
        break;
    }
    return run;
}

} // namespace varn
