#include "MapEditor3D/frame/Dungeon3DPane.h"

#include "Component/Button.h"
#include "Component/Theme.h"
#include "Component/Translation.h"

#include <algorithm>
#include <cmath>

namespace varn {

namespace {

struct PadKey
{
    int key;
    ControllerKey pad;
};

/// The pad's keys on the keyboard; letters stand for themselves.
constexpr PadKey kPadKeys[] = {
    {kKeyUp, ControllerKey::Up},     {kKeyDown, ControllerKey::Down},
    {kKeyLeft, ControllerKey::Left}, {kKeyRight, ControllerKey::Right},
    {kKeyHome, ControllerKey::Menu}, {'L', ControllerKey::L},
    {'R', ControllerKey::R},         {'A', ControllerKey::A},
    {'B', ControllerKey::B},         {'X', ControllerKey::X},
    {'Y', ControllerKey::Y},
};

} // namespace

DungeonViewPane::DungeonViewPane(WizMapEditor& editor) : editor(editor), view(editor.getMap())
{
    setWindowClass(u"Dungeon3DPane");
    setAccessibleName(u"First-person view");
    backColor = 0x202020;
    editor.addListener(*this);
}

DungeonViewPane::~DungeonViewPane()
{
    *alive = false;
    editor.removeListener(*this);
}

void DungeonViewPane::reloadImages()
{
    view.reloadImages();
    refresh();
}

void DungeonViewPane::mapLoaded()
{
    view.reloadImages();
    refresh();
}

void DungeonViewPane::cellsChanged(const CellRect& cells)
{
    if (editor.getCursor().sees(editor.getMap(), cells))
        refresh();
}

bool DungeonViewPane::onLeftDown(const MouseEvent&)
{
    setFocus();
    return true;
}

bool DungeonViewPane::onKeyDown(int key, std::uint32_t flags)
{
    if ((flags & (kHeldControl | kHeldAlt)) != 0)
        return false;
    for (const PadKey& row : kPadKeys)
        if (row.key == key) {
            editor.controllerKey(row.pad);
            return true;
        }
    return Component::onKeyDown(key, flags);
}

bool DungeonViewPane::onSetFocus()
{
    refresh();
    return false;
}

bool DungeonViewPane::onKillFocus()
{
    refresh();
    return false;
}

/// The largest place of the picture's shape, in the middle.
Rect DungeonViewPane::viewPlace(const Graphics& graphics) const
{
    const int width = std::min(graphics.getWidth(), graphics.getHeight() * 4 / 3);
    const int height = std::max(1, width * 3 / 4);
    return {(graphics.getWidth() - width) / 2, (graphics.getHeight() - height) / 2, width, height};
}

void DungeonViewPane::refresh()
{
    if (scheduled || !getHandle())
        return;
    scheduled = true;
    Application::post([this, stillHere = alive] {
        if (*stillHere && !drawing)
            draw();
    });
}

void DungeonViewPane::draw()
{
    scheduled = false;
    const int width = static_cast<int>(std::lround(getWidth() * getScale()));
    const int height = static_cast<int>(std::lround(getHeight() * getScale()));
    if ((picture.getWidth() != width || picture.getHeight() != height) &&
        !picture.setSize(width, height))
        return;
    drawing = true;
    paintBackground(picture);
    const Rect place = viewPlace(picture);
    constexpr int kLeastWidth = 16;
    if (place.width >= kLeastWidth && editor.getMap().cols > 0) {
        view.drawView(picture, place, editor.getCursor().getViewpoint());
        paintWords(picture, place);
    }
    drawing = false;
    repaint();
}

void DungeonViewPane::paint(Graphics& graphics, const Rect&)
{
    if (picture.getWidth() == graphics.getWidth() && picture.getHeight() == graphics.getHeight())
        picture.drawTo(graphics, 0, 0);
    else
        refresh();
}

/// The facing above; below, who has the keys.
void DungeonViewPane::paintWords(Graphics& graphics, const Rect& place)
{
    const double scale = getScale();
    FontSpec letters = getFont();
    letters.height = static_cast<int>(letters.height * scale);
    graphics.selectFont(letters);
    graphics.setTextColor(0xFFFFFF);
    const auto put = [&](const WString& text, int y) {
        const int x = place.x + (place.width - graphics.getStringWidth(text)) / 2;
        graphics.drawBorderString(text, x, y, 0xFFFFFF, 0x000000);
    };
    put(translate(editor.getCursor().facing.toText()), place.y + 4);
    if (!hasFocus())
        return;
    put(translate(u"The arrow keys walk"), place.bottom - letters.height - 6);
    graphics.drawFramedRect(place, static_cast<int>(2 * scale), theme().accent, theme().accent);
}

void Dungeon3DPane::onCreate()
{
    BoxLayout(*this, BoxLayout::Axis::Column).add(view, 1).add(pad);
    view.setMinimumSize(200, 150);
    GridLayout grid(pad, 2, BoxLayout::Margin::None);
    for (const ControllerButton& button : kControllerButtons) {
        auto& key = pad.add<Button>();
        grid.add(key, button.column, button.row);
        constexpr int kSide = 28, kWide = 56;
        key.setFixedSize(button.key == ControllerKey::Menu ? kWide : kSide, kSide);
        key.setTabStop(false);
        key.setLabel(button.label);
        key.setHint(button.does);
        key.onAction([this, pressed = button.key] { editor.controllerKey(pressed); });
    }
}

} // namespace varn
