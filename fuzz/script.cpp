#include "Game/Compiler/Interpreter.h"
#include "Game/Compiler/classes/Classes.h"
#include "Util/Text.h"

#include <cstddef>
#include <cstdint>

// What compiles runs, for a while and in little memory, to its end or to a fault with a place.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    varn::registerStandardClasses();
    varn::Interpreter script;
    script.loadGlobalScript = false;
    script.setMemoryLimit(std::size_t{16} << 20);
    try {
        script.compile(u"fuzz", varn::fromUtf8({reinterpret_cast<const char*>(data), size}));
        script.execute(200000);
    } catch (const std::string&) {
    } catch (const varn::interpreter::InterpreterException& fault) {
        if (!fault.isFatal())
            __builtin_trap();
    }
    return 0;
}
