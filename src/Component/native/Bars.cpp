#include "Component/CoolBar.h"
#include "Component/Statusbar.h"
#include "Component/ToolBar.h"
#include "Component/Translation.h"
#include "Component/native/Actions.h"
#include "Component/native/Icons.h"
#include "Component/native/NativeWindow.h"
#include "Component/native/Qt.h"

#include <QAction>
#include <QActionGroup>
#include <QBoxLayout>
#include <QStatusBar>
#include <QToolBar>

namespace varn {

using native::handleOf;
using native::toQt;
using native::widgetAs;
using native::widgetOf;

// ToolBar

NativeHandle ToolBar::makeHandle(NativeHandle parent)
{
    auto* const bar = new QToolBar(widgetOf(parent));
    constexpr int kIconSide = 24;
    bar->setIconSize({kIconSide, kIconSide});
    bar->setToolButtonStyle(Qt::ToolButtonIconOnly);
    native::markContainer(bar);
    return handleOf(bar);
}

void ToolBar::addAction(int command, WStringView icon, WStringView english, WStringView shortcut,
                        bool checkable, int group)
{
    auto* const bar = widgetAs<QToolBar>(handle);
    QAction* const action = bar->addAction(native::makeIcon(icon), QString());
    action->setCheckable(checkable);
    if (group != 0) {
        void*& place = groups[group];
        if (!place)
            place = new QActionGroup(bar);
        static_cast<QActionGroup*>(place)->addAction(action);
    }
    QObject::connect(action, &QAction::triggered, action, [this, command] {
        if (BaseWindow* const parent = getParent())
            parent->onCommand(command, 0);
    });
    buttons[command] = {action, WString(english), WString(shortcut)};
    applyTexts();
}

void ToolBar::addButton(int command, WStringView icon, WStringView english, int group,
                        WStringView shortcut)
{
    addAction(command, icon, english, shortcut, group != 0, group);
}

void ToolBar::addToggle(int command, WStringView icon, WStringView english)
{
    addAction(command, icon, english, {}, true, 0);
}

void ToolBar::addSeparator()
{
    widgetAs<QToolBar>(handle)->addSeparator();
}

void ToolBar::addControl(BaseWindow& control)
{
    if (!control.getHandle())
        control.create(this);
    widgetAs<QToolBar>(handle)->addWidget(widgetOf(control.getHandle()));
}

void ToolBar::setButtonEnabled(int command, bool enabled)
{
    if (const auto found = buttons.find(command); found != buttons.end())
        static_cast<QAction*>(found->second.action)->setEnabled(enabled);
}

void ToolBar::setButtonChecked(int command, bool checked)
{
    if (const auto found = buttons.find(command); found != buttons.end())
        static_cast<QAction*>(found->second.action)->setChecked(checked);
}

bool ToolBar::isButtonChecked(int command) const
{
    const auto found = buttons.find(command);
    return found != buttons.end() && static_cast<QAction*>(found->second.action)->isChecked();
}

void ToolBar::applyTexts()
{
    BaseWindow::applyTexts();
    for (const auto& [command, row] : buttons) {
        auto* const action = static_cast<QAction*>(row.action);
        const QString text = toQt(WStringView(translate(row.english)));
        action->setText(text);
        action->setToolTip(
            row.shortcut.empty()
                ? text
                : text + QStringLiteral(" (") +
                      native::keysOf(row.shortcut).toString(QKeySequence::NativeText) +
                      QLatin1Char(')'));
    }
}

// CoolBar

NativeHandle CoolBar::makeHandle(NativeHandle parent)
{
    auto* const lines = new QWidget(widgetOf(parent));
    auto* const column = new QVBoxLayout(lines);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    native::markContainer(lines);
    bandCount = 0;
    return handleOf(lines);
}

void CoolBar::addBand(BaseWindow& control, bool newLine)
{
    if (!handle)
        return;
    if (!control.getHandle())
        control.create(this);
    auto* const column = static_cast<QVBoxLayout*>(widgetOf(handle)->layout());
    if (newLine || column->count() == 0) {
        auto* const line = new QHBoxLayout;
        line->setSpacing(0);
        line->addStretch();
        column->addLayout(line);
    }
    auto* const line = static_cast<QHBoxLayout*>(column->itemAt(column->count() - 1)->layout());
    line->insertWidget(line->count() - 1, widgetOf(control.getHandle()));
    bandCount += 1;
}

// Statusbar

NativeHandle Statusbar::makeHandle(NativeHandle parent)
{
    auto* const bar = new QStatusBar(widgetOf(parent));
    native::markContainer(bar);
    return handleOf(bar);
}

Label& Statusbar::addPanel(int stretch)
{
    Label& panel = *panels.emplace_back(std::make_unique<Label>());
    panel.create(this);
    // A permanent one: other messages vanish whenever an item of the menu is hovered.
    widgetAs<QStatusBar>(handle)->addPermanentWidget(widgetOf(panel.getHandle()), stretch);
    return panel;
}

void Statusbar::addControl(BaseWindow& control)
{
    if (!control.getHandle())
        control.create(this);
    widgetAs<QStatusBar>(handle)->addPermanentWidget(widgetOf(control.getHandle()));
}

} // namespace varn
