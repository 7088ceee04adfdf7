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
    take(std::move(next));
}

void WizMapEditor::close()
{
    take(WizMap());
}

void WizMapEditor::take(WizMap next)
{
    map = std::move(next);
    leftHeld = rightHeld = eraseStroke = eventHeld = areasPainted = false;
    before.reset();
    selectedEvent.reset();
    scroll = {};
    cursor = {};
    cursor.cell = {0, map.rows - 1}; // the first one, as people count
    resetHistory();
    listeners.tell(&MapEditorListener::mapLoaded);
    listeners.tell(&MapEditorListener::viewChanged);
    listeners.tell(&MapEditorListener::walkerMoved);
    listeners.tell(&MapEditorListener::eventSelected, selectedEvent);
}

void WizMapEditor::resetHistory()
{
    undoManager.clear();
    mirror = map.cells;
    changed();
}

void WizMapEditor::changed()
{
    listeners.tell(&MapEditorListener::historyChanged, canUndo(), canRedo());
}

bool WizMapEditor::doSave()
{
    if (map.save(map.fileName)) {
        listeners.tell(&MapEditorListener::mapSaved);
        return true;
    }
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
    if (next == EditorTool::Point)
        return;
    tool = next;
    listeners.tell(&MapEditorListener::toolChanged);
}

bool WizMapEditor::setLayer(EditorLayer layer)
{
    switch (layer) {
    case EditorLayer::Floor:
    case EditorLayer::Wall:
        mode = EditorMode::Tile;
        floorLayer = layer == EditorLayer::Floor;
        break;
    case EditorLayer::Event:
        mode = EditorMode::Event;
        break;
    case EditorLayer::Area:
        mode = EditorMode::Area;
        break;
    case EditorLayer::Third:
        return false;
    }
    listeners.tell(&MapEditorListener::toolChanged);
    return true;
}

void WizMapEditor::setSelectedTile(int tile)
{
    if (std::exchange(selectedTile, tile) != tile)
        listeners.tell(&MapEditorListener::tileSelected, tile);
}

void WizMapEditor::setSelectedEvent(std::optional<std::size_t> event)
{
    if (event && *event >= map.events.size())
        event.reset();
    if (std::exchange(selectedEvent, event) != event)
        listeners.tell(&MapEditorListener::eventSelected, event);
}

void WizMapEditor::rotateMap()
{
    map.rotateMap();
    propertiesEdited(); // columns and rows changed places
}

void WizMapEditor::reflectMap()
{
    map.reflectMap();
    cellsEdited();
    tellCommitted();
}

void WizMapEditor::shiftMap(int dx, int dy)
{
    map.shiftMap(dx, dy);
    cellsEdited();
    eventsEdited();
}

void WizMapEditor::cellsEdited(const CellRect& cells)
{
    listeners.tell(&MapEditorListener::cellsChanged, cells);
}

void WizMapEditor::eventsEdited()
{
    if (selectedEvent && *selectedEvent >= map.events.size())
        setSelectedEvent(std::nullopt);
    listeners.tell(&MapEditorListener::eventsChanged);
    tellCommitted();
}

void WizMapEditor::areasEdited()
{
    listeners.tell(&MapEditorListener::areasChanged, wholeMap());
    tellCommitted();
}

void WizMapEditor::propertiesEdited()
{
    cursor.keepInside(map);
    listeners.tell(&MapEditorListener::propertiesChanged);
    listeners.tell(&MapEditorListener::walkerMoved);
    tellCommitted();
}

bool WizMapEditor::zoom(bool in)
{
    const int next = tileSize + (in ? kZoomStep : -kZoomStep);
    if (next < kLeastTileSize || next > kMostTileSize)
        return false;
    tileSize = next;
    listeners.tell(&MapEditorListener::viewChanged);
    return true;
}

void WizMapEditor::setScroll(MapCell cell)
{
    if (cell == scroll)
        return;
    if (auto& band = cursor.band) {
        for (MapCell* const end : {&band->from, &band->to}) {
            end->x += scroll.x - cell.x;
            end->y += scroll.y - cell.y;
        }
    }
    scroll = cell;
    listeners.tell(&MapEditorListener::viewChanged);
}

