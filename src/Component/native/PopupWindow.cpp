#include "Component/PopupWindow.h"

#include "Component/native/NativeWindow.h"
#include "Component/native/Qt.h"

#include <QFrame>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

namespace varn {

using native::handleOf;
using native::widgetAs;
using native::widgetOf;

NativeHandle PopupWindow::makeHandle(NativeHandle parent)
{
    auto* const frame = new QFrame(widgetOf(parent), Qt::Popup);
    frame->setFrameShape(QFrame::StyledPanel);
    native::markContainer(frame);
    return handleOf(frame);
}

void PopupWindow::onCreate()
{
    content.create(this);
    auto* const column = new QVBoxLayout(widgetOf(handle));
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(widgetOf(content.getHandle()));
}

void PopupWindow::dropDown(BaseWindow& anchor)
{
    if (!handle || !anchor.getHandle())
        return;
    QWidget& popup = *widgetOf(handle);
    const QWidget& above = *widgetOf(anchor.getHandle());
    popup.adjustSize();
    popup.resize(std::max(popup.width(), above.width()), popup.height());
    QPoint place = above.mapToGlobal(QPoint(0, above.height()));
    const QRect screen = above.screen()->availableGeometry();
    place.setX(std::clamp(place.x(), screen.left(),
                          std::max(screen.left(), screen.right() - popup.width())));
    if (place.y() + popup.height() > screen.bottom())
        place.setY(above.mapToGlobal(QPoint(0, 0)).y() - popup.height());
    popup.move(place);
    popup.show();
    popup.setFocus(Qt::PopupFocusReason);
}

} // namespace varn
