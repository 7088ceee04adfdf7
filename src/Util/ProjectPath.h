#pragma once

#include "Util/Text.h"

#include <filesystem>

namespace varn {

/// Where a path of the project lies on this machine. Projects come from systems that take `\` for `/`
/// and ignore case, so both hold here: `\` counts as `/`, and where the path is not found as written,
/// each folder level is searched for the one name that is equal ignoring case (letters A to Z folded,
/// and full Unicode simple folding for the rest; the first in byte order wins among several).
/// What is not found that way keeps the spelling it was given, below the deepest level that was found,
/// so the result also names where a new file is to be made.
///
/// @param path  relative to the working directory, or absolute; not checked against leaving the project
std::filesystem::path resolveProjectPath(WStringView path);

/// True when the path, resolved as above, names anything; a plain file; a folder.
bool pathExists(WStringView path);
bool isFile(WStringView path);
bool isFolder(WStringView path);

/// Wide text of a path of this machine, `/` as it is.
WString toWide(const std::filesystem::path& path);

/// Parts of a path's text: both `/` and `\` separate.
WStringView fileNameOf(WStringView path);        ///< "a/b.map" gives "b.map"
WStringView withoutExtension(WStringView path);  ///< up to the last "." of the file name
WString withForwardSlashes(WStringView path);

} // namespace varn
