#include "MapEditor3D/frame/panes/TileGrid.h"

#include "Component/Theme.h"
#include "Component/Translation.h"

#include <algorithm>
#include <cmath>

namespace varn {

namespace {

// Pixels of the window.
constexpr int kPadding = 4;
constexpr int kListPicture = 24, kGridPicture = 32;

/// As much of a text as fits, with dots for the rest.
WString fitting(const Graphics& graphics, const WString& text, int width)
{
    if (graphics.getStringWidth(text) <= width)
        return text;
    WString cut = text;
    while (!cut.empty() && graphics.getStringWidth(cut + u"\u2026") > width)
        cut.pop_back();
    return cut + u"\u2026";
}

} // namespace

/// Paints in pixels of the window on a surface of device pixels.
class TileGrid::Brush
{
  public:
    Brush(Graphics& graphics, double scale, FontSpec font) : graphics(graphics), scale(scale)
    {
        font.height = device(font.height);
        graphics.selectFont(std::move(font));
    }

    int device(int pixels) const { return static_cast<int>(std::lround(pixels * scale)); }
    Rect device(const Rect& rect) const
    {
        const int left = device(rect.left), top = device(rect.top);
        return {left, top, device(rect.right) - left, device(rect.bottom) - top};
    }
    void fill(const Rect& rect, std::uint32_t colour)
    {
        graphics.setFillColor(colour);
        graphics.fillRect(device(rect));
    }
    void frame(const Rect& rect, std::uint32_t colour, int thickness)
    {
        const Rect whole = device(rect);
        const int width = std::max(1, device(thickness));
        graphics.setFillColor(colour);
        graphics.fillRect(whole.x, whole.y, whole.width, width);
        graphics.fillRect(whole.x, whole.bottom - width, whole.width, width);
        graphics.fillRect(whole.x, whole.y, width, whole.height);
        graphics.fillRect(whole.right - width, whole.y, width, whole.height);
    }
    /// Middled in the height of a rectangle. @return the text's width
    int text(const WString& words, const Rect& rect, std::uint32_t colour)
    {
        const Rect place = device(rect);
        const WString shown = fitting(graphics, words, place.width);
        graphics.setTextColor(colour);
        graphics.drawString(shown, place.x,
                            place.y + (place.height - graphics.getFont().height) / 2 - device(1));
        return graphics.getStringWidth(shown);
    }

    Graphics& graphics;

