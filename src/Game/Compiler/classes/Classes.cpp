#include "Game/Compiler/classes/Classes.h"

#include "Game/Compiler/classes/Registrations.h"

namespace varn {

static bool registerAll()
{
    registerGlobalFunctions();
    registerSystem();
    registerTypeNames();
    registerString();
    registerStringUtils();
    registerArray();
    registerDictionary();
    registerDate();
    registerLocale();
    registerMath();
    registerFile();
    registerIniFile();
    registerWinApi();
    return true;
}

void registerStandardClasses()
{
    static const bool done = registerAll();
    static_cast<void>(done);
}

} // namespace varn
