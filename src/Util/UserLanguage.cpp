#include "Util/UserLanguage.h"

#include <cstdlib>

namespace varn {

std::string userLanguage()
{
    for (const char* const name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* const value = std::getenv(name);
        if (value == nullptr || *value == '\0')
            continue;
        const std::string locale = value; // ja_JP.UTF-8
        const std::string language = locale.substr(0, locale.find_first_of("_.@"));
        return language == "C" || language == "POSIX" ? "en" : language;
    }
    return "en";
}

} // namespace varn
