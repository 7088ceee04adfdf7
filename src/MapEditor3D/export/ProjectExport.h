#pragma once

#include "Game/GameResourceFile.h"
#include "MapEditor3D/ProjectSession.h"

#include <functional>
#include <set>

namespace varn {

inline constexpr WStringView kExportedQuestion =
    u"Exported GameData.gamedata to [directory]. Would you like to open the folder?";

/// What the export dialog settles.
struct ExportOptions
{
    WString target;            ///< folder that exists; relative to the project or absolute
    std::set<WString> without; ///< names of maps to leave out of the archive
    /// Asked at the end; "[directory]" stands for the target. A frame words it in its language.
    WString question = WString(kExportedQuestion);
};

/// True when the tree of maps holds a map whose file exists; else "There is no map that can be
/// output" is shown.
bool canExportProject(ProjectSession& session);

/// What the dialog does with its path field: false when nothing exists there, and "This directory
/// is not found." is shown.
bool confirmExportTarget(WStringView target);

/// Makes the finished game: the runtime beside this program, if there is one, and the archive
/// "GameData.gamedata" with configuration, maps, hierarchy, tables, texts, resources and scripts.
/// The project's files stay as they are, but for the open map, which is saved first. Equal projects
/// give equal archives on any machine.
///
/// What has to be told is shown: a target that is no folder, files that are missing (they are left
/// out), an archive that cannot be written. At the end stands the question whether to open the
/// folder.
/// @param progress  asked while the archive is written; false stops, and an old archive stands
/// @return the archive's path below `target`; nothing: the export did not come to its end
std::optional<WString> exportProject(ProjectSession& session, const ExportOptions& options,
                                     const ExportProgress& progress = {});

} // namespace varn
