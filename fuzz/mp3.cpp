#include "Audio/MP3Decoder.h"
#include "Decoder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    return varn::fuzz::decode<varn::MP3Decoder>(data, size);
}
