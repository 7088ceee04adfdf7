#include "Graphics/Gradation.h"

#include "Graphics/PixelLoops.h"

#include <cstddef>

namespace varn {

std::vector<std::uint8_t> strengthTable(const Gradation& gradation, int steps)
{
    std::vector<std::uint8_t> table(static_cast<std::size_t>(steps));
    const float step = static_cast<float>(gradation.endStrength - gradation.startStrength) /
                       static_cast<float>(steps);
    float strength = gradation.startStrength;
    for (std::uint8_t& entry : table) {
        entry = static_cast<std::uint8_t>(strength);
        strength += step;
    }
    return table;
}

void applyGradation(const Gradation& gradation, std::span<const std::uint8_t> strengths, int row,
                    int column, std::span<std::uint32_t> pixels)
{
    const std::uint32_t colour = (gradation.colour & 0xFF00) | (gradation.colour & 0xFF) << 16 |
                                 (gradation.colour >> 16 & 0xFF);
    if (gradation.horizontal)
        fogRowAcross(colour, strengths.data() + column, pixels.data(), pixels.size());
    else
        fogRow(colour, strengths[static_cast<std::size_t>(row)], pixels.data(), pixels.size());
}

} // namespace varn
