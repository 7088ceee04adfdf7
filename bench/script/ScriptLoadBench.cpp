#include "Game/Compiler/Interpreter.h"
#include "Game/Compiler/classes/Classes.h"
#include "Util/File.h"
#include "Util/TextFile.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

// Time to compile a script, the best of many: `ScriptLoadBench FILE [TIMES]` prints milliseconds.
int main(int argc, char** argv)
{
    using namespace varn;
    const auto bytes = argc > 1 ? readFile(argv[1]) : std::nullopt;
    if (!bytes)
        return 2;
    registerStandardClasses();
    const WString text = decodeBytes(asBytes(*bytes)).text;
    Interpreter script;
    script.loadGlobalScript = false;
    double best = 1e9;
    for (int times = argc > 2 ? std::atoi(argv[2]) : 20; times > 0; --times) {
        const auto begin = std::chrono::steady_clock::now();
        try {
            script.compile(u"bench", text);
        } catch (const std::string& errors) {
            std::fputs(errors.c_str(), stderr);
            return 1;
        }
        best = std::min(best, std::chrono::duration<double, std::milli>(
                                  std::chrono::steady_clock::now() - begin)
                                  .count());
    }
    std::printf("%.3f\n", best);
}
