#pragma once

#include "Util/Text.h"

#include <filesystem>

namespace varn {

/// A folder with maps or tables in it. Nothing else makes a folder a project.
bool isProjectFolder(const std::filesystem::path& folder);

/// Why a new project cannot be made in a folder, as a text to be translated; empty: it can. The
/// folder may be missing, or be there without anything in it.
WStringView newProjectFault(const std::filesystem::path& folder);

/// Makes a project: the folders, the default tables and pictures that lie beside the program in
/// "NewProject", one floor of that name and its hierarchy. Never overwrites a file; what was made
/// before a fault is taken away again.
/// @param title  the game's name
/// @throws Exception  the folder is not empty, or a file cannot be made: which
void makeNewProject(const std::filesystem::path& folder, WStringView title);

/// Copies the demo game, which lies beside the program in "Demo", into a new folder or an empty
/// one.
/// @throws Exception  as above, or there is no demo
void copyDemo(const std::filesystem::path& folder);

/// Starts the tool once more with a folder as its project. False: it could not be started. The run
/// that calls this holds the lock of the one instance: end its session before.
bool startToolIn(const std::filesystem::path& folder);

} // namespace varn
