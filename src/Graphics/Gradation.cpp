#include "Graphics/Gradation.h"

#include <cstddef>

namespace varn {

namespace {

std::uint32_t fogged(std::uint32_t pixel, const Gradation& gradation, int strength)
{
    std::uint32_t out = pixel & 0xFF000000;
    for (int channel = 0; channel < 3; ++channel) {
        const int c = static_cast<int>(pixel >> (channel * 8) & 0xFF);
        const int g = static_cast<int>(gradation.colour >> ((2 - channel) * 8) & 0xFF);
        out |= static_cast<std::uint32_t>((c - g) * strength / 255 + g) << (channel * 8);
    }
    return out;
}

} // namespace

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
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        const std::size_t step =
            static_cast<std::size_t>(gradation.horizontal ? column + static_cast<int>(i) : row);
        pixels[i] = fogged(pixels[i], gradation, strengths[step]);
    }
}

} // namespace varn
