#include "MapCells.h"

#include "MapAsJson.h"

#include <nlohmann/json.hpp>

namespace varn::driver {

namespace {

void appendHex(std::string& out, std::uint8_t byte)
{
    constexpr std::string_view kDigits = "0123456789abcdef";
    out += kDigits[byte >> 4];
    out += kDigits[byte & 15];
}

} // namespace

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
                appendHex(line, byte);
        }
        context.out().line(std::string_view(line));
    }
}

} // namespace varn::driver