void WizMapEditor::press(MouseButton button, CanvasPoint point)
{
    if (isVisible(point))
        beginGesture(button, point);
    listeners.tell(&MapEditorListener::gestureChanged);
}

void WizMapEditor::beginGesture(MouseButton button, CanvasPoint point)
{
    if (button == MouseButton::Right && mode == EditorMode::Event)
        return;
    if (!isGestureGoingOn())
        before = std::make_unique<BeforeGesture>(BeforeGesture{map.cells, map.areas});
    if (button == MouseButton::Left) {
        leftHeld = true;
        eraseStroke = false;
    } else {
        rightHeld = true;
        eraseStroke = !pick(point);
        if (!eraseStroke)
            return;
    }
    if (mode == EditorMode::Event)
        grabEvent(point);
    else if (tool == EditorTool::Rectangle) {
        cursor.band = {bandEnd(point), bandEnd(point)};
        tellBand();
    } else
        move(point);
}

void WizMapEditor::move(CanvasPoint point)
{
    if (mode == EditorMode::Event || !isVisible(point) || !(leftHeld || rightHeld))
        return;
    if (!leftHeld && !eraseStroke)
        pick(point);
    else if (cursor.band) {
        cursor.band->to = bandEnd(point);
        tellBand();
    } else if (tool == EditorTool::Pen)
        paint(cellUnder(point, tileSize));
}

void WizMapEditor::release(MouseButton button, CanvasPoint point)
{
    endGesture(button, point);
    listeners.tell(&MapEditorListener::gestureChanged);
}

void WizMapEditor::endGesture(MouseButton button, CanvasPoint point)
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
    if (cursor.band && isVisible(point))
        cursor.band->to = bandEnd(point);
    endStroke();
}

bool WizMapEditor::cancelGesture()
{
    if (!isGestureGoingOn())
        return false;
    leftHeld = rightHeld = eraseStroke = eventHeld = areasPainted = false;
    if (cursor.band) {
        cursor.band.reset();
        tellBand();
    }
    if (map.cells != before->cells) {
        map.cells = before->cells;
        cellsEdited();
    }
    if (map.areas != before->areas) {
        map.areas = std::move(before->areas);
        listeners.tell(&MapEditorListener::areasChanged, wholeMap());
    }
    before.reset();
    listeners.tell(&MapEditorListener::gestureChanged);
    return true;
}

void WizMapEditor::doubleClick(MouseButton button, CanvasPoint)
{
    leftHeld = rightHeld = eventHeld = false;
    before.reset();
    const bool dropsBand = cursor.band.has_value();
    cursor.band.reset();
    const bool wasErasing = std::exchange(eraseStroke, eraseStroke && button == MouseButton::Left);
    if (dropsBand)
        tellBand();
    else if ((button == MouseButton::Left || wasErasing) && mode == EditorMode::Tile &&
             tool == EditorTool::Pen)
        restoreMirror();
    listeners.tell(&MapEditorListener::gestureChanged);
}

/// False: the value under the point is the selected one already.
bool WizMapEditor::pick(CanvasPoint point)
{
    const int under = valueUnder(cellUnder(point, tileSize));
    const bool picked = under != selectedTile;
    setSelectedTile(under);
    return picked;
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
    if (mode == EditorMode::Area) {
        if (!map.areas.paint(value, cell->x, cell->y))
            return;
        areasPainted = true;
        listeners.tell(&MapEditorListener::areasChanged,
                       CellRect{cell->x, cell->y, cell->x + 1, cell->y + 1});
    } else if (floorLayer) {
        const auto tile = static_cast<std::uint8_t>(value);
        if (std::exchange(map.cellAt(cell->x, cell->y).floor, tile) != tile)
            tellCell(*cell);
    } else if (map.setWall(value, place.edge, cell->x, cell->y)) {
        tellCell(*cell);
        tellCell({wrapOnRing(cell->x + place.edge.dx(), map.cols),
                  wrapOnRing(cell->y + place.edge.dy(), map.rows)});
    }
}

