#include "Graphics/Bitmap.h"

#include <cstddef>
#include <cstdint>

// Any bytes as a .png file: a picture, an empty bitmap or an Exception, never anything else.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    varn::Bitmap bitmap;
    try {
        bitmap.loadBytes(std::as_bytes(std::span(data, size)), u"picture.png");
    } catch (const varn::Exception&) {
    }
    if (!bitmap.isEmpty() && bitmap.byteCount() != static_cast<std::size_t>(bitmap.getStride()) * bitmap.getHeight())
        __builtin_trap();
    return 0;
}
