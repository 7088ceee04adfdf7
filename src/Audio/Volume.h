#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace varn {

/// Makes samples quieter in place: 8 bits around 128, or 16 bits signed within 32767 either way;
/// other widths stay. The products are in single precision and truncated.
/// @param volume  in percent; 100 leaves every byte
void applyVolume(std::span<std::byte> samples, std::uint32_t bitsPerSample, int volume);

} // namespace varn
