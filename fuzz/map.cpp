#include "Game/Map/MapFile.h"

#include <cstddef>
#include <cstdint>

// Any bytes as a ".map": a grid that survives its own file, or an Exception.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    try {
        const varn::MapGrid grid = varn::readMapGrid(std::as_bytes(std::span(data, size)), u"m.map");
        const std::string bytes = varn::writeMapGrid(grid.cells, grid.cols, grid.rows);
        const varn::MapGrid again = varn::readMapGrid(varn::asBytes(bytes), u"m.map");
        if (again.cells != grid.cells || again.cols != grid.cols || again.rows != grid.rows)
            __builtin_trap();
    } catch (const varn::Exception&) {
    }
    return 0;
}
