#pragma once

#include "Component/BaseWindow.h"

#include <QObject>
#include <QRect>
#include <QWidget>

class QKeyEvent;
class QMouseEvent;

namespace varn::native {

/// `HeldKeys` of the toolkit's modifiers and buttons.
std::uint32_t heldKeys(Qt::KeyboardModifiers modifiers, Qt::MouseButtons buttons);
/// Virtual-key code of the toolkit's key; 0 for one without.
int virtualKey(int key);

/// Ties a widget to its window: turns the widget's events into messages, and tells the window when
/// the widget dies. A child of the widget.
class Binding final : public QObject
{
  public:
    Binding(QWidget* widget, BaseWindow& window);
    ~Binding() override;

    /// The window is going: its widget sends no messages any more.
    static void release(QWidget* widget);
    /// The widgets below and at `top` are going: their windows forget them before the first one
    /// dies, so that none hears of the others' end.
    static void forgetAll(QWidget* top);
    static BaseWindow* windowOf(const QWidget* widget);
    /// During a paint message.
    static QRect paintRect();

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool translate(QEvent* event);
    static Binding* find(const QWidget* widget);
    bool send(std::uint32_t message, WordParam wParam = 0, LongParam lParam = 0);
    bool sendMouse(const QMouseEvent& event);
    bool sendWheel(QEvent* event);
    bool sendKey(const QKeyEvent& event);
    bool sendDrop(QEvent* event);

    QWidget* widget;
    BaseWindow* window;
};

} // namespace varn::native
