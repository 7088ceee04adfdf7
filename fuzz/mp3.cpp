#include "Audio/MP3Decoder.h"

#include <cstddef>
#include <cstdint>

// Any bytes as a .mp3 file: refused, or a sound that can be filled to its end and sought.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    varn::MP3Decoder decoder;
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
