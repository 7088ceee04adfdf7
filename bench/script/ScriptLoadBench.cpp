#include "Game/Compiler/Interpreter.h"
#include "Game/Compiler/classes/Classes.h"
#include "Util/File.h"
#include "Util/TextFile.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>

// Processor time to compile a script, the best of many: `ScriptLoadBench FILE [TIMES]` prints
// milliseconds.
int main(int argc, char** argv)
{
    using namespace varn;
    const auto bytes = argc > 1 ? readFile(argv[1]) : std::nullopt;
    if (!bytes)
        return 2;
    registerEngineClasses();
    const WString text = decodeBytes(asBytes(*bytes)).text;
    Interpreter script;
    script.loadGlobalScript = false;
    double best = 1e9;
    for (int times = argc > 2 ? std::atoi(argv[2]) : 20; times > 0; --times) {
        const std::clock_t begin = std::clock();
        try {
            script.compile(u"bench", text);
        } catch (const std::string& errors) {
            std::fputs(errors.c_str(), stderr);
            return 1;
        }
        best = std::min(best, 1e3 * static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC);
    }
    std::printf("%.3f\n", best);
}