  private:
    double scale;
};

TileGrid::TileGrid(TilePalette& palette) : palette(palette)
{
    windowClass = u"TileGrid";
}

void TileGrid::setEntries(std::vector<PaletteEntry> next, Shape nextShape)
{
    if (entries == next && shape == nextShape) {
        repaint(); // their pictures may differ
        return;
    }
    if (shape != nextShape)
        scrollTo(0);
    shape = nextShape;
    entries = std::move(next);
    hovered.reset();
    updateScrollbar();
    if (const auto entry = selectedEntry())
        reveal(*entry);
    describe();
    repaint();
}

void TileGrid::setSelected(int value)
{
    selected = value;
    if (const auto entry = selectedEntry())
        reveal(*entry);
    describe();
    repaint();
}

void TileGrid::setWallLook(WallLook next)
{
    look = next;
    repaint();
}

void TileGrid::setEmptyText(WStringView english)
{
    emptyText = english;
    repaint();
}

// Places

int TileGrid::cellWidth() const
{
    return shape == Shape::Grid ? kGridPicture + kPadding : std::max(1, getWidth());
}

int TileGrid::cellHeight() const
{
    return (shape == Shape::Grid ? kGridPicture : kListPicture) + kPadding;
}

int TileGrid::columns() const
{
    return std::max(1, (getWidth() - kPadding - kThickness) / cellWidth());
}

int TileGrid::contentHeight() const
{
    const int count = static_cast<int>(entries.size());
    const int lines = shape == Shape::Grid ? (count + columns() - 1) / columns() : count;
    return lines * cellHeight() + kPadding;
}

Rect TileGrid::barPlace() const
{
    return {getWidth() - kThickness, 0, kThickness, getHeight()};
}

void TileGrid::updateScrollbar()
{
    setScrollRange(contentHeight(), std::max(1, getHeight()));
}

Rect TileGrid::placeOf(std::size_t entry) const
{
    const int place = static_cast<int>(entry);
    if (shape == Shape::List)
        return {0, place * cellHeight() + kPadding / 2 - getScrollPosition(),
                getWidth() - (isScrollNeeded() ? kThickness : 0), cellHeight()};
    return {kPadding + place % columns() * cellWidth(),
            kPadding + place / columns() * cellHeight() - getScrollPosition(), kGridPicture,
            kGridPicture};
}

std::optional<std::size_t> TileGrid::entryAt(int x, int y) const
{
    for (std::size_t entry = 0; entry < entries.size(); ++entry) {
        const Rect place = placeOf(entry);
        if (x >= place.left && x < place.right && y >= place.top && y < place.bottom)
            return entry;
    }
    return std::nullopt;
}

std::optional<std::size_t> TileGrid::selectedEntry() const
{
    const auto found = std::ranges::find(entries, selected, &PaletteEntry::value);
    if (found == entries.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - entries.begin());
}

void TileGrid::reveal(std::size_t entry)
{
    const Rect place = placeOf(entry);
    if (place.top < 0)
        scrollTo(getScrollPosition() + place.top - kPadding);
    else if (place.bottom > getHeight())
        scrollTo(getScrollPosition() + place.bottom - getHeight() + kPadding);
}

// Picking

void TileGrid::pick(std::size_t entry)
{
    setSelected(entries[entry].value);
    if (picked)
        picked(selected);
    fireAction();
}

void TileGrid::moveBy(int count)
{
    if (entries.empty())
        return;
    const int last = static_cast<int>(entries.size()) - 1;
    const int from = static_cast<int>(selectedEntry().value_or(0));
    pick(static_cast<std::size_t>(std::clamp(from + count, 0, last)));
}

void TileGrid::describe()
{
    const auto entry = selectedEntry();
    setAccessibleName(entry ? translate(u"Palette") + u": " + entries[*entry].name
                            : translate(u"Palette"));
}

bool TileGrid::onLeftDown(const MouseEvent& event)
{
    setFocus();
    if (isScrollNeeded() && event.x >= barPlace().x)
        pressScrollbar(barPlace(), event.y);
    else if (const auto entry = entryAt(event.x, event.y))
        pick(*entry);
    return true;
}

bool TileGrid::onLeftUp(const MouseEvent&)
{
    releaseScrollbar();
    return true;
}

bool TileGrid::onLeftDoubleClick(const MouseEvent& event)
{
    const auto entry = entryAt(event.x, event.y);
    if (entry && activated)
        activated(entries[*entry].value);
    return true;
}

bool TileGrid::onMouseMove(const MouseEvent& event)
{
    if (isScrollbarGrabbed()) {
        dragScrollbar(barPlace(), event.y);
        return true;
    }
    const auto entry = entryAt(event.x, event.y);
    if (entry == hovered)
        return true;
    hovered = entry;
    setTooltip(entry && shape == Shape::Grid ? entries[*entry].name : WString());
    repaint();
    return true;
}

void TileGrid::onMouseLeave()
{
    hovered.reset();
    Component::onMouseLeave();
}

bool TileGrid::onMouseWheel(const MouseEvent&, int delta)
{
    constexpr int kLines = 2;
    scrollTo(getScrollPosition() - delta * kLines * cellHeight() / kWheelStep);
    return true;
}

bool TileGrid::onKeyDown(int key, std::uint32_t flags)
{
    const int line = shape == Shape::Grid ? columns() : 1;
    const int page = std::max(1, getHeight() / cellHeight() - 1) * line;
    const int all = static_cast<int>(entries.size());
    const struct
    {
        int key, move;
    } moves[] = {{kKeyLeft, shape == Shape::Grid ? -1 : 0},
                 {kKeyRight, shape == Shape::Grid ? 1 : 0},
                 {kKeyUp, -line},
                 {kKeyDown, line},
                 {kKeyPageUp, -page},
                 {kKeyPageDown, page},
                 {kKeyHome, -all},
                 {kKeyEnd, all}};
    if ((flags & (kHeldControl | kHeldAlt | kHeldShift)) == 0) {
        for (const auto& move : moves) {
            if (move.key != key || move.move == 0)
                continue;
            moveBy(move.move);
            return true;
        }
        if (key == kKeyReturn && selectedEntry() && activated) {
            activated(selected);
            return true;
        }
    }
    return Component::onKeyDown(key, flags);
}

bool TileGrid::onSetFocus()
{
    repaint();
    return false;
}

bool TileGrid::onKillFocus()
{
    repaint();
    return false;
}

void TileGrid::onSize(int, int)
{
    updateScrollbar();
    if (const auto entry = selectedEntry())
        reveal(*entry);
}

// Painting

void TileGrid::drawEntry(Brush& brush, std::size_t entry)
{
    const Theme& colours = theme();
    const CanvasPalette& paper = colours.dark ? darkCanvasPalette() : lightCanvasPalette();
    const PaletteEntry& shown = entries[entry];
    const Rect place = placeOf(entry);
    const bool marked = shown.value == selected;

    if (shape == Shape::Grid) {
        palette.drawPicture(brush.graphics, brush.device(place), shown.value, paper, look);
        if (marked) {
            const Rect around(place.x - 2, place.y - 2, place.width + 4, place.height + 4);
            brush.frame(around, hasFocus() ? colours.accent : colours.faceText, 3);
        } else if (hovered == entry)
            brush.frame(place, colours.accent, 1);
        return;
    }

    std::uint32_t ink = colours.fieldText, dim = colours.dimText;
    if (marked) {
        brush.fill(place, colours.accent);
        ink = dim = colours.accentText;
    } else if (hovered == entry)
        brush.fill(place, colours.face);
    const int inset = kPadding / 2;
    const Rect picture(place.x + kPadding, place.y + inset, kListPicture, kListPicture);
    palette.drawPicture(brush.graphics, brush.device(picture), shown.value, paper, look);
    brush.frame(picture, colours.line, 1);
    constexpr int kNumberWidth = 32, kGap = 8;
    const int left = picture.right + kGap;
    brush.text(shown.name,
               Rect(left, place.y, place.right - left - kNumberWidth - kPadding, place.height),
               ink);
    const WString number = toDecimal(shown.value);
    const int width = brush.graphics.getStringWidth(number);
    brush.graphics.setTextColor(dim);
    brush.graphics.drawString(
        number, brush.device(place.right - kGap) - width,
        brush.device(place.y) + (brush.device(place.height) - brush.graphics.getFont().height) / 2 -
            brush.device(1));
    if (marked && hasFocus())
        brush.frame(place, colours.fieldText, 1);
}

void TileGrid::paint(Graphics& graphics, const Rect&)
{
    const Theme& colours = theme();
    Brush brush(graphics, getScale(), getFont());
    graphics.setFillColor(colours.field);
    graphics.fillRect(0, 0, graphics.getWidth(), graphics.getHeight());
    if (entries.empty() && !emptyText.empty())
        brush.text(translate(emptyText), Rect(8, 0, getWidth() - 16, getHeight()), colours.dimText);

    for (std::size_t entry = 0; entry < entries.size(); ++entry) {
        const Rect place = placeOf(entry);
        if (place.bottom > 0 && place.top < getHeight())
            drawEntry(brush, entry);
    }
    if (isScrollNeeded())
        paintScrollbar(graphics, brush.device(barPlace()));
}

} // namespace varn
