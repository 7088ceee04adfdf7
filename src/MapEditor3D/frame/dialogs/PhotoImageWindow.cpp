#include "MapEditor3D/frame/dialogs/PhotoImageWindow.h"

#include "Component/Theme.h"
#include "Component/native/NativeWindow.h"
#include "Game/Map/WizMap.h"
#include "MapEditor3D/canvas/TileStrip.h"
#include "Util/Exception.h"

#include <algorithm>
#include <cmath>
#include <unordered_set>

namespace varn {

namespace {

constexpr std::uint32_t kGridColour = 0x4040FF;
constexpr std::uint32_t kWallColour = 0x20A020, kDoorColour = 0xE07000;
constexpr double kZooms[] = {0.125, 0.25, 0.5, 0.75, 1, 1.5, 2, 3, 4, 6, 8};
constexpr std::uint32_t kRgb = 0xFFFFFF;

std::uint32_t toColourReference(std::uint32_t rgb)
{
    return (rgb & 0xFF) << 16 | (rgb & 0xFF00) | rgb >> 16;
}

} // namespace

PhotoImageWindow::PhotoImageWindow()
{
    setAccessibleName(u"Picture of the map");
}

void PhotoImageWindow::onCreate()
{
    setMinimumSize(280, 240);
    native::setCursor(getHandle(), native::Cursor::Cross);
    native::setAcceptsDrops(getHandle(), true);
}

void PhotoImageWindow::open(WStringView path)
{
    Image next;
    next.load(path);
    if (next.getBitmap().isEmpty())
        throw Exception(u"Couldn't load this image file. " + WString(path));
    setImage(std::move(next));
}

void PhotoImageWindow::setImage(Image&& picture)
{
    image = std::move(picture);
    fit();
    refilter();
}

void PhotoImageWindow::optionsChanged()
{
    refilter();
}

int PhotoImageWindow::getGridColumns() const
{
    return std::max(0, (image.getWidth() - options.offsetX) / options.tileSize);
}

int PhotoImageWindow::getGridRows() const
{
    return std::max(0, (image.getHeight() - options.offsetY) / options.tileSize);
}

void PhotoImageWindow::setRecognised(const WizMap* map)
{
    recognised = map;
    repaint();
}

void PhotoImageWindow::onDropFiles(const std::vector<std::filesystem::path>& names)
{
    if (onDrop && !names.empty())
        onDrop(names.front());
}

void PhotoImageWindow::onSize(int width, int height)
{
    Component::onSize(width, height);
    fit();
}

/// All of the picture, at the greatest step of zoom.
void PhotoImageWindow::fit()
{
    left = top = 0;
    zoom = kZooms[0];
    for (const double step : kZooms)
        if (step <= 4 && image.getWidth() * step <= getWidth() &&
            image.getHeight() * step <= getHeight())
            zoom = step;
    repaint();
}

void PhotoImageWindow::refilter()
{
    const Bitmap& source = image.getBitmap();
    Bitmap& target = filtered.getBitmap();
    if (source.isEmpty())
        return;
    if ((target.getWidth() != source.getWidth() || target.getHeight() != source.getHeight()) &&
        !target.create(source.getWidth(), source.getHeight()))
        return;
    target.setColorKeyEnabled(false);
    target.setAlphaChannel(false);
    std::unordered_set<std::uint32_t> masked(options.maskedColours.begin(),
                                             options.maskedColours.end());
    for (int y = 0; y < source.getHeight(); ++y)
        for (int x = 0; x < source.getWidth(); ++x) {
            const std::uint32_t colour = source.getPixelValue(x, y) & kRgb;
            target.setPixelRgb(x, y, masked.contains(colour) ? options.backgroundColour : colour);
        }
    repaint();
}

std::optional<Point> PhotoImageWindow::pixelAt(int x, int y) const
{
    const Point pixel{static_cast<int>(std::floor(left + x / zoom)),
                      static_cast<int>(std::floor(top + y / zoom))};
    if (pixel.x < 0 || pixel.y < 0 || pixel.x >= image.getWidth() || pixel.y >= image.getHeight())
        return std::nullopt;
    return pixel;
}

void PhotoImageWindow::begin(Gesture next, const MouseEvent& event)
{
    gesture = next;
    panFrom = {event.x, event.y};
    touch(event);
}

/// Takes the colour under the pointer out, or brings it back.
void PhotoImageWindow::touch(const MouseEvent& event)
{
    const auto pixel = pixelAt(event.x, event.y);
    if (!pixel || gesture == Gesture::Pan || gesture == Gesture::None)
        return;
    const std::uint32_t colour = image.getBitmap().getPixelValue(pixel->x, pixel->y) & kRgb;
    auto& masked = options.maskedColours;
    const auto place = std::ranges::find(masked, colour);
    if ((place != masked.end()) == (gesture == Gesture::Mask))
        return;
    if (gesture == Gesture::Mask)
        masked.push_back(colour);
    else
        masked.erase(place);
    refilter();
    if (onMask)
        onMask();
}

bool PhotoImageWindow::onLeftDown(const MouseEvent& event)
{
    begin(Gesture::Unmask, event);
    return true;
}

bool PhotoImageWindow::onRightDown(const MouseEvent& event)
{
    begin(Gesture::Mask, event);
    return true;
}

bool PhotoImageWindow::onMiddleDown(const MouseEvent& event)
{
    begin(Gesture::Pan, event);
    return true;
}

bool PhotoImageWindow::onLeftUp(const MouseEvent&)
{
    gesture = Gesture::None;
    return true;
}

bool PhotoImageWindow::onRightUp(const MouseEvent& event)
{
    return onLeftUp(event);
}

bool PhotoImageWindow::onMiddleUp(const MouseEvent& event)
{
    return onLeftUp(event);
}

bool PhotoImageWindow::onMouseMove(const MouseEvent& event)
{
    if (gesture == Gesture::Pan) {
        left += (panFrom.x - event.x) / zoom;
        top += (panFrom.y - event.y) / zoom;
        panFrom = {event.x, event.y};
        repaint();
    } else {
        touch(event);
    }
    if (const auto pixel = pixelAt(event.x, event.y)) {
        cursorColour = image.getBitmap().getPixelValue(pixel->x, pixel->y) & kRgb;
        if (onCursor)
            onCursor();
    }
    return true;
}

bool PhotoImageWindow::onMouseWheel(const MouseEvent& event, int delta)
{
    double next = zoom;
    if (delta > 0) {
        const auto* const larger = std::ranges::upper_bound(kZooms, zoom);
        next = larger == std::end(kZooms) ? zoom : *larger;
    } else {
        const auto* const here = std::ranges::lower_bound(kZooms, zoom);
        next = here == std::begin(kZooms) ? zoom : *(here - 1);
    }
    left += event.x / zoom - event.x / next;
    top += event.y / zoom - event.y / next;
    zoom = next;
    repaint();
    return true;
}

void PhotoImageWindow::paint(Graphics& graphics, const Rect&)
{
    const bool empty = image.getBitmap().isEmpty();
    graphics.setFillColor(empty ? theme().field : toColourReference(options.backgroundColour));
    graphics.fillRect(0, 0, graphics.getWidth(), graphics.getHeight());
    if (empty)
        return;
    const double scale = zoom * getScale();
    const int x = static_cast<int>(std::max(0.0, std::floor(left)));
    const int y = static_cast<int>(std::max(0.0, std::floor(top)));
    const int width = std::min(image.getWidth() - x,
                               static_cast<int>(std::ceil(graphics.getWidth() / scale)) + 1);
    const int height = std::min(image.getHeight() - y,
                                static_cast<int>(std::ceil(graphics.getHeight() / scale)) + 1);
    if (width > 0 && height > 0) {
        const Rect source(x, y, width, height);
        const Rect place(static_cast<int>(std::lround((x - left) * scale)),
                         static_cast<int>(std::lround((y - top) * scale)),
                         std::max(1, static_cast<int>(std::lround(width * scale))),
                         std::max(1, static_cast<int>(std::lround(height * scale))));
        if (scale < 1) {
            const Image smaller = scaledPart(filtered, source, place.width, place.height);
            graphics.drawImage(smaller, place.left, place.top);
        } else {
            graphics.drawImage(filtered, place, source);
        }
    }
    paintGrid(graphics);
    if (recognised)
        paintRecognised(graphics);
}

Point PhotoImageWindow::toDevice(double x, double y) const
{
    const double scale = zoom * getScale();
    return {static_cast<int>(std::lround((x - left) * scale)),
            static_cast<int>(std::lround((y - top) * scale))};
}

void PhotoImageWindow::paintGrid(Graphics& graphics)
{
    const int columns = getGridColumns(), rows = getGridRows(), size = options.tileSize;
    graphics.setPen(kGridColour);
    const Point first = toDevice(options.offsetX, options.offsetY);
    const Point last = toDevice(options.offsetX + columns * size, options.offsetY + rows * size);
    for (int i = 0; i <= columns; ++i) {
        const int x = toDevice(options.offsetX + i * size, 0).x;
        graphics.drawLine(x, first.y, x, last.y);
    }
    for (int i = 0; i <= rows; ++i) {
        const int y = toDevice(0, options.offsetY + i * size).y;
        graphics.drawLine(first.x, y, last.x, y);
    }
}

/// A wall is a bar along its edge, a door a bar with a box in its middle.
void PhotoImageWindow::paintRecognised(Graphics& graphics)
{
    const int columns = std::min<int>(getGridColumns(), recognised->cols);
    const int rows = std::min<int>(getGridRows(), recognised->rows);
    const int bar = std::max(2, static_cast<int>(2 * getScale()));
    const int half = bar * 3 / 2; // of the box
    const auto mark = [&](int kind, Point from, Point to) {
        if (kind == WallKind::None)
            return;
        graphics.setFillColor(kind == WallKind::Wall ? kWallColour : kDoorColour);
        graphics.fillRect(from.x - bar / 2, from.y - bar / 2, to.x - from.x + bar,
                          to.y - from.y + bar);
        if (kind != WallKind::Wall)
            graphics.fillRect((from.x + to.x) / 2 - half, (from.y + to.y) / 2 - half, 2 * half,
                              2 * half);
    };
    for (int y = 0; y < rows; ++y)
        for (int x = 0; x < columns; ++x) {
            const int size = options.tileSize;
            const int cellX = options.offsetX + x * size, cellY = options.offsetY + y * size;
            const Point corner = toDevice(cellX, cellY), end = toDevice(cellX + size, cellY + size);
            const WizMapData& cell = recognised->cellAt(x, y);
            mark(cell.north, corner, {end.x, corner.y});
            mark(cell.west, corner, {corner.x, end.y});
            if (y == rows - 1)
                mark(cell.south, {corner.x, end.y}, end);
            if (x == columns - 1)
                mark(cell.east, {end.x, corner.y}, end);
        }
}

} // namespace varn
