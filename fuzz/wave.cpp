#include "Audio/WavDecoder.h"

#include <cstddef>
#include <cstdint>

// Any bytes as a .wav file: refused, or samples that lie inside the file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    varn::WavDecoder decoder;
    const bool opened = decoder.openBytes({reinterpret_cast<const char*>(data), size});
    if (opened != decoder.isOpen() || decoder.size > size)
        __builtin_trap();
    return 0;
}
