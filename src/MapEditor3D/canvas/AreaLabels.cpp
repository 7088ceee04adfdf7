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

/// Where no event is covered, as near to the middle as can be; where that is nowhere, in the
/// middle.
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

    std::optional<AreaLabel> place(const AreaModel& area) const
    {
        const auto& cells = area.getCoordinates();
        const MiddleOfCells middle(cells);
        AreaLabel label{
            area.number, area.name.empty() ? toDecimal(area.number) : widen(area.name), {}};
        const int width = raster().measureText(font, label.text);
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
        return label;
    }

  private:
    static constexpr std::int64_t kCovers = std::int64_t{1} << 40; ///< more than any way

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
    bool isFree(const AreaModel::Coodinate& cell, int width) const
    {
        const Rect rect = rectAt(cell, width);
        const int side = view.deviceTile(), left = view.deviceOrigin().x;
        const int last = std::min(map.cols - 1, (rect.right - 1 - left) / side);
        for (int x = (rect.left - left) / side; x <= last; ++x)
            if (taken[indexOf(x, cell.y)])
                return false;
        return true;
    }

    const WizMap& map;
    const CanvasView& view;
    FontSpec font;
    int height;
    std::vector<bool> taken; ///< cells of events
};

} // namespace

FontSpec areaLabelFont(const CanvasView& view)
{
    return {.height = view.toDevice(12), .antialias = true};
}

std::vector<AreaLabel> placeAreaLabels(const WizMap& map, const CanvasView& view)
{
    std::vector<AreaLabel> labels;
    if (map.areas.empty())
        return labels;
    const LabelPlacer placer(map, view);
    for (const AreaModel& area : map.areas.list())
        if (auto label = placer.place(area))
            labels.push_back(std::move(*label));
    return labels;
}

} // namespace varn
