#include "Game/GameResourceFile.h"

#include <cstddef>
#include <cstdint>

// Any bytes as a game archive: entries that lie in the file, or an Exception.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    varn::GameResourceFile archive;
    try {
        archive.loadBytes(std::string(reinterpret_cast<const char*>(data), size), u"archive");
    } catch (const varn::Exception&) {
    }
    std::size_t total = 0;
    for (const auto& resource : archive.getResources())
        total += 32 + resource.data.size();
    if (total > size)
        __builtin_trap();
    return 0;
}
