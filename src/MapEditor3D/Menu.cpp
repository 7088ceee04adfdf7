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

static std::vector<MenuEntry> buildMenuOf(LanguageManager& language, bool systemCoordinates)
{
    std::vector<MenuEntry> menu;
    for (const MenuItem& item : language.buildMenu())
        menu.push_back(makeEntry(item, systemCoordinates));
    return menu;
}

std::vector<MenuEntry> buildMenu(bool systemCoordinates)
{
    return buildMenuOf(LanguageManager::instance(), systemCoordinates);
}

std::vector<std::vector<MenuEntry>> buildOtherMenus()
{
    std::vector<std::vector<MenuEntry>> menus;
    const LanguageManager& inForce = LanguageManager::instance();
    for (const WString& file : inForce.getLanguageFiles()) {
        LanguageManager other;
        if (file != inForce.getFileName() && other.load(file))
            menus.push_back(buildMenuOf(other, false));
    }
    return menus;
}

} // namespace varn
