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
        {"Lamps.txt", 1, "0 lamps burn."},
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

/// The one that is played: Enter lights, the right arrow walks on, Escape ends it.
TEST(DemoScripts, LampsAreLitByKeys)
{
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(VARN_SOURCE_DIR "/demo");
    registerEngineClasses();
    const RecordingHost host;
    InputState input;
    Stage stage;
    Script script;
    std::string traced;
    script.setServices({.input = &input, .stage = &stage});
    script.setTraceListener([&traced](WStringView text) { traced += toUtf8(text); });
    script.compile(u"Lamps.txt", fromUtf8(readSource("demo/Scripts/Lamps.txt")));
    script.start();
    script.waitUntilIdle();
    for (const int key : {key::kEnter, key::kEnter, key::kRight, key::kEnter, key::kEscape, 0}) {
        input.press(key);
        input.beginFrame();
        script.resume();
        script.waitUntilIdle();
        input.release(key);
    }
    EXPECT_EQ(traced, "2 lamps burn.");
    const Script* const scripts[] = {&script};
    const Bitmap& shown = stage.compose(scripts).getBitmap();
    const int lampHeight = stage.getHeight() * 3 / 4 - 76;
    EXPECT_EQ(shown.getPixelColor(stage.getWidth() * 3 / 14, lampHeight), 0xA8E9FFU);
    EXPECT_EQ(shown.getPixelColor(stage.getWidth() * 5 / 14, lampHeight), 0x40444AU);
    script.stop();
    std::filesystem::current_path(before);
}

} // namespace
} // namespace varn::test
