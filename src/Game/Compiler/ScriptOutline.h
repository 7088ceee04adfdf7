#pragma once

#include "Util/Text.h"

#include <vector>

namespace varn {

/// A function of a script as its outline lists it.
struct OutlineEntry
{
    int line = 1;      ///< where it begins, from 1
    WString signature; ///< name and parameters, as written
};

/// The functions of a source, found line by line: a head that goes on behind its line, or whose
/// name does not begin with a letter, is missing. What stands behind the parameters belongs to the
/// signature up to the last parenthesis of the line.
std::vector<OutlineEntry> outlineOf(WStringView source);

} // namespace varn
