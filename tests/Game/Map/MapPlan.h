#pragma once

#include "Game/Map/WizMap.h"

#include <string>
#include <vector>

namespace varn::test {

// A floor as text, two characters a cell and its corners and edges between them:
//
//   +--+DD+     north edges; a wall, a door
//   |01|  |     west edge, floor tile in hexadecimal (blank: 0), east edge
//   +--+--+     south edges of the last row
//
// An edge is drawn from the cell on its south or east side, the last row and column also from the
// other side: the two bytes of an inner edge must agree, `planOf` shows an edge where they do not
// as '?'.
inline constexpr std::string_view kAcross = " -Dcdefghijklm"; // wall kinds on north and south edges
inline constexpr std::string_view kAlong = " |Dcdefghijklm";  // on west and east edges

inline WizMap mapFrom(const std::vector<std::string>& plan)
{
    WizMap map;
    map.rows = static_cast<int>(plan.size() / 2);
    map.cols = static_cast<int>(plan[0].size() / 3);
    const auto kind = [](std::string_view kinds, char shown) {
        return static_cast<std::uint8_t>(kinds.find(shown));
    };
    for (int y = 0; y < map.rows; ++y) {
        for (int x = 0; x < map.cols; ++x) {
            const auto row = static_cast<std::size_t>(2 * y);
            const auto column = static_cast<std::size_t>(3 * x);
            WizMapData& cell = map.cellAt(x, y);
            cell.north = kind(kAcross, plan[row][column + 1]);
            cell.south = kind(kAcross, plan[row + 2][column + 1]);
            cell.west = kind(kAlong, plan[row + 1][column]);
            cell.east = kind(kAlong, plan[row + 1][column + 3]);
            const std::string tile = plan[row + 1].substr(column + 1, 2);
            cell.floor = tile == "  " ? 0 : static_cast<std::uint8_t>(std::stoi(tile, nullptr, 16));
        }
    }
    return map;
}

inline std::vector<std::string> planOf(const WizMap& map)
{
    const auto width = static_cast<std::size_t>(3 * map.cols + 1);
    std::vector<std::string> plan(static_cast<std::size_t>(2 * map.rows + 1),
                                  std::string(width, ' '));
    const auto edge = [](std::string_view kinds, int near, int far) {
        return near == far ? kinds[static_cast<std::size_t>(near)] : '?';
    };
    for (int y = 0; y <= map.rows; ++y) {
        for (int x = 0; x <= map.cols; ++x) {
            const auto row = static_cast<std::size_t>(2 * y);
            const auto column = static_cast<std::size_t>(3 * x);
            const WizMapData& cell = map.cellAt(x, y);
            const WizMapData& above = map.cellAt(x, y + map.rows - 1);
            const WizMapData& before = map.cellAt(x + map.cols - 1, y);
            plan[row][column] = '+';
            if (x < map.cols) {
                const int far = y == 0 ? cell.north : above.south;
                plan[row].replace(
                    column + 1, 2,
                    std::string(2, edge(kAcross, y == map.rows ? far : cell.north, far)));
            }
            if (y == map.rows)
                continue;
            const int far = x == 0 ? cell.west : before.east;
            plan[row + 1][column] = edge(kAlong, x == map.cols ? far : cell.west, far);
            if (x < map.cols && cell.floor != 0) {
                constexpr std::string_view kDigits = "0123456789abcdef";
                plan[row + 1][column + 1] = kDigits[cell.floor / 16];
                plan[row + 1][column + 2] = kDigits[cell.floor % 16];
            }
        }
    }
    return plan;
}

} // namespace varn::test
