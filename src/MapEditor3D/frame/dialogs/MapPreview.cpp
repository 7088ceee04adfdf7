#include "MapEditor3D/frame/dialogs/MapPreview.h"

#include "Component/Theme.h"

#include <algorithm>

namespace varn {

namespace {

constexpr int kLeastTile = 4, kMostTile = 48;

/// The greatest multiple of 4 at which so many cells with their margins fit.
int tileThatFits(int pixels, int cells)
{
    const int tile = (pixels - 8) / (cells + 2);
    return std::clamp(tile / 4 * 4, kLeastTile, kMostTile);
}

} // namespace

MapPreview::MapPreview() : painter(editor)
{
    setAccessibleName(u"Preview");
    CanvasOptions options; // what only stands in the way of the walls is left out
    options.walker = options.areas = options.events = false;
    painter.setOptions(options);
}

void MapPreview::onCreate()
{
    setMinimumSize(240, 240);
}

void MapPreview::show(const WizMap& map)
{
    editor.getMap() = map;
    editor.resetHistory();
    editor.propertiesEdited();
    fit();
}

void MapPreview::cellsEdited()
{
    editor.cellsEdited();
    repaint();
}

void MapPreview::takeOver(WizMapEditor& target) const
{
    target.cancelGesture();
    target.getMap().cells = getMap().cells;
    target.commitStroke();
}

void MapPreview::onSize(int width, int height)
{
    Component::onSize(width, height);
    if (fitted)
        fit();
    else
        lookAt(painter.getView());
}

void MapPreview::fit()
{
    fitted = true;
    const WizMap& map = getMap();
    CanvasView view;
    view.tileSize =
        std::min(tileThatFits(getWidth(), map.cols), tileThatFits(getHeight(), map.rows));
    lookAt(view);
}

/// Takes a view, with the pane's size and, where all of the map can be seen, in its middle.
void MapPreview::lookAt(CanvasView view)
{
    view.width = getWidth();
    view.height = getHeight();
    view.scale = getScale();
    view.clampScroll(getMap());
    const int right = view.width - view.sheetWidth(getMap());
    const int below = view.height - view.sheetHeight(getMap());
    if (right > 0)
        view.scrollX = -right / 2;
    if (below > 0)
        view.scrollY = -below / 2;
    painter.setView(view);
    repaint();
}

bool MapPreview::onLeftDown(const MouseEvent& event)
{
    dragFrom = Point{event.x, event.y};
    return true;
}

bool MapPreview::onLeftUp(const MouseEvent&)
{
    dragFrom.reset();
    return true;
}

bool MapPreview::onLeftDoubleClick(const MouseEvent&)
{
    fit();
    return true;
}

bool MapPreview::onMouseMove(const MouseEvent& event)
{
    if (!dragFrom)
        return false;
    CanvasView view = painter.getView();
    view.scrollX += dragFrom->x - event.x;
    view.scrollY += dragFrom->y - event.y;
    dragFrom = Point{event.x, event.y};
    fitted = false;
    lookAt(view);
    return true;
}

bool MapPreview::onMouseWheel(const MouseEvent& event, int delta)
{
    CanvasView view = painter.getView();
    const int next = std::clamp(view.tileSize + (delta > 0 ? 4 : -4), kLeastTile, kMostTile);
    view.zoomTo(next, {event.x, event.y});
    fitted = false;
    lookAt(view);
    return true;
}

void MapPreview::paint(Graphics& graphics, const Rect&)
{
    painter.setPalette(theme().dark ? darkCanvasPalette() : lightCanvasPalette());
    painter.paint(graphics);
}

} // namespace varn
