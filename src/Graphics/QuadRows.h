#pragma once

#include <cstdint>
#include <span>

namespace varn::quadrows {

/// A row of an upright wall: v of each column is -(constant - rowConstant) / linear, in single
/// precision; the column's place in the picture is known.
struct WallRow
{
    const float* linear; ///< not 0; infinite where the root is 0
    const double* constant;
    const std::int32_t* columns; ///< -1 outside
    // Nearly the same as a line over rowConstant: the picture's row is rowConstant * scale +
    // offset, off by less than `margin`.
    const float* scale;
    const float* offset;
    const float* margin;
    double rowConstant;
    int width, height; ///< of the picture
};

/// A row of a flat floor: u of column i is (first + (index + i) - shift) / divisor.
struct FloorRow
{
    double first;
    int index;
    double shift;
    double divisor; ///< not 0
    std::int32_t rowStart;
    int width;
};

/// How far single precision may lie from the exact place, in parts of the largest number it met:
/// four roundings of half a unit in the last of 24 places, and eight times as much again.
inline constexpr double kRounding = 1.0 / (1 << 19);

/// Pixel indices in the picture, -1 outside. The vector forms take the line in single precision
/// where it is sure, which is nearly everywhere: only a place next to a whole number asks for the
/// division.
void wallRow(const WallRow& row, std::span<std::int32_t> out);
void floorRow(const FloorRow& row, std::span<std::int32_t> out);

// One pixel at a time, with the same results.
void wallRowPlain(const WallRow& row, std::span<std::int32_t> out);
void floorRowPlain(const FloorRow& row, std::span<std::int32_t> out);

} // namespace varn::quadrows
