#include "Component/Component.h"

#include "Component/Theme.h"
#include "Component/native/NativeWindow.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace varn {

namespace {

class FunctionListener final : public ActionListener
{
  public:
    explicit FunctionListener(std::function<void(const EventObject&)> action)
        : action(std::move(action))
    {}
    void handleEvent(const EventObject& event) override
    {
        const std::function<void(const EventObject&)> held = action; // it may end our life
        held(event);
    }

  private:
    std::function<void(const EventObject&)> action;
};

constexpr int kLargestSurface = 4096; // of a `Graphics`

WString number(std::int64_t value)
{
    return toDecimal(value);
}

WString quoted(WStringView name, const WString& value)
{
    return u' ' + WString(name) + u"=\"" + value + u'"';
}

bool isMouseMessage(std::uint32_t message)
{
    return (message >= kMouseMoveMessage && message <= kLastMouseMessage) ||
           message == kMouseLeaveMessage;
}

} // namespace

Component::Component()
{
    textColor = theme().faceText;
}

Component::~Component()
{
    // Dying controls still tell of changes, and what hears of them may be gone.
    reset();
    native::destroy(std::exchange(handle, nullptr));
}

void Component::on(WStringView key, std::function<void(const EventObject&)> action)
{
    ownListeners.push_back(std::make_unique<FunctionListener>(std::move(action)));
    listeners.addListener(key, ownListeners.back().get());
}

void Component::onAction(std::function<void()> action)
{
    on(kActionListener, [action = std::move(action)](const EventObject&) { action(); });
}

void Component::reset()
{
    backBuffer.reset();
    hovering = focused = false;
    doubleBuffered = true;
    listeners.clear();
    ownListeners.clear();
}

void Component::destroy()
{
    if (handle) // what listens to a window that is still to be made stays
        reset();
    BaseWindow::destroy();
}

void Component::forgetHandle()
{
    BaseWindow::forgetHandle();
    reset();
}

bool Component::create(BaseWindow* parent)
{
    if (windowClass.empty())
        windowClass = u"Component";
    return BaseWindow::create(parent);
}

WString Component::toString() const
{
    WString text = windowClass;
    for (const std::int64_t value :
         {std::int64_t{getX()}, std::int64_t{getY()}, std::int64_t{getWidth()},
          std::int64_t{getHeight()}, std::int64_t{textColor}, std::int64_t{backColor},
          std::int64_t{hasFocus()}})
        text += u", " + number(value);
    return text + u", " + getText();
}

WString Component::toXml() const
{
    return u"<Component" + quoted(u"Class", windowClass) + quoted(u"X", number(getX())) +
           quoted(u"Y", number(getY())) + quoted(u"Width", number(getWidth())) +
           quoted(u"Height", number(getHeight())) + quoted(u"TextColor", number(textColor)) +
           quoted(u"BackColor", number(backColor)) + quoted(u"Text", getText()) + u" />";
}

MessageResult Component::windowProc(NativeHandle window, std::uint32_t message, WordParam wParam,
                                    LongParam lParam)
{
    if (isMouseMessage(message))
        return onMouseEvent(message, unpackX(lParam), unpackY(lParam), wParam) ? 1 : 0;
    const int key = static_cast<int>(wParam);
    const auto flags = static_cast<std::uint32_t>(lParam);
    switch (message) {
    case kEraseBackgroundMessage:
        return 1;
    case kSetFocusMessage:
        focused = true;
        return onSetFocus() ? 1 : 0;
    case kKillFocusMessage:
        focused = false;
        return onKillFocus() ? 1 : 0;
    case kPaintMessage:
        if (!paintsItself())
            return 0;
        paintBuffered();
        return 1;
    case kKeyDownMessage:
        return onKeyDown(key, flags) ? 1 : 0;
    case kKeyUpMessage:
        return onKeyUp(key, flags) ? 1 : 0;
    case kCharMessage:
        return onChar(key, flags) ? 1 : 0;
    default:
        return BaseWindow::windowProc(window, message, wParam, lParam);
    }
}

