#include "MapEditor3D/WizMapEditor.h"

#include "Util/Host.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace varn {

void WizMapEditor::load(WStringView fileName)
{
    WizMap next;
    next.load(fileName);
    map = std::move(next);
    selectedEvent.reset();
    band.reset();
    leftHeld = rightHeld = eraseStroke = eventHeld = false;
    scroll = {};
    resetHistory();
}

void WizMapEditor::resetHistory()
{
    undoManager.clear();
    mirror = map.cells;
}

bool WizMapEditor::doSave()
{
    if (map.save(map.fileName))
        return true;
    host().showMessage(u"Couldn't save the .map file: " + map.fileName);
    return false;
}

WString WizMapEditor::getMapName() const
{
    const std::size_t folder = map.fileName.find_last_of(u"/\\");
    return folder == WString::npos ? map.fileName : map.fileName.substr(folder + 1);
}

void WizMapEditor::setTool(EditorTool next)
{
    if (next != EditorTool::Point)
        tool = next;
}

bool WizMapEditor::setLayer(EditorLayer layer)
{
    switch (layer) {
    case EditorLayer::Floor:
    case EditorLayer::Wall:
        mode = EditorMode::Tile;
        floorLayer = layer == EditorLayer::Floor;
        return true;
    case EditorLayer::Event:
        mode = EditorMode::Event;
        return true;
    case EditorLayer::Area:
        mode = EditorMode::Area;
        return true;
    case EditorLayer::Third:
        break;
    }
    return false;
}

bool WizMapEditor::zoom(bool in)
{
    const int next = tileSize + (in ? kZoomStep : -kZoomStep);
    if (next < kLeastTileSize || next > kMostTileSize)
        return false;
    tileSize = next;
    return true;
}

void WizMapEditor::press(MouseButton button, CanvasPoint point)
{
    if (!isVisible(point))
        return;
    if (button == MouseButton::Left) {
        leftHeld = true;
        eraseStroke = false;
    } else {
        if (mode == EditorMode::Event)
            return;
        rightHeld = true;
        eraseStroke = !pick(point);
        if (!eraseStroke)
            return;
    }
    if (mode == EditorMode::Event)
        grabEvent(point);
    else if (tool == EditorTool::Rectangle)
        band = {bandEnd(point), bandEnd(point)};
    else
        move(point);
}

void WizMapEditor::move(CanvasPoint point)
{
    if (mode == EditorMode::Event || !isVisible(point) || !(leftHeld || rightHeld))
        return;
    if (!leftHeld && !eraseStroke)
        pick(point);
    else if (band)
        band->to = bandEnd(point);
    else if (tool == EditorTool::Pen)
        paint(cellUnder(point, tileSize));
}

void WizMapEditor::release(MouseButton button, CanvasPoint point)
{
    bool& held = button == MouseButton::Left ? leftHeld : rightHeld;
    if (!std::exchange(held, false))
        return;
    if (mode == EditorMode::Event) {
        dropEvent(point);
        return;
    }
    if (button == MouseButton::Right && !eraseStroke)
        return;
    if (band && isVisible(point))
        band->to = bandEnd(point);
    endStroke();
}

void WizMapEditor::doubleClick(MouseButton button, CanvasPoint)
{
    leftHeld = rightHeld = false;
    const bool dropsBand = band.has_value();
    band.reset();
    if (button == MouseButton::Right && !std::exchange(eraseStroke, false))
        return;
    if (!dropsBand && mode == EditorMode::Tile && tool == EditorTool::Pen)
        restoreMirror();
}

/// False: the value under the point is the selected one already.
bool WizMapEditor::pick(CanvasPoint point)
{
    const int under = valueUnder(cellUnder(point, tileSize));
    return std::exchange(selectedTile, under) != under;
}

/// Writes the selected value; an erasing stroke takes it away, and with value 0 anything.
void WizMapEditor::paint(const CanvasCell& place)
{
    if (!eraseStroke)
        writeTile(selectedTile, place);
    else if (selectedTile == 0 || selectedTile == valueUnder(place))
        writeTile(0, place);
}

void WizMapEditor::writeTile(int value, const CanvasCell& place)
{
    const auto cell = cellOfMap(place.cell);
    if (!cell)
        return;
    if (mode == EditorMode::Area)
        map.areas.paint(value, cell->x, cell->y);
    else if (floorLayer)
        map.cellAt(cell->x, cell->y).floor = static_cast<std::uint8_t>(value);
    else
        map.setWall(value, place.edge, cell->x, cell->y);
}

