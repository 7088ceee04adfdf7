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

/// Pixel indices in the picture, -1 outside.
void wallRow(const WallRow& row, std::span<std::int32_t> out);
void floorRow(const FloorRow& row, std::span<std::int32_t> out);

// One pixel at a time, with the same results.
void wallRowPlain(const WallRow& row, std::span<std::int32_t> out);
void floorRowPlain(const FloorRow& row, std::span<std::int32_t> out);

} // namespace varn::quadrows
