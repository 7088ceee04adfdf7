#pragma once

#include "Parser/XMLParser.h"

namespace varn {

/// Loads a document that the project may have of its own and that otherwise stands beside the
/// program: a language, a string table, a menu. A refused project document does not hide the
/// program's. False: neither could be read; what was refused has been shown, what is missing has
/// not.
bool loadToolFile(XMLParser& parser, WStringView fileName);

} // namespace varn
