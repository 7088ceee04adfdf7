#include "Component/native/Binding.h"

#include "Component/native/Qt.h"

#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPointer>
#include <QUrl>
#include <QWheelEvent>
#include <cmath>
#include <unordered_map>

namespace varn::native {

namespace {

/// Every live binding by its widget.
std::unordered_map<const QObject*, Binding*>& bindings()
{
    static std::unordered_map<const QObject*, Binding*> all;
    return all;
}

QRect paintRectInForce;

struct KeyRow
{
    int toolkit;
    int code;
};

constexpr KeyRow kKeys[] = {
    {Qt::Key_Backspace, kKeyBackspace},
    {Qt::Key_Tab, kKeyTab},
    {Qt::Key_Backtab, kKeyTab},
    {Qt::Key_Return, kKeyReturn},
    {Qt::Key_Enter, kKeyReturn},
    {Qt::Key_Shift, kKeyShift},
    {Qt::Key_Control, kKeyControl},
    {Qt::Key_Alt, kKeyAlt},
    {Qt::Key_Escape, kKeyEscape},
    {Qt::Key_Space, kKeySpace},
    {Qt::Key_PageUp, kKeyPageUp},
    {Qt::Key_PageDown, kKeyPageDown},
    {Qt::Key_End, kKeyEnd},
    {Qt::Key_Home, kKeyHome},
    {Qt::Key_Left, kKeyLeft},
    {Qt::Key_Up, kKeyUp},
    {Qt::Key_Right, kKeyRight},
    {Qt::Key_Down, kKeyDown},
    {Qt::Key_Insert, kKeyInsert},
    {Qt::Key_Delete, kKeyDelete},
    {Qt::Key_Asterisk, kKeyMultiply},
    {Qt::Key_Plus, kKeyPlus},
    {Qt::Key_Comma, kKeyComma},
    {Qt::Key_Minus, kKeyMinus},
    {Qt::Key_Period, kKeyPeriod},
    {Qt::Key_BracketLeft, kKeyOpenBracket},
    {Qt::Key_BracketRight, kKeyCloseBracket},
};

/// Down, up and double-click of each button, in that order.
std::uint32_t firstMessageOf(Qt::MouseButton button)
{
    switch (button) {
    case Qt::LeftButton:
        return kLeftDownMessage;
    case Qt::RightButton:
        return kRightDownMessage;
    case Qt::MiddleButton:
        return kMiddleDownMessage;
    default:
        return 0;
    }
}

/// Controls that a wheel changes: one that turns to scroll the pane around them must not do so by
/// accident.
bool keepsWheelForFocus(const QWidget* widget)
{
    return qobject_cast<const QAbstractSpinBox*>(widget) ||
           qobject_cast<const QComboBox*>(widget) || qobject_cast<const QAbstractSlider*>(widget);
}

LongParam packed(QPointF point)
{
    return packPoint(static_cast<int>(std::floor(point.x())),
                     static_cast<int>(std::floor(point.y())));
}

} // namespace

std::uint32_t heldKeys(Qt::KeyboardModifiers modifiers, Qt::MouseButtons buttons)
{
    const auto bit = [](bool isHeld, HeldKeys key) -> std::uint32_t { return isHeld ? key : 0U; };
    return bit(buttons.testFlag(Qt::LeftButton), kHeldLeft) |
           bit(buttons.testFlag(Qt::RightButton), kHeldRight) |
           bit(buttons.testFlag(Qt::MiddleButton), kHeldMiddle) |
           bit(modifiers.testFlag(Qt::ShiftModifier), kHeldShift) |
           bit(modifiers.testFlag(Qt::ControlModifier), kHeldControl) |
           bit(modifiers.testFlag(Qt::AltModifier), kHeldAlt);
}

int virtualKey(int key)
{
    if ((key >= Qt::Key_0 && key <= Qt::Key_9) || (key >= Qt::Key_A && key <= Qt::Key_Z))
        return key;
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return kKeyF1 + (key - Qt::Key_F1);
    for (const KeyRow& row : kKeys)
        if (row.toolkit == key)
            return row.code;
    return 0;
}

Binding::Binding(QWidget* widget, BaseWindow& window)
    : QObject(widget), widget(widget), window(&window)
{
    bindings()[widget] = this;
    widget->installEventFilter(this);
}

Binding::~Binding()
{
    bindings().erase(widget);
    if (window)
        window->forgetHandle();
}

Binding* Binding::find(const QWidget* widget)
{
    const auto found = bindings().find(widget);
    return found == bindings().end() ? nullptr : found->second;
}

void Binding::release(QWidget* widget)
{
    Binding* const binding = find(widget);
    if (!binding)
        return;
    binding->window = nullptr;
    widget->removeEventFilter(binding);
    bindings().erase(widget);
}

void Binding::forgetAll(QWidget* top)
{
    QList<QWidget*> widgets = top->findChildren<QWidget*>();
    widgets.push_back(top);
    for (QWidget* const widget : widgets) {
        BaseWindow* const window = windowOf(widget);
        if (!window)
            continue;
        widget->blockSignals(true);
        release(widget);
        window->forgetHandle();
    }
}

BaseWindow* Binding::windowOf(const QWidget* widget)
{
    const Binding* const binding = find(widget);
    return binding ? binding->window : nullptr;
}

QRect Binding::paintRect()
{
    return paintRectInForce;
}

bool Binding::send(std::uint32_t message, WordParam wParam, LongParam lParam)
{
    return window && window->windowProc(handleOf(widget), message, wParam, lParam) != 0;
}

bool Binding::sendMouse(const QMouseEvent& event)
{
    std::uint32_t message = kMouseMoveMessage;
    if (event.type() != QEvent::MouseMove) {
        message = firstMessageOf(event.button());
        if (message == 0)
            return false;
        if (event.type() == QEvent::MouseButtonRelease)
            message += 1;
        else if (event.type() == QEvent::MouseButtonDblClick)
            message += 2;
    }
    return send(message, heldKeys(event.modifiers(), event.buttons()), packed(event.position()));
}

bool Binding::sendWheel(QEvent* event)
{
    if (keepsWheelForFocus(widget) && !widget->hasFocus()) {
        event->ignore(); // it goes to what holds the control
        return true;
    }
    const auto& wheel = static_cast<const QWheelEvent&>(*event);
    const bool sideways = wheel.angleDelta().y() == 0;
    const int delta = sideways ? wheel.angleDelta().x() : wheel.angleDelta().y();
    std::uint32_t held = heldKeys(wheel.modifiers(), wheel.buttons());
    if (sideways)
        held |= kHeldShift;
    const auto word = static_cast<std::uint32_t>(delta & 0xFFFF) << 16 | held;
    return send(kMouseWheelMessage, word, packed(wheel.position()));
}

bool Binding::sendKey(const QKeyEvent& event)
{
    const std::uint32_t flags = heldKeys(event.modifiers(), Qt::NoButton);
    const int code = virtualKey(event.key());
    if (event.type() == QEvent::KeyRelease)
        return code != 0 && send(kKeyUpMessage, static_cast<WordParam>(code), flags);
    const QPointer<Binding> life(this);
    if (code != 0 && send(kKeyDownMessage, static_cast<WordParam>(code), flags))
        return true;
    bool taken = false;
    for (const QChar unit : event.text())
        taken = (life && send(kCharMessage, unit.unicode(), flags)) || taken;
    return taken;
}

bool Binding::sendDrop(QEvent* event)
{
    auto& drop = static_cast<QDropEvent&>(*event);
    if (!drop.mimeData()->hasUrls())
        return false;
    drop.acceptProposedAction();
    if (event->type() != QEvent::Drop)
        return true;
    std::vector<std::filesystem::path> names;
    for (const QUrl& url : drop.mimeData()->urls())
        if (url.isLocalFile())
            names.emplace_back(fromQt(url.toLocalFile()));
    if (window && !names.empty())
        window->onDropFiles(names);
    return true;
}

bool Binding::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != widget || !window)
        return false;
    const QPointer<QWidget> life(widget);
    const bool finished = translate(event);
    return !life || finished; // a widget that a message ended gets no more events
}

bool Binding::translate(QEvent* event)
{
    switch (event->type()) {
    case QEvent::Paint:
        paintRectInForce = static_cast<const QPaintEvent*>(event)->rect();
        return send(kPaintMessage);
    case QEvent::MouseMove:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
        return sendMouse(static_cast<const QMouseEvent&>(*event));
    case QEvent::Wheel:
        return sendWheel(event);
    case QEvent::Leave:
        return send(kMouseLeaveMessage);
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return sendKey(static_cast<const QKeyEvent&>(*event));
    case QEvent::FocusIn:
        send(kSetFocusMessage);
        return false;
    case QEvent::FocusOut:
        send(kKillFocusMessage);
        return false;
    case QEvent::Resize:
        send(kSizeMessage, 0, packPoint(widget->width(), widget->height()));
        return false;
    case QEvent::Show:
        send(kShowMessage, 1);
        return false;
    case QEvent::Close:
        if (!send(kCloseMessage))
            return false;
        event->ignore();
        return true;
    case QEvent::ContextMenu:
        return send(kContextMenuMessage, 0,
                    packed(static_cast<const QContextMenuEvent&>(*event).pos()));
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        return sendDrop(event);
    default:
        return false;
    }
}

} // namespace varn::native