int WizMapEditor::valueUnder(const CanvasCell& place) const
{
    const auto cell = cellOfMap(place.cell);
    if (!cell)
        return selectedTile;
    if (mode == EditorMode::Area) {
        const AreaModel* const area = map.areas.areaAt(cell->x, cell->y);
        return area ? area->number : 0;
    }
    const WizMapData& data = map.cellAt(cell->x, cell->y);
    return floorLayer ? data.floor : data.wall(place.edge);
}

/// The first column and row behind the last are the first ones again, so that a stroke reaches the
/// seam. Nothing: the cell lies outside the map.
std::optional<MapCell> WizMapEditor::cellOfMap(MapCell canvasCell) const
{
    MapCell cell{scroll.x + canvasCell.x, scroll.y + canvasCell.y};
    if (cell.x == map.cols)
        cell.x = 0;
    if (cell.y == map.rows)
        cell.y = 0;
    if (cell.x < 0 || cell.x >= map.cols || cell.y < 0 || cell.y >= map.rows)
        return std::nullopt;
    return cell;
}

bool WizMapEditor::isVisible(CanvasPoint point) const
{
    return point.x >= 0 && point.x < std::min(map.cols, kVisibleCells) * tileSize && point.y >= 0 &&
           point.y < std::min(map.rows, kVisibleCells) * tileSize;
}

MapCell WizMapEditor::bandEnd(CanvasPoint point) const
{
    return bandSnapsToCells() ? cellUnder(point, tileSize).cell : cornerUnder(point, tileSize);
}

/// The four sides of the band: on the floor the cells along them, on the walls the edges.
void WizMapEditor::drawBand()
{
    const auto [left, right] = std::minmax({band->from.x, band->to.x});
    const auto [top, bottom] = std::minmax({band->from.y, band->to.y});
    const int last =
        bandSnapsToCells() ? 0 : 1; // a wall ends at the corner, it does not begin there
    for (int x = left; x <= right - last; ++x) {
        paint({{x, top}, Direction::North});
        paint({{x, bottom}, Direction::North});
    }
    for (int y = top; y <= bottom - last; ++y) {
        paint({{left, y}, Direction::West});
        paint({{right, y}, Direction::West});
    }
}

void WizMapEditor::endStroke()
{
    if (band)
        drawBand();
    band.reset();
    eraseStroke = false;
    if (mode == EditorMode::Tile)
        commitStroke();
}

/// Selects the event under the point, of several the one drawn last, and holds it.
void WizMapEditor::grabEvent(CanvasPoint point)
{
    selectedEvent.reset();
    const auto cell = cellOfMap(cellUnder(point, tileSize).cell);
    for (std::size_t i = map.events.size(); cell && i-- > 0 && !selectedEvent;) {
        if (map.events.at(i).x == cell->x && map.events.at(i).y == cell->y)
            selectedEvent = i;
    }
    eventHeld = selectedEvent.has_value();
}

/// Moves the held event to the cell under the point, or to the map's border where that is outside.
void WizMapEditor::dropEvent(CanvasPoint point)
{
    if (!std::exchange(eventHeld, false) || !selectedEvent || *selectedEvent >= map.events.size())
        return;
    GameEvent& event = map.events.at(*selectedEvent);
    event.x = std::clamp(scroll.x + point.x / tileSize, 0, map.cols - 1);
    event.y = std::clamp(scroll.y + point.y / tileSize, 0, map.rows - 1);
}

void WizMapEditor::commitStroke()
{
    CellRect changed{map.cols, map.rows, 0, 0};
    const auto width = static_cast<std::size_t>(map.cols);
    for (int y = 0; y < map.rows; ++y) {
        const WizMapData* const now = &map.cells[static_cast<std::size_t>(y) * kMapStride];
        const WizMapData* const before = &mirror[static_cast<std::size_t>(y) * kMapStride];
        if (std::memcmp(now, before, width * sizeof(WizMapData)) == 0)
            continue;
        int first = 0, end = map.cols;
        while (now[first] == before[first])
            ++first;
        while (now[end - 1] == before[end - 1])
            --end;
        changed.left = std::min(changed.left, first);
        changed.right = std::max(changed.right, end);
        changed.top = std::min(changed.top, y);
        changed.bottom = y + 1;
    }
    if (changed.bottom == 0)
        return;
    undoManager.push(changed);
    for (int y = changed.top; y < changed.bottom; ++y) {
        const std::size_t row = static_cast<std::size_t>(y) * kMapStride;
        std::copy_n(&map.cells[row], width, &mirror[row]);
    }
}

void WizMapEditor::restoreMirror()
{
    for (int y = 0; y < map.rows; ++y) {
        const std::size_t row = static_cast<std::size_t>(y) * kMapStride;
        std::copy_n(&mirror[row], static_cast<std::size_t>(map.cols), &map.cells[row]);
    }
}

} // namespace varn
