#include "Component/FrameWindow.h"

#include "Component/native/Actions.h"
#include "Component/native/NativeWindow.h"
#include "Component/native/Qt.h"

#include <QApplication>
#include <QDockWidget>
#include <QMainWindow>
#include <QMenuBar>
#include <QScreen>
#include <QShortcut>
#include <QStatusBar>
#include <QToolBar>
#include <algorithm>

namespace varn {

using native::fromQt;
using native::handleOf;
using native::toQt;
using native::widgetAs;
using native::widgetOf;

namespace {

QMainWindow& mainWindow(NativeHandle handle)
{
    return *widgetAs<QMainWindow>(handle);
}

Qt::DockWidgetArea areaOf(FrameWindow::Side side)
{
    switch (side) {
    case FrameWindow::Side::Left:
        return Qt::LeftDockWidgetArea;
    case FrameWindow::Side::Right:
        return Qt::RightDockWidgetArea;
    default:
        return Qt::BottomDockWidgetArea;
    }
}

void make(BaseWindow& window, BaseWindow& parent)
{
    if (!window.getHandle())
        window.create(&parent);
}

} // namespace

NativeHandle FrameWindow::makeHandle(NativeHandle parent)
{
    auto* const window = new QMainWindow(widgetOf(parent));
    window->setDockOptions(QMainWindow::AnimatedDocks | QMainWindow::AllowTabbedDocks |
                           QMainWindow::AllowNestedDocks);
    window->setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    window->setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    window->setTabPosition(Qt::AllDockWidgetAreas, QTabWidget::North);
    native::markContainer(window);
    return handleOf(window);
}

void FrameWindow::setMenu(const Menu& menu)
{
    auto* const bar = new QMenuBar(widgetOf(handle));
    for (const MenuLine& line : menu.getLines()) {
        QMenu* const top = bar->addMenu(toQt(WStringView(line.text)));
        native::fillMenu(*top, line.children, *this);
    }
    mainWindow(handle).setMenuBar(bar); // deletes the one before
}

std::vector<void*> FrameWindow::itemsOf(int command) const
{
    std::vector<void*> items;
    if (!handle)
        return items;
    for (QAction* const action : mainWindow(handle).menuBar()->findChildren<QAction*>())
        if (action->property(native::kCommandProperty).toInt() == command)
            items.push_back(action);
    return items;
}

void FrameWindow::setItemEnabled(int command, bool enabled)
{
    for (void* const item : itemsOf(command))
        static_cast<QAction*>(item)->setEnabled(enabled);
}

void FrameWindow::setItemChecked(int command, bool checked)
{
    for (void* const item : itemsOf(command)) {
        static_cast<QAction*>(item)->setCheckable(true);
        static_cast<QAction*>(item)->setChecked(checked);
    }
}

void FrameWindow::addShortcut(WStringView keys, std::function<void()> action)
{
    auto* const shortcut = new QShortcut(native::keysOf(keys), widgetOf(handle));
    QObject::connect(shortcut, &QShortcut::activated, shortcut,
                     [action = std::move(action)] { action(); });
}

void FrameWindow::setCenter(BaseWindow& window)
{
    make(window, *this);
    mainWindow(handle).setCentralWidget(widgetOf(window.getHandle()));
}

void FrameWindow::addToolBar(ToolBar& bar)
{
    make(bar, *this);
    widgetOf(bar.getHandle())->setObjectName(toQt(WStringView(bar.getWindowClass())));
    mainWindow(handle).addToolBar(widgetAs<QToolBar>(bar.getHandle()));
}

void FrameWindow::addToolWindow(ToolWindow& pane, Side side)
{
    make(pane, *this);
    mainWindow(handle).addDockWidget(areaOf(side), widgetAs<QDockWidget>(pane.getHandle()));
}

void FrameWindow::tabToolWindow(ToolWindow& pane, ToolWindow& below)
{
    make(pane, *this);
    mainWindow(handle).tabifyDockWidget(widgetAs<QDockWidget>(below.getHandle()),
                                        widgetAs<QDockWidget>(pane.getHandle()));
}

void FrameWindow::setStatusbar(Statusbar& bar)
{
    make(bar, *this);
    mainWindow(handle).setStatusBar(widgetAs<QStatusBar>(bar.getHandle()));
}

void FrameWindow::setDockSizes(const std::vector<std::pair<ToolWindow*, int>>& widths)
{
    QList<QDockWidget*> docks;
    QList<int> sizes;
    for (const auto& [pane, width] : widths) {
        docks.push_back(widgetAs<QDockWidget>(pane->getHandle()));
        sizes.push_back(width);
    }
    mainWindow(handle).resizeDocks(docks, sizes, Qt::Horizontal);
}

std::string FrameWindow::saveLayout() const
{
    return handle ? mainWindow(handle).saveState().toStdString() : std::string();
}

bool FrameWindow::restoreLayout(const std::string& layout)
{
    return handle && !layout.empty() &&
           mainWindow(handle).restoreState(
               QByteArray(layout.data(), static_cast<qsizetype>(layout.size())));
}

bool FrameWindow::isMaximised() const
{
    return handle && widgetOf(handle)->isMaximized();
}

bool FrameWindow::isMinimised() const
{
    return handle && widgetOf(handle)->isMinimized();
}

void FrameWindow::showMaximised()
{
    if (handle)
        widgetOf(handle)->showMaximized();
}

void FrameWindow::bringForward()
{
    if (!handle)
        return;
    if (isMinimised())
        widgetOf(handle)->showNormal();
    widgetOf(handle)->show();
    widgetOf(handle)->raise();
    widgetOf(handle)->activateWindow();
    QApplication::alert(widgetOf(handle)); // where the desktop lets no window come forward
}

void FrameWindow::setAlwaysOnTop(bool onTop)
{
    if (!handle)
        return;
    widgetOf(handle)->setWindowFlag(Qt::WindowStaysOnTopHint, onTop);
    widgetOf(handle)->show(); // another flag hides the window
}

bool FrameWindow::isAlwaysOnTop() const
{
    return handle && (widgetOf(handle)->windowFlags() & Qt::WindowStaysOnTopHint) != 0;
}

Rect FrameWindow::getNormalBounds() const
{
    if (!handle)
        return {};
    const QWidget* const window = widgetOf(handle);
    return fromQt(isMaximised() || isMinimised() ? window->normalGeometry() : window->geometry());
}

Rect FrameWindow::fitToScreen(const Rect& wanted)
{
    QRect rect = toQt(wanted);
    const QScreen* screen = QGuiApplication::screenAt(rect.center());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    if (!screen)
        return wanted;
    const QRect room = screen->availableGeometry();
    if (rect.isEmpty()) {
        constexpr int kWidth = 640, kHeight = 480;
        rect = QRect(0, 0, kWidth, kHeight);
        rect.moveCenter(room.center());
    }
    rect.setSize(rect.size().boundedTo(room.size()));
    rect.moveLeft(std::clamp(rect.left(), room.left(), room.right() - rect.width() + 1));
    rect.moveTop(std::clamp(rect.top(), room.top(), room.bottom() - rect.height() + 1));
    return fromQt(rect);
}

// ToolWindow

ToolWindow::ToolWindow(WStringView name, WStringView english) : name(name)
{
    setLabel(english);
}

WString ToolWindow::getText() const
{
    return native::getTitle(handle);
}

void ToolWindow::setText(WStringView text)
{
    native::setTitle(handle, text);
}

void ToolWindow::onCreate()
{
    content.create(this);
    widgetAs<QDockWidget>(handle)->setWidget(widgetOf(content.getHandle()));
}

void ToolWindow::raise()
{
    if (!handle)
        return;
    widgetOf(handle)->show();
    widgetOf(handle)->raise();
}

NativeHandle ToolWindow::makeHandle(NativeHandle parent)
{
    auto* const dock = new QDockWidget(widgetOf(parent));
    dock->setObjectName(toQt(WStringView(name)));
    native::markContainer(dock);
    return handleOf(dock);
}

} // namespace varn
