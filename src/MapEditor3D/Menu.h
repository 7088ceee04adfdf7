#pragma once

#include "Util/Text.h"

#include <optional>
#include <vector>

namespace varn {

/// An item of the main menu as it is shown.
struct MenuEntry
{
    WString title;
    WString text;     ///< title, " (hotkey)", a tab and the shortcut's keys
    WString shortcut; ///< "Ctrl+S"; empty for none
    int command = 0;  ///< 0: none, it does nothing by itself
    int argument = 0; ///< handed to the command; of a language its place in the list
    bool checked = false;
    std::vector<MenuEntry> children;
};

/// The menu of the language in force: its document's items with the numbers of their commands. The
/// submenu of the item "language" lists the languages, the one in force checked. Empty where the
/// language has none.
/// @param systemCoordinates  check mark of "absoluteCoordinate"
std::vector<MenuEntry> buildMenu(bool systemCoordinates);

/// The menus of the languages that are not in force, for who looks for a command by the word of
/// another manual.
std::vector<std::vector<MenuEntry>> buildOtherMenus();

} // namespace varn
