#include "MapEditor3D/frame/FrameMenu.h"

#include "Component/Translation.h"
#include "Game/Map/Direction.h"
#include "MapEditor3D/Commands.h"
#include "MapEditor3D/Menu.h"

#include <algorithm>

namespace varn {

namespace {

/// "Save All (S)" with a tab and keys behind it: the S becomes the mnemonic, the keys go. A "&" in
/// the title marks one already.
WString shownText(const MenuEntry& entry)
{
    WString text = entry.text.substr(0, entry.text.find(u'\t'));
    const std::size_t bracket = text.rfind(u" (");
    const std::size_t hotkey = bracket + 2;
    const bool isMarked = text.find(u'&') != WString::npos;
    if (!isMarked && bracket != WString::npos && text.size() == hotkey + 2 && text.back() == u')')
        text.insert(hotkey, 1, u'&');
    return text;
}

/// The document has one item for it; which way comes with the command.
void addDirections(MenuLine& line)
{
    for (const Direction side : kSides) {
        MenuLine& way = line.children.emplace_back();
        way.text = translate(side.toText());
        way.command = kShiftCommand;
        way.argument = side.getValue();
    }
}

MenuLine makeLine(const MenuEntry& entry)
{
    MenuLine line;
    line.text = shownText(entry);
    line.shortcut = entry.shortcut;
    line.command = entry.command;
    line.argument = entry.argument;
    line.checked = entry.checked;
    for (const MenuEntry& child : entry.children)
        line.children.push_back(makeLine(child));
    if (entry.command == kShiftCommand && entry.children.empty())
        addDirections(line);
    return line;
}

/// The top-level menu that holds a command; null: none does.
MenuLine* menuWith(Menu& menu, int command)
{
    for (MenuLine& top : menu.getLines())
        if (std::ranges::find(top.children, command, &MenuLine::command) != top.children.end())
            return &top;
    return nullptr;
}

MenuLine separator()
{
    MenuLine line;
    line.text = u"-";
    return line;
}

} // namespace

void addFrameLines(Menu& menu, const std::vector<ToolWindow*>& panels, bool onTop)
{
    constexpr int kAlwaysOnTop = 14, kFloorLayer = 216, kTileSettings = 225;
    if (MenuLine* const view = menuWith(menu, kFloorLayer)) {
        MenuLine all;
        all.text = translate(u"Panels");
        for (std::size_t place = 0; place < panels.size(); ++place) {
            MenuLine& line = all.children.emplace_back();
            line.text = panels[place]->getText();
            line.command = kTogglePanel;
            line.argument = static_cast<int>(place);
        }
        view->children.push_back(separator());
        view->children.push_back(std::move(all));
        MenuLine& top = view->children.emplace_back();
        top.text = translate(u"Always on top");
        top.command = kAlwaysOnTop;
        top.checkable = true;
        top.checked = onTop;
    }
    if (MenuLine* const tools = menuWith(menu, kTileSettings)) {
        MenuLine find;
        find.text = translate(u"Find Command...");
        find.shortcut = u"Ctrl+Shift+P";
        find.command = kFindCommand;
        tools->children.push_back(separator());
        tools->children.push_back(std::move(find));
    }
}

Menu makeFrameMenu(bool systemCoordinates)
{
    Menu menu;
    std::vector<MenuLine> lines;
    for (const MenuEntry& entry : buildMenu(systemCoordinates))
        lines.push_back(makeLine(entry));
    menu.setLines(std::move(lines));
    return menu;
}

} // namespace varn
