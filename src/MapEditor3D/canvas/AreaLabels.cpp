#include "MapEditor3D/canvas/AreaLabels.h"

#include <algorithm>
#include <cstdlib>
#include <optional>

namespace varn {

namespace {

/// The way from a cell's middle to the middle of all cells, in steps, times their number.
class MiddleOfCells
{
  public:
    explicit MiddleOfCells(const std::vector<AreaModel::Coodinate>& cells)
        : count(static_cast<std::int64_t>(cells.size()))
    {
        for (const AreaModel::Coodinate& cell : cells) {
            sumX += cell.x;
            sumY += cell.y;
        }
    }
    std::int64_t wayFrom(const AreaModel::Coodinate& cell) const
    {
        return std::abs(cell.x * count - sumX) + std::abs(cell.y * count - sumY);
    }

  private:
    std::int64_t count, sumX = 0, sumY = 0;
};

/// Where no event and no other name is covered, as near to the middle as can be; where that is
/// nowhere, in the middle.
class LabelPlacer
{
  public:
    LabelPlacer(const WizMap& map, const CanvasView& view)
        : map(map), view(view), font(areaLabelFont(view)),
          height(raster().measureFont(font).height),
          taken(static_cast<std::size_t>(map.cols) * static_cast<std::size_t>(map.rows))
    {
        for (const auto& event : map.events.list())
            if (isOnMap(event->x, event->y))
                taken[indexOf(event->x, event->y)] = true;
    }

    /// Later names keep clear of this one too.
    std::optional<AreaLabel> place(const AreaModel& area)
    {
        const auto& cells = area.getCoordinates();
        const MiddleOfCells middle(cells);
        AreaLabel label{
            area.number, area.name.empty() ? toDecimal(area.number) : widen(area.name), {}};
        const int width = fit(label.text, widthOf(cells));
        const AreaModel::Coodinate* best = nullptr;
        std::int64_t bestWay = 0;
        for (const AreaModel::Coodinate& cell : cells) {
            if (!isOnMap(cell.x, cell.y))
                continue;
            const std::int64_t way = middle.wayFrom(cell) + (isFree(cell, width) ? 0 : kCovers);
            if (!best || way < bestWay) {
                best = &cell;
                bestWay = way;
            }
        }
        if (!best)
            return std::nullopt;
        label.place = rectAt(*best, width);
        forEachCellUnder(label.place, best->y, [&](std::size_t cell) { taken[cell] = true; });
        return label;
    }

  private:
    static constexpr std::int64_t kCovers = std::int64_t{1} << 40; ///< more than any way
    static constexpr std::size_t kLeastUnits = 3;                  ///< of a name that is cut

    bool isOnMap(int x, int y) const { return x >= 0 && x < map.cols && y >= 0 && y < map.rows; }
    std::size_t indexOf(int x, int y) const
    {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(map.cols) +
               static_cast<std::size_t>(x);
    }
    /// In the middle of the cell, but not over the edge of the map.
    Rect rectAt(const AreaModel::Coodinate& cell, int width) const
    {
        const Rect place = view.cellOnDevice({cell.x, cell.y});
        const int left = view.deviceOrigin().x + 2;
        const int right = view.deviceOrigin().x + map.cols * view.deviceTile() - 2 - width;
        const int x = std::max(left, std::min(right, place.x + (place.width - width) / 2));
        return {x, place.y + (place.height - height) / 2, width, height};
    }
    /// Device pixels that the name of an area may take: from its first column to its last, and a
    /// cell more.
    int widthOf(const std::vector<AreaModel::Coodinate>& cells) const
    {
        const auto [first, last] = std::minmax_element(
            cells.begin(), cells.end(), [](const auto& a, const auto& b) { return a.x < b.x; });
        return (last->x - first->x + 2) * view.deviceTile();
    }
    /// Cuts the text, "Charnel of.", until it fits. @returns its width
    int fit(WString& text, int room) const
    {
        int width = raster().measureText(font, text);
        for (std::size_t kept = text.size(); width > room && kept > kLeastUnits;) {
            text.resize(--kept);
            text += u'.';
            width = raster().measureText(font, text);
        }
        return width;
    }
    template <class Visit>
    void forEachCellUnder(const Rect& label, int row, Visit visit) const
    {
        const int side = view.deviceTile(), left = view.deviceOrigin().x;
        const int last = std::min(map.cols - 1, (label.right - 1 - left) / side);
        for (int x = (label.left - left) / side; x <= last; ++x)
            visit(indexOf(x, row));
    }
    bool isFree(const AreaModel::Coodinate& cell, int width) const
    {
        bool free = true;
        forEachCellUnder(rectAt(cell, width), cell.y,
                         [&](std::size_t under) { free = free && !taken[under]; });
        return free;
    }

    const WizMap& map;
    const CanvasView& view;
    FontSpec font;
    int height;
    std::vector<bool> taken; ///< cells under events and names
};

} // namespace

FontSpec areaLabelFont(const CanvasView& view)
{
    return {.height = view.toDevice(view.tileSize < 28 ? 11 : 12), .antialias = true};
}

std::vector<AreaLabel> placeAreaLabels(const WizMap& map, const CanvasView& view)
{
    std::vector<AreaLabel> labels;
    if (map.areas.empty())
        return labels;
    LabelPlacer placer(map, view);
    for (const AreaModel& area : map.areas.list())
        if (auto label = placer.place(area))
            labels.push_back(std::move(*label));
    return labels;
}

} // namespace varn
