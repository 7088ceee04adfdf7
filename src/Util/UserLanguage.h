#pragma once

#include <string>

namespace varn {

/// The language of the user's environment as its code of ISO 639, "ja"; "en" where none is told. By
/// the order of POSIX, Base Definitions, 8.2: LC_ALL, LC_MESSAGES, LANG, the first that is not
/// empty.
std::string userLanguage();

} // namespace varn