void Component::requestFocus(bool wanted)
{
    if (wanted == hasFocus())
        return;
    if (wanted)
        setFocus();
    else if (BaseWindow* const parent = getParent())
        parent->setFocus();
}

void Component::paintBackground(Graphics& graphics)
{
    graphics.setFillColor(backColor);
    graphics.setTextColor(textColor);
    graphics.fillRect(0, 0, graphics.getWidth(), graphics.getHeight());
}

void Component::fireEvent(int code)
{
    if (code == 1 || !listeners.fire(kEventListener, EventObject(this, code)))
        notifyParent(code); // nobody was called, so we live
}

void Component::fireAction()
{
    const std::weak_ptr<const void> life = listeners.getLife();
    listeners.fire(kActionListener, ActionEvent(this, kClickedCode));
    if (!life.expired())
        fireEvent(kClickedCode);
}

bool Component::onChar(int, std::uint32_t)
{
    return false;
}

bool Component::onKeyDown(int key, std::uint32_t flags)
{
    if (key != kKeyTab || (flags & (kHeldControl | kHeldAlt)) != 0)
        return false;
    moveFocus((flags & kHeldShift) == 0);
    return true;
}

bool Component::onKeyUp(int, std::uint32_t)
{
    return false;
}

void Component::onMouseEnter()
{
    hovering = true;
    if (paintsItself())
        repaint();
}

void Component::onMouseLeave()
{
    hovering = false;
    if (paintsItself())
        repaint();
}

bool Component::onMouseEvent(std::uint32_t message, int x, int y, WordParam wParam)
{
    if (message == kMouseLeaveMessage) {
        onMouseLeave();
        return false;
    }
    if (!isEnabled())
        return false;
    const MouseEvent event(this, static_cast<std::int32_t>(message), x, y,
                           static_cast<std::uint32_t>(wParam & 0xFFFF));
    const std::weak_ptr<const void> life = listeners.getLife();
    listeners.fire(kMouseListener, event);
    return life.expired() || dispatchMouse(event, message, wParam);
}

bool Component::dispatchMouse(const MouseEvent& event, std::uint32_t message, WordParam wParam)
{
    switch (message) {
    case kMouseMoveMessage:
        if (!hovering)
            onMouseEnter();
        return onMouseMove(event);
    case kLeftDownMessage:
        return onLeftDown(event);
    case kLeftUpMessage:
        return onLeftUp(event);
    case kLeftDoubleClickMessage:
        return onLeftDoubleClick(event);
    case kRightDownMessage:
        return onRightDown(event);
    case kRightUpMessage:
        return onRightUp(event);
    case kRightDoubleClickMessage:
        return onRightDoubleClick(event);
    case kMiddleDownMessage:
        return onMiddleDown(event);
    case kMiddleUpMessage:
        return onMiddleUp(event);
    case kMouseWheelMessage:
        return onMouseWheel(event, static_cast<std::int16_t>(wParam >> 16 & 0xFFFF));
    default:
        return false;
    }
}

double Component::getScale() const
{
    return native::getScale(handle);
}

void Component::paintBuffered()
{
    const double scale = getScale();
    const auto pixels = [scale](int side) {
        return std::min(kLargestSurface, static_cast<int>(std::lround(side * scale)));
    };
    const int width = pixels(getWidth());
    const int height = pixels(getHeight());
    Rect dirty = native::getPaintRect(handle);
    if (!backBuffer || !doubleBuffered || backBuffer->getWidth() != width ||
        backBuffer->getHeight() != height) {
        backBuffer = std::make_unique<Graphics>();
        if (!backBuffer->setSize(width, height))
            return;
        paintBackground(*backBuffer);
        dirty = Rect(0, 0, width, height);
    } else {
        backBuffer->setFillColor(backColor);
        backBuffer->setTextColor(textColor);
        backBuffer->fillRect(dirty);
    }
    paint(*backBuffer, dirty);
    native::present(handle, backBuffer->getBitmap(), dirty, scale);
}

} // namespace varn
