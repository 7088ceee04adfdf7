#pragma once

#include "Component/Menu.h"
#include "Component/ToolWindow.h"

#include <vector>

namespace varn {

/// The main menu of the language in force as the kit shows it: texts of the language document, with
/// the letter in brackets as mnemonic.
/// @param systemCoordinates  the check mark of that item
Menu makeFrameMenu(bool systemCoordinates);

// Lines of the frame's own, beside the command table's.
inline constexpr int kTogglePanel = 1000; ///< its argument: the panel's place
inline constexpr int kFindCommand = 1001;

/// Adds the panels and the window that stays on top to the menu of the layers, and the search of
/// commands to that of the tools.
/// @param onTop  the check mark of the window that stays on top
void addFrameLines(Menu& menu, const std::vector<ToolWindow*>& panels, bool onTop);

} // namespace varn
