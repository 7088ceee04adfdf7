#include "MapEditor3D/frame/FrameMenu.h"

#include "Component/Translation.h"
#include "Game/Map/Direction.h"
#include "MapEditor3D/Commands.h"
#include "MapEditor3D/Menu.h"

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

} // namespace

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
