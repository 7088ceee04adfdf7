#pragma once

#include "Util/Text.h"

namespace varn {

/// Where the maker is found.
inline constexpr WStringView kMakerSite = u"https://quillor.example/";

/// Opens the tool's help in the language in force with the desktop's shell. False: it could not,
/// which was told.
bool openHelp();
/// Opens the maker's site. False: as above.
bool visitSite();

} // namespace varn
