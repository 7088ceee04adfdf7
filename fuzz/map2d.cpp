#include "Game/Map/Map2D.h"

#include <cstddef>
#include <cstdint>

// Any bytes as a layered map or a foreign map unit: tiles that survive their own file, refused, or an
// Exception.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    try {
        varn::Map2D map;
        if (!map.fromBytes(std::as_bytes(std::span(data, size)), u"m.map"))
            return 0;
        varn::Map2D again;
        const std::string bytes = map.toBytes();
        if (!again.fromBytes(varn::asBytes(bytes), u"m.map") || again.tiles != map.tiles)
            __builtin_trap();
        again.shift(1, -3);
        again.shift(-1, 3);
        for (int i = 0; i < 4 && !again.tiles.empty(); ++i)
            again.rotate();
        again.reflect();
        again.reflect();
        if (again.toBytes() != bytes)
            __builtin_trap();
    } catch (const varn::Exception&) {
    }
    return 0;
}