void WizMapEditor::tellCell(MapCell cell)
{
    cellsEdited({cell.x, cell.y, cell.x + 1, cell.y + 1});
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
    const Band& band = *cursor.band;
    const auto [left, right] = std::minmax({band.from.x, band.to.x});
    const auto [top, bottom] = std::minmax({band.from.y, band.to.y});
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
    if (cursor.band) {
        drawBand();
        cursor.band.reset();
        tellBand();
    }
    eraseStroke = false;
    before.reset();
    if (mode == EditorMode::Tile)
        commitStroke();
    else if (std::exchange(areasPainted, false))
        tellCommitted();
}

std::optional<std::size_t> WizMapEditor::findEvent(MapCell cell) const
{
    for (std::size_t i = map.events.size(); i-- > 0;) {
        if (map.events.at(i).x == cell.x && map.events.at(i).y == cell.y)
            return i;
    }
    return std::nullopt;
}

/// Selects the event under the point and holds it.
void WizMapEditor::grabEvent(CanvasPoint point)
{
    const auto cell = cellOfMap(cellUnder(point, tileSize).cell);
    setSelectedEvent(cell ? findEvent(*cell) : std::nullopt);
    eventHeld = selectedEvent.has_value();
}

/// Moves the held event to the cell under the point, or to the map's border where that is outside.
void WizMapEditor::dropEvent(CanvasPoint point)
{
    before.reset();
    if (!std::exchange(eventHeld, false) || !selectedEvent || *selectedEvent >= map.events.size())
        return;
    GameEvent& event = map.events.at(*selectedEvent);
    const MapCell to{std::clamp(scroll.x + point.x / tileSize, 0, map.cols - 1),
                     std::clamp(scroll.y + point.y / tileSize, 0, map.rows - 1)};
    if (to == MapCell{event.x, event.y})
        return;
    event.x = to.x;
    event.y = to.y;
    eventsEdited();
}

void WizMapEditor::placeWalker(MapCell cell, Direction facing)
{
    cursor.cell = {wrapOnRing(cell.x, map.cols), wrapOnRing(cell.y, map.rows)};
    if (facing != Direction::None)
        cursor.facing = facing;
    listeners.tell(&MapEditorListener::walkerMoved);
}

bool WizMapEditor::controllerKey(ControllerKey key)
{
    using Step = DungeonCursor::Step;
    const auto turn = [&](void (DungeonCursor::*how)()) {
        (cursor.*how)();
        return true;
    };
    const auto press = [&] {
        switch (key) {
        case ControllerKey::Up:
            return cursor.step(map, Step::Forward);
        case ControllerKey::Down:
        case ControllerKey::B:
            return cursor.step(map, Step::Back);
        case ControllerKey::L:
            return cursor.step(map, Step::Left);
        case ControllerKey::R:
            return cursor.step(map, Step::Right);
        case ControllerKey::Left:
            return turn(&DungeonCursor::turnLeft);
        case ControllerKey::Right:
            return turn(&DungeonCursor::turnRight);
        case ControllerKey::X:
            return turn(&DungeonCursor::turnAround);
        case ControllerKey::Y:
            return cursor.step(map, Step::Forward, DungeonCursor::Walls::Ignore);
        case ControllerKey::A:
            return cursor.followWarp(map);
        case ControllerKey::Menu:
            cursor.cell = {0, map.rows - 1};
            return true;
        }
        return false;
    };
    const bool done = press();
    if (done)
        listeners.tell(&MapEditorListener::walkerMoved);
    return done;
}

/// The smallest rectangle around the cells that differ from the last commit.
std::optional<CellRect> WizMapEditor::uncommitted() const
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
        return std::nullopt;
    return changed;
}

void WizMapEditor::commitStroke()
{
    const auto stroke = uncommitted();
    if (!stroke)
        return;
    undoManager.push(*stroke);
    for (int y = stroke->top; y < stroke->bottom; ++y) {
        const std::size_t row = static_cast<std::size_t>(y) * kMapStride;
        std::copy_n(&map.cells[row], map.cols, &mirror[row]);
    }
    cellsEdited(*stroke);
    tellCommitted();
}

void WizMapEditor::restoreMirror()
{
    const auto stroke = uncommitted();
    if (!stroke)
        return;
    for (int y = stroke->top; y < stroke->bottom; ++y) {
        const std::size_t row = static_cast<std::size_t>(y) * kMapStride;
        std::copy_n(&mirror[row], map.cols, &map.cells[row]);
    }
    cellsEdited(*stroke);
    tellCommitted();
}

} // namespace varn
