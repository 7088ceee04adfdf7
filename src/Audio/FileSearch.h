#pragma once

#include "Util/Text.h"

#include <optional>

namespace varn {

/// Looks for a file in a folder of the project, then in its subfolders, sorted by name; the first
/// hit wins. Links to folders are not followed.
/// @param depth  levels of subfolders
std::optional<WString> findFile(WStringView folder, WStringView name, int depth);

} // namespace varn
