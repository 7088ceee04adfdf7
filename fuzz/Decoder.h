#pragma once

#include "Audio/PCMDecoder.h"

#include <cstddef>
#include <cstdint>

namespace varn::fuzz {

/// Any bytes: refused, or a sound that can be filled to its end and sought.
template <class Decoder>
int decode(const std::uint8_t* data, std::size_t size)
{
    Decoder decoder;
    if (!decoder.openBytes({reinterpret_cast<const char*>(data), size}))
        return 0;
    std::byte buffer[8192];
    decoder.seek(decoder.size / 2);
    for (int count = 0; count < 64; ++count) {
        const auto filled = decoder.fill(buffer, count % 2 != 0);
        if (!filled.ok || filled.bytes > sizeof buffer)
            __builtin_trap();
        if (filled.ended)
            break;
    }
    return 0;
}

} // namespace varn::fuzz
