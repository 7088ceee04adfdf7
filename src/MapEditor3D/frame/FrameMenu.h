#pragma once

#include "Component/Menu.h"

namespace varn {

/// The main menu of the language in force as the kit shows it: texts of the language document, with
/// the letter in brackets as mnemonic.
/// @param systemCoordinates  the check mark of that item
Menu makeFrameMenu(bool systemCoordinates);

} // namespace varn
