#include "MapCells.h"

#include "MapAsJson.h"

#include <nlohmann/json.hpp>

namespace varn::driver {

void printCells(Context& context, const WizMap& map)
{
    if (context.json()) {
        context.out().json(cellsAsJson(map));
        return;
    }
    for (int y = 0; y < map.rows; ++y) {
        std::string line;
        for (int x = 0; x < map.cols; ++x) {
            const WizMapData& cell = map.cellAt(x, y);
            if (x > 0)
                line += ' ';
            for (const std::uint8_t byte :
                 {cell.north, cell.east, cell.south, cell.west, cell.floor})
                line += hexByte(byte);
        }
        context.out().line(std::string_view(line));
    }
}

} // namespace varn::driver
