#pragma once

#include "Util/Text.h"

#include <filesystem>

namespace varn {

/// Where the tool keeps what is neither the project's nor a setting: under `XDG_STATE_HOME`, else
/// under ".local/state" of the home folder (XDG Base Directory Specification), a folder of the
/// product's name; empty where neither is known. Not created.
std::filesystem::path defaultStateFolder();

/// The name under which things of one project are kept: its folder's name, cut to what any file
/// system takes, and a number made of its whole path, so that projects of one name stay apart.
/// @param project  its folder, absolute
std::string stateNameOf(const std::filesystem::path& project);

} // namespace varn
