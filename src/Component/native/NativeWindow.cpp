#include "Component/native/NativeWindow.h"

#include "Component/native/Binding.h"
#include "Component/native/Qt.h"

#include <QAccessible>
#include <QApplication>
#include <QFont>
#include <QFontDatabase>
#include <QImage>
#include <QPainter>
#include <QTabBar>
#include <algorithm>
#include <cmath>

namespace varn::native {

namespace {

constexpr const char* kContainer = "varnContainer";

/// A widget without a look of its own; its binding paints it.
class Pane final : public QWidget
{
  public:
    explicit Pane(QWidget* parent) : QWidget(parent)
    {
        setAttribute(Qt::WA_OpaquePaintEvent);
        setFocusPolicy(Qt::StrongFocus);
        setMouseTracking(true);
    }
};

bool isTabStrip(NativeHandle handle)
{
    return qobject_cast<QTabBar*>(widgetOf(handle)) != nullptr;
}

Qt::CursorShape shapeOf(Cursor cursor)
{
    switch (cursor) {
    case Cursor::Cross:
        return Qt::CrossCursor;
    case Cursor::Hand:
        return Qt::PointingHandCursor;
    case Cursor::OpenHand:
        return Qt::OpenHandCursor;
    case Cursor::SplitColumns:
        return Qt::SplitHCursor;
    case Cursor::ClosedHand:
        return Qt::ClosedHandCursor;
    default:
        return Qt::ArrowCursor;
    }
}

} // namespace

NativeHandle createPane(NativeHandle parent)
{
    return handleOf(new Pane(widgetOf(parent))); // owned by its parent or by `destroy`
}

void bind(NativeHandle handle, BaseWindow& window)
{
    new Binding(widgetOf(handle), window); // a child of its widget
}

void destroy(NativeHandle handle)
{
    if (!handle)
        return;
    Binding::release(widgetOf(handle));
    delete widgetOf(handle);
}

void setGeometry(NativeHandle handle, const Rect& bounds)
{
    if (handle)
        widgetOf(handle)->setGeometry(toQt(bounds));
}

Rect getGeometry(NativeHandle handle)
{
    return handle ? fromQt(widgetOf(handle)->geometry()) : Rect();
}

void setVisible(NativeHandle handle, bool visible)
{
    if (handle)
        widgetOf(handle)->setVisible(visible);
}

bool isVisible(NativeHandle handle)
{
    return handle && !widgetOf(handle)->isHidden();
}

void setEnabled(NativeHandle handle, bool enabled)
{
    if (handle)
        widgetOf(handle)->setEnabled(enabled);
}

bool isEnabled(NativeHandle handle)
{
    return handle && widgetOf(handle)->isEnabled();
}

void setMinimumSize(NativeHandle handle, int width, int height)
{
    if (handle)
        widgetOf(handle)->setMinimumSize(width, height);
}

void setMaximumHeight(NativeHandle handle, int height)
{
    if (handle)
        widgetOf(handle)->setMaximumHeight(height);
}

void setFixedSize(NativeHandle handle, int width, int height)
{
    if (handle && width > 0)
        widgetOf(handle)->setFixedWidth(width);
    if (handle && height > 0)
        widgetOf(handle)->setFixedHeight(height);
}

void setTitle(NativeHandle handle, WStringView text)
{
    if (handle)
        widgetOf(handle)->setWindowTitle(toQt(text));
}

WString getTitle(NativeHandle handle)
{
    return handle ? fromQt(widgetOf(handle)->windowTitle()) : WString();
}

void setTooltip(NativeHandle handle, WStringView text)
{
    if (handle)
        widgetOf(handle)->setToolTip(toQt(text));
}

void setAccessibleText(NativeHandle handle, WStringView name, WStringView description)
{
    if (!handle)
        return;
    widgetOf(handle)->setAccessibleName(toQt(name));
    if (!description.empty())
        widgetOf(handle)->setAccessibleDescription(toQt(description));
}

void announce(NativeHandle handle, WStringView text)
{
    if (!handle)
        return;
    widgetOf(handle)->setAccessibleDescription(toQt(text));
    QAccessibleEvent event(widgetOf(handle), QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&event);
}

void setFont(NativeHandle handle, const FontSpec& font)
{
    if (!handle)
        return;
    QFont next(toQt(WStringView(font.family)));
    next.setPixelSize(std::max(1, font.height));
    next.setBold(font.bold);
    next.setItalic(font.italic);
    widgetOf(handle)->setFont(next);
}

bool hasFontFamily(WStringView family)
{
    return qApp && QFontDatabase::families().contains(toQt(family));
}

void setAcceptsDrops(NativeHandle handle, bool accepts)
{
    if (handle)
        widgetOf(handle)->setAcceptDrops(accepts);
}

void setFocus(NativeHandle handle)
{
    if (handle)
        widgetOf(handle)->setFocus(Qt::TabFocusReason);
}

bool hasFocus(NativeHandle handle)
{
    return handle && widgetOf(handle)->hasFocus();
}

void setTabStop(NativeHandle handle, bool isTabStop)
{
    if (handle)
        widgetOf(handle)->setFocusPolicy(isTabStop ? Qt::StrongFocus : Qt::NoFocus);
}

bool isTabStop(NativeHandle handle)
{
    return handle && !isContainer(handle) &&
           (widgetOf(handle)->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
}

void markContainer(QWidget* widget)
{
    widget->setProperty(kContainer, true);
    widget->setFocusPolicy(Qt::NoFocus);
}

bool isContainer(NativeHandle handle)
{
    // What the toolkit puts between a pane and its controls holds only them.
    return handle && !isTabStrip(handle) &&
           (!windowOf(handle) || widgetOf(handle)->property(kContainer).toBool());
}

bool isTopLevel(NativeHandle handle)
{
    return handle && widgetOf(handle)->isWindow();
}

NativeHandle getParent(NativeHandle handle)
{
    return handle ? handleOf(widgetOf(handle)->parentWidget()) : nullptr;
}

std::vector<NativeHandle> getChildren(NativeHandle handle)
{
    std::vector<NativeHandle> children;
    if (!handle)
        return children;
    for (QObject* const child : widgetOf(handle)->children())
        if (child->isWidgetType() && !static_cast<QWidget*>(child)->isWindow())
            children.push_back(handleOf(static_cast<QWidget*>(child)));
    // Read before the pages below it.
    std::stable_partition(children.begin(), children.end(), isTabStrip);
    return children;
}

BaseWindow* windowOf(NativeHandle handle)
{
    return handle ? Binding::windowOf(widgetOf(handle)) : nullptr;
}

void invalidate(NativeHandle handle, const Rect& rect)
{
    if (!handle)
        return;
    if (rect.width <= 0 || rect.height <= 0)
        widgetOf(handle)->update();
    else
        widgetOf(handle)->update(toQt(rect));
}

void update(NativeHandle handle)
{
    if (handle) // what `invalidate` asked for waits as a request of the window that holds it all
        QCoreApplication::sendPostedEvents(widgetOf(handle)->window(), QEvent::UpdateRequest);
}

Rect getPaintRect(NativeHandle handle)
{
    const double scale = getScale(handle);
    const QRect rect = Binding::paintRect();
    const int left = static_cast<int>(std::floor(rect.x() * scale));
    const int top = static_cast<int>(std::floor(rect.y() * scale));
    const int right = static_cast<int>(std::ceil((rect.x() + rect.width()) * scale));
    const int bottom = static_cast<int>(std::ceil((rect.y() + rect.height()) * scale));
    return {left, top, right - left, bottom - top};
}

void present(NativeHandle handle, const Bitmap& bitmap, const Rect& part, double scale)
{
    const QImage image(bitmap.getBits(), bitmap.getWidth(), bitmap.getHeight(), bitmap.getStride(),
                       QImage::Format_RGB32);
    QPainter painter(widgetOf(handle));
    painter.drawImage(
        QRectF(part.x / scale, part.y / scale, part.width / scale, part.height / scale), image,
        QRectF(part.x, part.y, part.width, part.height));
}

double getScale(NativeHandle handle)
{
    return handle ? widgetOf(handle)->devicePixelRatioF() : 1.0;
}

void setCursor(NativeHandle handle, Cursor cursor)
{
    if (handle)
        widgetOf(handle)->setCursor(shapeOf(cursor));
}

std::uint32_t getHeldKeys()
{
    return heldKeys(QGuiApplication::queryKeyboardModifiers(), QGuiApplication::mouseButtons());
}

} // namespace varn::native
