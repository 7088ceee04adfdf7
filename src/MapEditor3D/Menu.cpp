#include "MapEditor3D/Menu.h"

#include "Game/Database/LanguageManager.h"
#include "MapEditor3D/Commands.h"

namespace varn {

static MenuEntry makeEntry(const MenuItem& item, bool systemCoordinates)
{
    MenuEntry entry;
    entry.title = item.title;
    entry.text = item.getText();
    entry.shortcut = item.shortcut;
    entry.command = commandNumber(item.id);
    entry.checked = item.checked || (systemCoordinates && item.id == u"absoluteCoordinate");
    const bool isLanguageList = item.id == kLanguageMenuId;
    for (const MenuItem& child : item.children) {
        MenuEntry& made = entry.children.emplace_back(makeEntry(child, systemCoordinates));
        if (isLanguageList) {
            made.command = kLanguageCommand;
            made.argument = static_cast<int>(entry.children.size()) - 1;
        }
    }
    return entry;
}

std::vector<MenuEntry> buildMenu(bool systemCoordinates)
{
    std::vector<MenuEntry> menu;
    for (const MenuItem& item : LanguageManager::instance().buildMenu())
        menu.push_back(makeEntry(item, systemCoordinates));
    return menu;
}

} // namespace varn
