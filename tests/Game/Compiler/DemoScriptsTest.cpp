#include "ScriptRun.h"
#include "Support/TemporaryProject.h"
#include "Util/Random.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace varn::test {
namespace {

/// What the demo game says may be run in the editor runs there.
TEST(DemoScripts, Run)
{
    const struct
    {
        const char* file;
        std::size_t lines;
        const char* last;
    } cases[] = {
        {"TideTable.txt", 29, " 28  00:50  13:15"},
        {"Ledger.txt", 5, " 1981  in all"},
        {"Rumours.txt", 9, "All agree about a lamp, a hand, thirty-nine chairs and a hymn."},
    };
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(VARN_SOURCE_DIR "/demo");
    for (const auto& c : cases) {
        programRandom().seed(7);
        const ScriptRun run = runScript(readSource(std::string("demo/Scripts/") + c.file));
        EXPECT_EQ(run.compileErrors + run.fatal, "") << c.file;
        EXPECT_TRUE(run.messages.empty()) << c.file;
        ASSERT_EQ(run.traces.size(), c.lines) << c.file;
        EXPECT_EQ(run.traces.back(), c.last);
    }
    std::filesystem::current_path(before);
}

} // namespace
} // namespace varn::test
