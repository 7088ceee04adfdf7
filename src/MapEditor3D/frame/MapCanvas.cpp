#include "MapEditor3D/frame/MapCanvas.h"

#include "Component/Layout.h"
#include "Component/native/NativeWindow.h"
#include "Game/Map/Direction.h"
#include "MapEditor3D/Commands.h"
#include "MapEditor3D/canvas/PointerInfo.h"
#include "MapEditor3D/canvas/TilePalette.h"
#include "MapEditor3D/canvas/WarpWay.h"

#include <cmath>

namespace varn {

namespace {

constexpr int kPen = 3, kRectangle = 4, kZoomIn = 6, kZoomOut = 7;

Point pointOf(const MouseEvent& event)
{
    return {event.x, event.y};
}

struct WalkKey
{
    int key;
    ControllerKey walks;
    Direction shifts;
};

constexpr WalkKey kWalkKeys[] = {
    {kKeyUp, ControllerKey::Up, Direction::North},
    {kKeyRight, ControllerKey::Right, Direction::East},
    {kKeyDown, ControllerKey::Down, Direction::South},
    {kKeyLeft, ControllerKey::Left, Direction::West},
};

} // namespace

MapCanvas::MapCanvas(WizMapEditor& editor) : editor(editor), painter(editor)
{
    setWindowClass(u"MapCanvas");
    setAccessibleName(u"Map");
    editor.addListener(*this);
}

MapCanvas::~MapCanvas()
{
    *alive = false;
    editor.removeListener(*this);
}

void MapCanvas::setOptions(const CanvasOptions& options)
{
    painter.setOptions(options);
    schedule();
}

void MapCanvas::setPalette(const CanvasPalette& palette)
{
    painter.setPalette(palette);
    schedule();
}

void MapCanvas::reloadImages()
{
    painter.reloadImages();
    schedule();
}

void MapCanvas::scrollTo(int x, int y)
{
    CanvasView view = getView();
    view.scrollX = x;
    view.scrollY = y;
    applyView(view);
}

void MapCanvas::reveal(MapCell cell)
{
    CanvasView view = getView();
    view.reveal(editor.getMap(), cell);
    applyView(view);
}

void MapCanvas::centreOn(MapCell cell)
{
    CanvasView view = getView();
    view.centreOn(editor.getMap(), cell);
    applyView(view);
}

void MapCanvas::setScrollStrips(ScrollStrip& level, ScrollStrip& upright)
{
    levelStrip = &level;
    uprightStrip = &upright;
    level.onAction([this] { scrollTo(levelStrip->getValue(), getView().scrollY); });
    upright.onAction([this] { scrollTo(getView().scrollX, uprightStrip->getValue()); });
}

// Painting

void MapCanvas::schedule()
{
    if (scheduled || !getHandle())
        return;
    scheduled = true;
    Application::post([this, stillHere = alive] {
        if (*stillHere && scheduled)
            paintNow();
    });
}

/// Brings the surface up to date and asks the window for the parts that changed.
void MapCanvas::paintNow()
{
    scheduled = false;
    const double scale = getScale();
    for (const Rect& part : painter.paint(surface)) {
        const int left = static_cast<int>(std::floor(part.x / scale));
        const int top = static_cast<int>(std::floor(part.y / scale));
        repaint(Rect(left, top, static_cast<int>(std::ceil(part.right / scale)) - left,
                     static_cast<int>(std::ceil(part.bottom / scale)) - top));
    }
}

MessageResult MapCanvas::windowProc(NativeHandle window, std::uint32_t message, WordParam wParam,
                                    LongParam lParam)
{
    if (message != kPaintMessage)
        return Component::windowProc(window, message, wParam, lParam);
    const double scale = getScale();
    if (scale != getView().scale)
        onSize(getWidth(), getHeight());
    if (painter.isDirty() || surface.getWidth() == 0)
        painter.paint(surface);
    native::present(getHandle(), surface.getBitmap(), native::getPaintRect(getHandle()), scale);
    return 1;
}

void MapCanvas::onSize(int width, int height)
{
    CanvasView view = getView();
    view.width = std::max(1, width);
    view.height = std::max(1, height);
    view.scale = getScale();
    view.tileSize = editor.getTileSize();
    applyView(view);
}

void MapCanvas::applyView(CanvasView view)
{
    view.clampScroll(editor.getMap());
    if (view == getView())
        return;
    painter.setView(view);
    showScroll();
    if (hover)
        hoverAt(pointer);
    schedule();
}

void MapCanvas::showScroll()
{
    if (!levelStrip || !uprightStrip)
        return;
    const CanvasView& view = getView();
    const WizMap& map = editor.getMap();
    levelStrip->setRange(view.sheetWidth(map), view.width, view.tileSize);
    levelStrip->setValue(view.scrollX);
    uprightStrip->setRange(view.sheetHeight(map), view.height, view.tileSize);
    uprightStrip->setValue(view.scrollY);
}

void MapCanvas::mapLoaded()
{
    applyView(getView());
    showScroll();
    if (hover)
        hoverAt(pointer); // another size: the pointer may stand beside the map
    schedule();
}

void MapCanvas::viewChanged()
{
    CanvasView view = getView();
    if (view.tileSize == editor.getTileSize())
        return;
    view.zoomTo(editor.getTileSize(), zoomAnchor.value_or(Point{view.width / 2, view.height / 2}));
    applyView(view);
}

void MapCanvas::walkerMoved()
{
    if (!editor.isGestureGoingOn())
        reveal(editor.getCursor().cell);
    schedule();
}

// The pointer

void MapCanvas::hoverAt(Point point)
{
    pointer = point;
    std::optional<CanvasCell> next;
    if (getView().isOnSheet(point)) {
        next = getView().placeAt(point);
        if (!lookUnder(editor, *next))
            next.reset();
    }
    if (next == hover)
        return;
    hover = next;
    painter.setHover(hover);
    if (hover)
        if (const std::optional<PointerInfo> info = lookUnder(editor, *hover))
            native::announce(getHandle(), varn::announce(*info, getOptions().rowsFromBottom
                                                                    ? CoordinateSystem::Game
                                                                    : CoordinateSystem::Map));
    if (listener)
        listener->pointerMoved(hover);
    schedule();
}

std::optional<MapCell> MapCanvas::mapCellAt(Point point) const
{
    if (!getView().isOnSheet(point))
        return std::nullopt;
    const std::optional<PointerInfo> info = lookUnder(editor, getView().placeAt(point));
    return info ? std::optional(info->cell) : std::nullopt;
}

void MapCanvas::press(MouseButton button, Point point)
{
    setFocus();
    hoverAt(point);
    if (!getView().isOnSheet(point))
        return;
    editor.press(button, aim(editor, getView(), point));
}

void MapCanvas::release(MouseButton button, Point point)
{
    editor.release(button, aim(editor, getView(), point));
    hoverAt(point);
}

bool MapCanvas::onLeftDown(const MouseEvent& event)
{
    press(MouseButton::Left, pointOf(event));
    return true;
}

bool MapCanvas::onLeftUp(const MouseEvent& event)
{
    release(MouseButton::Left, pointOf(event));
    return true;
}

/// To the other end of the arrow of the selected warp.
bool MapCanvas::followWarp(Point point)
{
    const std::optional<WarpWay> way = selectedWarpWay(editor);
    if (!way || getView().cellAt(point) != way->to)
        return false;
    editor.placeWalker(way->to);
    centreOn(way->to);
    return true;
}

bool MapCanvas::onLeftDoubleClick(const MouseEvent& event)
{
    const Point point = pointOf(event);
    if (editor.getMode() != EditorMode::Event) {
        editor.doubleClick(MouseButton::Left, aim(editor, getView(), point));
        return true;
    }
    if (followWarp(point) || !listener || !getView().isOnSheet(point))
        return true;
    const MapCell cell = getView().cellAt(point);
    if (const auto found = editor.findEvent(cell))
        listener->eventEditRequested(*found);
    else if (const auto free = mapCellAt(point))
        listener->createRequested(*free);
    return true;
}

bool MapCanvas::onRightDown(const MouseEvent& event)
{
    const Point point = pointOf(event);
    if (editor.getMode() == EditorMode::Event) {
        setFocus();
        if (getView().isOnSheet(point))
            editor.setSelectedEvent(editor.findEvent(getView().cellAt(point)));
        return true;
    }
    press(MouseButton::Right, point);
    return true;
}

bool MapCanvas::onRightUp(const MouseEvent& event)
{
    const Point point = pointOf(event);
    if (editor.getMode() != EditorMode::Event) {
        release(MouseButton::Right, point);
        return true;
    }
    const std::optional<MapCell> cell = mapCellAt(point);
    if (cell && listener)
        listener->eventMenuRequested(*cell, point.x, point.y);
    return true;
}

bool MapCanvas::onRightDoubleClick(const MouseEvent& event)
{
    if (editor.getMode() != EditorMode::Event)
        editor.doubleClick(MouseButton::Right, aim(editor, getView(), pointOf(event)));
    return true;
}

bool MapCanvas::onMiddleDown(const MouseEvent& event)
{
    grabbed = Point{event.x + getView().scrollX, event.y + getView().scrollY};
    native::setCursor(getHandle(), native::Cursor::ClosedHand);
    return true;
}

bool MapCanvas::onMiddleUp(const MouseEvent&)
{
    grabbed.reset();
    native::setCursor(getHandle(), native::Cursor::Arrow);
    return true;
}

/// A stroke that reaches the border of the window draws the sheet along.
void MapCanvas::scrollAtBorder(Point point)
{
    CanvasView view = getView();
    const int step = view.tileSize / 2;
    if (point.x >= view.width)
        view.scrollX += step;
    else if (point.x < CanvasView::kRuler)
        view.scrollX -= step;
    if (point.y >= view.height)
        view.scrollY += step;
    else if (point.y < CanvasView::kRuler)
        view.scrollY -= step;
    applyView(view);
}

bool MapCanvas::onMouseMove(const MouseEvent& event)
{
    const Point point = pointOf(event);
    if (grabbed) {
        scrollTo(grabbed->x - point.x, grabbed->y - point.y);
        return true;
    }
    if (editor.isGestureGoingOn()) {
        scrollAtBorder(point);
        editor.move(aim(editor, getView(), point));
    }
    hoverAt(point);
    return true;
}

bool MapCanvas::onMouseWheel(const MouseEvent& event, int delta)
{
    const auto held = static_cast<std::uint32_t>(event.data);
    if ((held & kHeldControl) != 0) {
        zoomAnchor = pointOf(event);
        if (listener)
            listener->commandRequested(delta > 0 ? kZoomIn : kZoomOut, 0);
        zoomAnchor.reset();
        return true;
    }
    const int pixels = -delta * 2 * getView().tileSize / kWheelStep;
    if ((held & kHeldShift) != 0)
        scrollTo(getView().scrollX + pixels, getView().scrollY);
    else
        scrollTo(getView().scrollX, getView().scrollY + pixels);
    return true;
}

void MapCanvas::onMouseLeave()
{
    if (!hover)
        return;
    hover.reset();
    painter.setHover(hover);
    if (listener)
        listener->pointerMoved(hover);
    schedule();
}

// The keyboard

/// Arrows walk; with Shift they shift the map.
bool MapCanvas::walk(int key, std::uint32_t flags)
{
    for (const WalkKey& row : kWalkKeys) {
        if (row.key != key)
            continue;
        if ((flags & kHeldShift) == 0)
            editor.controllerKey(row.walks);
        else if (listener)
            listener->commandRequested(kShiftCommand, row.shifts.getValue());
        return true;
    }
    return false;
}

void MapCanvas::pasteAtPointer()
{
    if (const std::optional<PointerInfo> info = lookUnder(editor, *hover))
        listener->pasteRequested(info->cell);
}

void MapCanvas::pickDigit(int digit)
{
    if (const std::optional<int> value = valueOfDigit(TilePalette(editor).entries(), digit))
        editor.setSelectedTile(*value);
}

bool MapCanvas::onKeyDown(int key, std::uint32_t flags)
{
    if ((flags & kHeldAlt) != 0)
        return false;
    if ((flags & kHeldControl) != 0) {
        if (editor.getMode() != EditorMode::Event || !listener)
            return false;
        if (key == 'C')
            listener->copyRequested();
        else if (key == 'V' && hover)
            pasteAtPointer();
        else
            return false;
        return true;
    }
    if (walk(key, flags))
        return true;
    if (key >= '0' && key <= '9') {
        pickDigit(key - '0');
        return true;
    }
    switch (key) {
    case kKeyEscape:
        return editor.cancelGesture();
    case kKeyOpenBracket:
    case kKeyCloseBracket:
        editor.setSelectedTile(cycledValue(TilePalette(editor).entries(), editor.getSelectedTile(),
                                           key == kKeyOpenBracket ? -1 : 1));
        return true;
    case kKeyTab:
        if ((flags & kHeldShift) != 0 || !listener)
            return Component::onKeyDown(key, flags);
        listener->panelsToggled();
        return true;
    case kKeyDelete:
        if (editor.getMode() != EditorMode::Event || !listener)
            return false;
        listener->deleteRequested();
        return true;
    case kKeyReturn:
        if (!listener || editor.getMode() != EditorMode::Event || !editor.getSelectedEvent())
            return false;
        listener->eventEditRequested(*editor.getSelectedEvent());
        return true;
    case 'P':
    case 'R':
        if (listener)
            listener->commandRequested(key == 'P' ? kPen : kRectangle, 0);
        return true;
    case kKeyPlus:
    case kKeyAdd:
    case kKeyMinus:
    case kKeySubtract:
        if (listener)
            listener->commandRequested(key == kKeyPlus || key == kKeyAdd ? kZoomIn : kZoomOut, 0);
        return true;
    default:
        return false;
    }
}

// CanvasPane

CanvasPane::CanvasPane(WizMapEditor& editor) : canvas(editor) {}

void CanvasPane::onCreate()
{
    GridLayout(*this, 0, BoxLayout::Margin::None)
        .add(canvas, 0, 0)
        .add(upright, 1, 0)
        .add(level, 0, 1)
        .stretch(0, 0);
    canvas.setScrollStrips(level, upright);
    canvas.setMinimumSize(200, 160);
}

} // namespace varn
