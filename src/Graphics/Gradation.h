#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace varn {

/// A colour that lies over a quad with a strength running from one edge to the other.
struct Gradation
{
    std::uint32_t colour = 0; ///< colour reference
    /// 255 leaves the picture as it is, 0 gives the pure colour.
    std::uint8_t startStrength = 255;
    std::uint8_t endStrength = 255;
    bool horizontal = false; ///< runs by column, else by row

    bool operator==(const Gradation&) const = default;
};

/// The strength at each of so many columns or rows: run in single precision, truncated.
std::vector<std::uint8_t> strengthTable(const Gradation& gradation, int steps);

/// Lays the gradation over a run of pixels of a quad: c = (c - g) * strength / 255 + g, truncated
/// toward zero, alpha untouched.
/// @param strengths  of the whole quad
/// @param row        the run's row, in the quad's box
/// @param column     the run's first column there
void applyGradation(const Gradation& gradation, std::span<const std::uint8_t> strengths, int row,
                    int column, std::span<std::uint32_t> pixels);

} // namespace varn
