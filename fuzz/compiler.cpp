#include "Game/Compiler/Interpreter.h"
#include "Game/Compiler/classes/Classes.h"
#include "Util/Text.h"

#include <cstddef>
#include <cstdint>

// Any text as a script: code, or its errors in one string.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    varn::registerEngineClasses();
    varn::Interpreter script;
    script.loadGlobalScript = false;
    try {
        script.compile(u"fuzz", varn::fromUtf8({reinterpret_cast<const char*>(data), size}));
    } catch (const std::string& errors) {
        if (errors.rfind("Error: E", 0) != 0)
            __builtin_trap();
    }
    return 0;
}
