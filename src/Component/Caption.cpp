#include "Component/Caption.h"

#include "Component/Theme.h"

#include <cmath>

namespace varn {

Caption::CloseButton::CloseButton() : Button(u"\u00D7")
{
    setHint(u"Close");
}

Caption::Caption(WStringView english)
{
    backColor = theme().face;
    setLabel(english);
}

WString Caption::getText() const
{
    return title;
}

void Caption::setText(WStringView text)
{
    title = text;
    repaint();
}

void Caption::onCreate()
{
    setMinimumSize(2 * kHeight, kHeight);
    setTabStop(false);
    closeButton.create(this);
    closeButton.setFlat(true);
    onSize(getWidth(), getHeight());
}

void Caption::onSize(int width, int height)
{
    closeButton.setBounds(width - kHeight, (height - kHeight) / 2, kHeight, kHeight);
    repaint();
}

bool Caption::onLeftDown(const MouseEvent&)
{
    fireAction();
    return true;
}

MessageResult Caption::windowProc(NativeHandle window, std::uint32_t message, WordParam wParam,
                                  LongParam lParam)
{
    return Component::windowProc(window, message, wParam, lParam);
}

NativeHandle Caption::makeHandle(NativeHandle parent)
{
    return BaseWindow::makeHandle(parent);
}

void Caption::paint(Graphics& graphics, const Rect&)
{
    constexpr int kIndent = 8;
    const double scale = getScale();
    FontSpec face = defaultGuiFont();
    face.height = static_cast<int>(std::lround(face.height * scale));
    face.bold = true;
    graphics.selectFont(face);
    graphics.setFillColor(backColor);
    graphics.setTextColor(textColor);
    graphics.fillRect(0, 0, graphics.getWidth(), graphics.getHeight());
    graphics.drawString(title, static_cast<int>(std::lround(kIndent * scale)),
                        (graphics.getHeight() - face.height) / 2);
    graphics.drawLine(0, graphics.getHeight() - 1, graphics.getWidth() - 1,
                      graphics.getHeight() - 1, theme().line);
}

} // namespace varn
