#pragma once

#include <filesystem>

namespace varn::driver {

/// From now on a signal that ends the process (an interrupt, a closed pipe or terminal, a request
/// to end) first removes this folder, if it is empty: left standing, it would make the next start
/// ask.
void removeOnSignals(const std::filesystem::path& folder);

} // namespace varn::driver
