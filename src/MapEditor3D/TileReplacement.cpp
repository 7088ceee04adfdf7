#include "MapEditor3D/TileReplacement.h"

#include <vector>

namespace varn {

namespace {

/// Calls `visit` for each cell that is meant.
template <class Visit>
void forEachCell(const WizMap& map, const std::optional<int>& area, const Visit& visit)
{
    for (int y = 0; y < map.rows; ++y)
        for (int x = 0; x < map.cols; ++x)
            if (!area)
                visit(x, y);
    if (!area)
        return;
    for (const AreaModel& model : map.areas.list())
        if (model.number == *area)
            for (const AreaModel::Coodinate& place : model.getCoordinates())
                if (place.x >= 0 && place.x < map.cols && place.y >= 0 && place.y < map.rows)
                    visit(place.x, place.y);
}

/// An edge as the north or west one of a cell of the torus.
struct Edge
{
    int x, y;
    Direction side;
};

Edge edgeOf(const WizMap& map, int x, int y, Direction side)
{
    if (side == Direction::South)
        return {x, wrapOnRing(y + 1, map.rows), Direction::North};
    if (side == Direction::East)
        return {wrapOnRing(x + 1, map.cols), y, Direction::West};
    return {x, y, side};
}

/// The edges of the cells that are meant and have the kind, each once.
std::vector<Edge> findEdges(const WizMap& map, const TileReplacement& replacement)
{
    constexpr Direction kSides[] = {Direction::North, Direction::East, Direction::South,
                                    Direction::West};
    std::vector<Edge> found;
    std::vector<bool> seen(WizMapCells().size() * 2);
    forEachCell(map, replacement.area, [&](int x, int y) {
        for (const Direction side : kSides) {
            if (map.cellAt(x, y).wall(side) != replacement.from)
                continue;
            const Edge edge = edgeOf(map, x, y, side);
            const auto place = static_cast<std::size_t>(edge.y * kMapStride + edge.x) * 2 +
                               (edge.side == Direction::North ? 1 : 0);
            if (!seen[place])
                found.push_back(edge);
            seen[place] = true;
        }
    });
    return found;
}

std::vector<MapCell> findCells(const WizMap& map, const TileReplacement& replacement)
{
    std::vector<MapCell> found;
    forEachCell(map, replacement.area, [&](int x, int y) {
        if (map.cellAt(x, y).floor == replacement.from)
            found.push_back({x, y});
    });
    return found;
}

} // namespace

int countTiles(const WizMap& map, const TileReplacement& replacement)
{
    if (replacement.from == replacement.to)
        return 0;
    return static_cast<int>(replacement.layer == TileReplacement::Layer::Walls
                                ? findEdges(map, replacement).size()
                                : findCells(map, replacement).size());
}

int replaceTiles(WizMapEditor& editor, const TileReplacement& replacement)
{
    WizMap& map = editor.getMap();
    const int count = countTiles(map, replacement);
    if (count == 0)
        return 0;
    editor.cancelGesture();
    if (replacement.layer == TileReplacement::Layer::Walls)
        for (const Edge& edge : findEdges(map, replacement))
            map.setWall(replacement.to, edge.side, edge.x, edge.y);
    else
        for (const MapCell& cell : findCells(map, replacement))
            map.cellAt(cell.x, cell.y).floor = static_cast<std::uint8_t>(replacement.to);
    editor.commitStroke();
    return count;
}

} // namespace varn
