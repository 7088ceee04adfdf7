#include "Audio/OggDecoder.h"
#include "Decoder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    return varn::fuzz::decode<varn::OggDecoder>(data, size);
}
