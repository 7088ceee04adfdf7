#pragma once

#include "Graphics/Quad.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace varn {

/// Where the pixels of one box row lie in the picture, as pixel indices: y * width + x, or -1
/// outside.
///
/// The general form solves the quadratic for every pixel. Some shapes are simpler, and give the
/// very same results: upright walls, whose sides are vertical (u belongs to the column, v is a line
/// over the rows), walls that face the viewer (v belongs to the row too), and flat floors, whose
/// near and far edges are level (v belongs to the row, u is a line over the columns).
class QuadMapping
{
  public:
    /// @param corners  relative to the box
    QuadMapping(const QuadCorners& corners, const Rect& box, int sourceWidth, int sourceHeight);

    /// Some of the columns asked for.
    struct Run
    {
        std::size_t first = 0, end = 0;
    };

    /// @param first  first column of the box wanted; all wanted columns lie in the box
    /// @param out    output, a pixel index a column
    /// @returns the columns that were set; those beside them lie outside
    Run mapRow(int row, int first, std::span<std::int32_t> out) const;
    /// The picture's row that lies all along a row of the box, where there is one: a wall that
    /// faces the viewer. Rows of the box with the same one are the same. -1 outside.
    std::optional<std::int32_t> levelRow(int row) const;
    /// One pixel at a time, by the general form: what `mapRow` is held to.
    void mapRowPlain(int row, int first, std::span<std::int32_t> out) const;

  private:
    enum class Shape
    {
        General,
        Wall,
        Front, ///< a wall whose upper and lower edges are level: the picture scaled
        Floor
    };

    std::int32_t indexOf(double u, double v) const;
    std::int32_t solve(double dx, double dy) const;
    void prepareColumns(const Rect& box);
    Run wallRun(double dy, int first, std::size_t count) const;
    void mapWallRow(double dy, int first, std::span<std::int32_t> out) const;
    void mapFrontRow(int row, int first, std::span<std::int32_t> out) const;
    Run mapFloorRow(double dy, int first, std::span<std::int32_t> out) const;

    QuadPoint origin, a, b, c;
    double quadratic;
    int width, height;
    Shape shape;
    // Of a wall, by column of the box: the picture's column (-1 outside), and the two parts of the
    // root that do not depend on the row.
    std::vector<std::int32_t> sourceColumns;
    std::vector<float> linearParts;
    std::vector<double> constantParts;
    std::vector<float> scales, offsets, margins; ///< as in quadrows::WallRow
};

} // namespace varn
