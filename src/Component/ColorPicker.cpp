#include "Component/ColorPicker.h"

#include "Component/WindowHost.h"

namespace varn {

ColorPicker::ColorPicker()
{
    setAccessibleName(u"Colour");
}

void ColorPicker::setColor(std::uint32_t next)
{
    color = next;
    showColor();
}

void ColorPicker::onCreate()
{
    addActionListener(this);
    showColor();
}

void ColorPicker::handleEvent(const EventObject&)
{
    const std::optional<std::uint32_t> chosen = chooseColor(color);
    if (!chosen || *chosen == color)
        return;
    setColor(*chosen);
    getListeners().fire(kChangeListener, ChangeEvent(this, kClickedCode));
}

void ColorPicker::showColor()
{
    constexpr int kWidth = 32, kHeight = 16;
    Graphics swatch(kWidth, kHeight);
    swatch.setFillColor(0x808080);
    swatch.fillRect(0, 0, kWidth, kHeight);
    swatch.setFillColor(color);
    swatch.fillRect(1, 1, kWidth - 2, kHeight - 2);
    setImage(swatch.getBitmap());
}

} // namespace varn
