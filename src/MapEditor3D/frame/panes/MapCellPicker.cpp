#include "MapEditor3D/frame/panes/MapCellPicker.h"

#include "Component/Theme.h"
#include "Game/Map/View/MapPicture.h"
#include "MapEditor3D/canvas/TileStrip.h"

#include <algorithm>
#include <cmath>

namespace varn {

namespace {

constexpr int kWholeSide = 400, kLeastSide = 4;

} // namespace

MapCellPicker::MapCellPicker(const WizMap& map)
    : map(map),
      side(std::clamp(kWholeSide / std::max(map.cols, map.rows), kLeastSide, kPrintedCell))
{
    windowClass = u"MapCellPicker";
}

void MapCellPicker::onCreate()
{
    setFixedSize(map.cols * side, map.rows * side);
    setAccessibleName(u"Map");
}

void MapCellPicker::setCell(MapCell next)
{
    cell = next;
    repaint();
}

void MapCellPicker::pick(MapCell next)
{
    next = {std::clamp(next.x, 0, map.cols - 1), std::clamp(next.y, 0, map.rows - 1)};
    if (next == cell)
        return;
    setCell(next);
    fireAction();
}

void MapCellPicker::pickAt(const MouseEvent& event)
{
    pick({event.x / side, event.y / side});
}

bool MapCellPicker::onLeftDown(const MouseEvent& event)
{
    setFocus();
    pickAt(event);
    return true;
}

bool MapCellPicker::onMouseMove(const MouseEvent& event)
{
    if ((static_cast<std::uint32_t>(event.data) & kHeldLeft) != 0)
        pickAt(event);
    return true;
}

bool MapCellPicker::onKeyDown(int key, std::uint32_t flags)
{
    const struct
    {
        int key, dx, dy;
    } steps[] = {{kKeyLeft, -1, 0}, {kKeyRight, 1, 0}, {kKeyUp, 0, -1}, {kKeyDown, 0, 1}};
    for (const auto& step : steps) {
        if (step.key != key)
            continue;
        pick({cell.x + step.dx, cell.y + step.dy});
        return true;
    }
    return Component::onKeyDown(key, flags);
}

bool MapCellPicker::onSetFocus()
{
    repaint();
    return false;
}

bool MapCellPicker::onKillFocus()
{
    repaint();
    return false;
}

void MapCellPicker::paint(Graphics& graphics, const Rect&)
{
    const double scale = getScale();
    const auto device = [scale](int pixels) {
        return static_cast<int>(std::lround(pixels * scale));
    };
    const int width = device(map.cols * side), height = device(map.rows * side);
    if (plan.getWidth() != width || plan.getHeight() != height) {
        WizMapImage images(MapPictures::Plan);
        images.update(map);
        Graphics whole(map.cols * kPrintedCell, map.rows * kPrintedCell);
        whole.setFillColor(0xFFFFFF);
        whole.fillRect(0, 0, whole.getWidth(), whole.getHeight());
        drawMap(whole, map, images, {.columns = map.cols, .rows = map.rows});
        plan = scaledPart(whole.getImage(), whole.getImage().getBounds(), width, height);
    }
    graphics.drawImage(plan, 0, 0);
    if (cell.x < 0 || cell.y < 0 || cell.x >= map.cols || cell.y >= map.rows)
        return;
    constexpr int kAround = 3;
    const Rect mark(device(cell.x * side - kAround), device(cell.y * side - kAround),
                    device(side + 2 * kAround), device(side + 2 * kAround));
    graphics.drawFramedRect(mark, device(4), hasFocus() ? theme().accent : 0x4646FF, 0xFFFFFF);
}

} // namespace varn
