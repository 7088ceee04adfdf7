#include "Component/native/Robot.h"

#include "Component/native/Binding.h"
#include "Component/native/Qt.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDropEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QTimer>
#include <QTreeWidget>
#include <QUrl>
#include <QWheelEvent>
#include <cstring>

namespace varn::robot {

using native::fromQt;
using native::handleOf;
using native::toQt;
using native::widgetOf;

namespace {

Qt::MouseButton buttonOf(Button button)
{
    switch (button) {
    case Button::Right:
        return Qt::RightButton;
    case Button::Middle:
        return Qt::MiddleButton;
    default:
        return Qt::LeftButton;
    }
}

Qt::KeyboardModifiers modifiersOf(std::uint32_t held)
{
    Qt::KeyboardModifiers modifiers;
    modifiers.setFlag(Qt::ShiftModifier, (held & kHeldShift) != 0);
    modifiers.setFlag(Qt::ControlModifier, (held & kHeldControl) != 0);
    modifiers.setFlag(Qt::AltModifier, (held & kHeldAlt) != 0);
    return modifiers;
}

Qt::MouseButtons buttonsOf(std::uint32_t held)
{
    Qt::MouseButtons buttons;
    buttons.setFlag(Qt::LeftButton, (held & kHeldLeft) != 0);
    buttons.setFlag(Qt::RightButton, (held & kHeldRight) != 0);
    buttons.setFlag(Qt::MiddleButton, (held & kHeldMiddle) != 0);
    return buttons;
}

void sendMouse(NativeHandle window, QEvent::Type type, int x, int y, Qt::MouseButton button,
               Qt::MouseButtons buttons, std::uint32_t held)
{
    QWidget* const widget = widgetOf(window);
    const QPointF point(x, y);
    QMouseEvent event(type, point, QPointF(widget->mapToGlobal(point.toPoint())), button, buttons,
                      modifiersOf(held));
    QApplication::sendEvent(widget, &event);
}

int toolkitKey(int key)
{
    for (int candidate = Qt::Key_Escape; candidate <= Qt::Key_F24; ++candidate)
        if (native::virtualKey(candidate) == key)
            return candidate;
    for (int candidate = Qt::Key_Space; candidate <= Qt::Key_AsciiTilde; ++candidate)
        if (native::virtualKey(candidate) == key)
            return candidate;
    return 0;
}

void sendKey(QWidget* widget, int key, Qt::KeyboardModifiers modifiers, const QString& text)
{
    QKeyEvent down(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(widget, &down);
    QKeyEvent up(QEvent::KeyRelease, key, modifiers, text);
    QApplication::sendEvent(widget, &up);
}

QString plain(QString text)
{
    return text.remove(QLatin1Char('&'));
}

QString textOf(const QWidget* widget)
{
    if (const auto* const button = qobject_cast<const QAbstractButton*>(widget))
        return button->text();
    if (const auto* const label = qobject_cast<const QLabel*>(widget))
        return label->text();
    return {};
}

} // namespace

void press(NativeHandle window, int x, int y, Button button, std::uint32_t held)
{
    sendMouse(window, QEvent::MouseButtonPress, x, y, buttonOf(button), buttonOf(button), held);
}

void move(NativeHandle window, int x, int y, std::uint32_t buttons)
{
    sendMouse(window, QEvent::MouseMove, x, y, Qt::NoButton, buttonsOf(buttons), buttons);
}

void release(NativeHandle window, int x, int y, Button button, std::uint32_t held)
{
    sendMouse(window, QEvent::MouseButtonRelease, x, y, buttonOf(button), {}, held);
}

void click(NativeHandle window, int x, int y, Button button, std::uint32_t held)
{
    press(window, x, y, button, held);
    release(window, x, y, button, held);
}

void doubleClick(NativeHandle window, int x, int y)
{
    click(window, x, y);
    sendMouse(window, QEvent::MouseButtonDblClick, x, y, Qt::LeftButton, Qt::LeftButton, 0);
    release(window, x, y);
}

void wheel(NativeHandle window, int x, int y, int notches, std::uint32_t held)
{
    QWidget* const widget = widgetOf(window);
    const QPointF point(x, y);
    QWheelEvent event(point, QPointF(widget->mapToGlobal(point.toPoint())), QPoint(),
                      QPoint(0, notches * kWheelStep), Qt::NoButton, modifiersOf(held),
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
}

void key(NativeHandle window, int key, std::uint32_t held)
{
    sendKey(widgetOf(window), toolkitKey(key), modifiersOf(held), {});
}

void type(NativeHandle window, WStringView text)
{
    for (const char16_t unit : text)
        sendKey(widgetOf(window), 0, Qt::NoModifier, QString(QChar(unit)));
}

void dragItem(NativeHandle tree, WStringView line, WStringView onto)
{
    auto* const view = static_cast<QTreeWidget*>(widgetOf(tree));
    QWidget* const port = view->viewport();
    const auto middleOf = [&](WStringView text) {
        const auto found = view->findItems(toQt(text), Qt::MatchExactly | Qt::MatchRecursive);
        return found.isEmpty() ? QPoint() : view->visualItemRect(found.front()).center();
    };
    const QPoint from = middleOf(line), to = middleOf(onto);
    click(handleOf(port), from.x(), from.y());
    const std::unique_ptr<QMimeData> data(
        view->model()->mimeData(view->selectionModel()->selectedIndexes()));
    if (!data)
        return;
    QDragEnterEvent enter(to, Qt::MoveAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(port, &enter);
    QDropEvent drop(to, Qt::MoveAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(port, &drop);
}

void dropFile(NativeHandle window, WStringView path)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(toQt(path))});
    const QPoint point(1, 1);
    QDragEnterEvent enter(point, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widgetOf(window), &enter);
    QDropEvent drop(point, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widgetOf(window), &drop);
}

NativeHandle focused()
{
    return handleOf(QApplication::focusWidget());
}

NativeHandle frontDialog()
{
    return handleOf(QApplication::activeModalWidget());
}

NativeHandle findByText(NativeHandle window, WStringView text)
{
    const QString wanted = toQt(text);
    for (QWidget* const child : widgetOf(window)->findChildren<QWidget*>())
        if (child->isVisibleTo(widgetOf(window)) && plain(textOf(child)) == wanted)
            return handleOf(child);
    return nullptr;
}

NativeHandle findField(NativeHandle window, WStringView text)
{
    const QString wanted = toQt(text);
    for (const QLabel* const label : widgetOf(window)->findChildren<QLabel*>()) {
        QString words = plain(label->text());
        while (words.endsWith(QLatin1Char(':')))
            words.chop(1);
        if (label->buddy() && words == wanted)
            return handleOf(label->buddy());
    }
    return findByText(window, text);
}

void later(int milliseconds, std::function<void()> action)
{
    QTimer::singleShot(milliseconds, qApp, std::move(action));
}

void grab(NativeHandle window, Bitmap& into)
{
    const QImage image = widgetOf(window)->grab().toImage().convertToFormat(QImage::Format_RGB32);
    if (!into.create(image.width(), image.height()))
        return;
    for (int y = 0; y < image.height(); ++y)
        std::memcpy(into.getBits() + static_cast<std::ptrdiff_t>(y) * into.getStride(),
                    image.constScanLine(y), static_cast<std::size_t>(image.width()) * 4);
}

std::vector<WString> findClipped(NativeHandle window)
{
    std::vector<WString> found;
    for (const QWidget* const child : widgetOf(window)->findChildren<QWidget*>()) {
        const QString text = textOf(child);
        if (text.isEmpty() || !child->isVisibleTo(widgetOf(window)))
            continue;
        const auto* const label = qobject_cast<const QLabel*>(child);
        if (label && label->wordWrap())
            continue;
        if (child->width() < child->minimumSizeHint().width() ||
            child->height() < child->minimumSizeHint().height())
            found.push_back(fromQt(QLatin1String(child->metaObject()->className()) +
                                   QStringLiteral(": ") + text));
    }
    return found;
}

} // namespace varn::robot
