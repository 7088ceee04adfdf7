#include "MapEditor3D/frame/FrameMenu.h"

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
