#include "Component/native/Actions.h"
#include "Component/native/Icons.h"
#include "Component/native/NativeWindow.h"
#include "Component/native/Qt.h"

#include <QAction>
#include <QMenu>

namespace varn {

MenuLine& Menu::add(WStringView text, int command, WStringView icon)
{
    MenuLine& line = lines.emplace_back();
    line.text = text;
    line.command = command;
    line.icon = icon;
    return line;
}

namespace native {

QKeySequence keysOf(WStringView shortcut)
{
    return QKeySequence(toQt(shortcut), QKeySequence::PortableText);
}

static void addLine(QMenu& menu, const MenuLine& line, BaseWindow& target)
{
    if (line.text == u"-") {
        menu.addSeparator();
        return;
    }
    const QString text = toQt(WStringView(line.text));
    if (!line.children.empty()) {
        fillMenu(*menu.addMenu(text), line.children, target);
        return;
    }
    QAction* const action = menu.addAction(text);
    if (!line.icon.empty())
        action->setIcon(makeIcon(line.icon));
    if (!line.shortcut.empty())
        action->setShortcut(keysOf(line.shortcut));
    action->setCheckable(line.checkable || line.checked);
    action->setChecked(line.checked);
    action->setEnabled(line.enabled);
    action->setProperty(kCommandProperty, line.command);
    QObject::connect(action, &QAction::triggered, action,
                     [&target, command = line.command, argument = line.argument] {
                         target.onCommand(command, argument);
                     });
}

void fillMenu(QMenu& menu, const std::vector<MenuLine>& lines, BaseWindow& target)
{
    menu.setToolTipsVisible(true);
    for (const MenuLine& line : lines)
        addLine(menu, line, target);
}

} // namespace native

namespace {

/// Keeps the last command that it was sent.
class CommandCatcher final : public BaseWindow
{
  public:
    bool onCommand(int commandId, std::intptr_t) override
    {
        caught = commandId;
        return true;
    }
    std::optional<int> caught;
};

} // namespace

std::optional<int> PopupMenu::show(BaseWindow& owner, int x, int y)
{
    CommandCatcher catcher;
    QWidget* const widget = native::widgetOf(owner.getHandle());
    QMenu menu(widget);
    native::fillMenu(menu, getLines(), catcher);
    menu.exec(widget->mapToGlobal(QPoint(x, y)));
    return catcher.caught;
}

} // namespace varn
