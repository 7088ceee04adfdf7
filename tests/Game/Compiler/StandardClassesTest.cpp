#include "Game/Compiler/Script.h"
#include "Input/InputState.h"
#include "ScriptRun.h"
#include "Support/TemporaryProject.h"
#include "Util/Random.h"
#include "Util/Settings.h"

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <gtest/gtest.h>

// Of the standard classes what reaches beyond the script: clock, keys, files, settings, desktop.
// What a script sees by itself is tested by scripts/classes.

namespace varn::test {
namespace {

TEST(StandardClasses, DateIsTheLocalClock)
{
    ::setenv("TZ", "JST-9", 1);
    ::tzset();
    RecordingHost host;
    host.wallMs = 1704067199987; // 2023-12-31 23:59:59.987 UTC
    registerEngineClasses();
    Interpreter vm;
    std::string trace;
    vm.setTraceListener([&trace](WStringView text) { trace = toUtf8(text); });
    vm.compile(u"test", u"trace([Date.getFullYear(), Date.getMonth(), Date.getDate(), "
                        u"Date.getDay(), Date.getHours(), Date.getMinutes(), Date.getSeconds(), "
                        u"Date.getMilliseconds(), Date.getTime()]);");
    vm.execute();
    ::unsetenv("TZ");
    ::tzset();
    EXPECT_EQ(trace, "2024,0,1,1,8,59,59,987,1704067199.9869999885559082");
}

TEST(StandardClasses, RandomNumbersFollowTheSeedOfTheProgram)
{
    const std::string_view source = "trace(Math.randomInt(1, 6)); trace(Math.random());";
    Random expected;
    expected.seed(7);
    programRandom().seed(7);
    const ScriptRun run = runScript(source);
    const int die = expected.range(1, 6);
    EXPECT_EQ(run.traces, (std::vector<std::string>{std::to_string(die),
                                                    toUtf8(numberToText(expected.randomUnit()))}));
}

/// A script that waits, frame by frame, until it has ended.
class Waiting : public testing::Test
{
  protected:
    /// Frames that pass before the source has run; `eachFrame` comes before each.
    int framesOf(WStringView source, const std::function<void(int)>& eachFrame)
    {
        registerEngineClasses();
        Script script;
        script.setServices({.input = &input});
        script.compile(u"test", WString(source));
        input.beginFrame();
        script.start();
        script.waitUntilIdle();
        int frames = 0;
        for (; script.isRunning() && frames < 100; ++frames) {
            eachFrame(frames);
            input.beginFrame();
            script.resume();
            script.waitUntilIdle();
        }
        return frames;
    }

    RecordingHost host;
    InputState input;
};

TEST_F(Waiting, LastsUntilItsTimeFramesOrKey)
{
    const auto clock = [this](int) { host.nowMs += 16; };
    EXPECT_EQ(framesOf(u"System.wait(100);", clock), 7);
    EXPECT_EQ(framesOf(u"System.wait(-5);", clock), 0);
    EXPECT_EQ(framesOf(u"System.waitFrame(3);", clock), 4);
    EXPECT_EQ(framesOf(u"System.load(100);", clock), 7);
    const auto typeAt = [this](int wanted, int key) {
        return [this, wanted, key](int frame) {
            frame == wanted ? input.press(key) : input.release(key);
        };
    };
    const auto okAtTwo = typeAt(2, key::kEnter);
    EXPECT_EQ(framesOf(u"System.wait(100);", okAtTwo), 3);
    EXPECT_EQ(framesOf(u"System.waitFrame(9);", okAtTwo), 3);
    EXPECT_EQ(framesOf(u"System.waitFrame(9, 0);", okAtTwo), 10);
    EXPECT_EQ(framesOf(u"System.waitKey();", okAtTwo), 3);
    EXPECT_EQ(framesOf(u"System.waitKey();", typeAt(4, 'Q')), 5);
    EXPECT_EQ(framesOf(u"System.waitKey(); System.waitKey();",
                       [this](int frame) { frame % 3 ? input.press('Q') : input.release('Q'); }),
              5);
    EXPECT_EQ(framesOf(u"System.wait(100, 1);", typeAt(2, 'Q')), 100); // the clock stands still
    EXPECT_EQ(framesOf(u"System.waitFrame(9);", typeAt(2, input.keyOfButton(key::kButtonA))), 3);
}

TEST_F(Waiting, EndsWithTheScript)
{
    registerEngineClasses();
    for (const WStringView source :
         {u"System.wait(1000000);", u"System.waitFrame(1000000);", u"System.waitKey();",
          u"System.sleep(1000000);", u"while (1) System.wait(1);"}) {
        Script script;
        script.compile(u"test", WString(source));
        script.start();
        std::this_thread::sleep_for(std::chrono::milliseconds(10)); // it is in the wait by then
        const auto before = std::chrono::steady_clock::now();
        script.stop();
        EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::milliseconds(500))
            << toUtf8(source);
        EXPECT_FALSE(script.isRunning()) << toUtf8(source);
    }
}

TEST(StandardClasses, FilesAreTextsOfTheProject)
{
    TemporaryProject project;
    project.write("Data/Notes.txt", "\x93\xFA\x96\x7B\x8C\xEA\x81\x42"); // Shift_JIS
    const ScriptRun run = runScript("trace(File.readText(\"data\\\\NOTES.TXT\"));"
                                    "trace(File.readText(\"missing.txt\") + \"|\");"
                                    "trace(File.writeText(\"plain.txt\", \"a\\n\"));"
                                    "File.writeText(\"Data/Marked.txt\", \"日\");"
                                    "trace(File.readText(\"Data/Marked.txt\"));"
                                    "File.writeText(\"\", \"a\");"
                                    "File.writeText(\"missing/a.txt\", \"a\");");
    EXPECT_EQ(run.compileErrors, "");
    EXPECT_EQ(run.traces, (std::vector<std::string>{"日本語。", "|", "1", "日"}));
    EXPECT_EQ(project.read("plain.txt"), "a\n");
    EXPECT_EQ(project.read("Data/Marked.txt"), "\xEF\xBB\xBF日");
    ASSERT_EQ(run.messages.size(), 2U);
    EXPECT_EQ(run.messages[0], "ClassMethodCallException:\n===\nScriptFile::WriteText()\n===\n"
                               "The filename is invalid.");
    EXPECT_NE(run.messages[1].find("missing/a.txt"), std::string::npos);
}

TEST(StandardClasses, IniFileIsTheSettingsFileOfTheSession)
{
    constexpr std::string_view kSource = R"(
        trace(IniFile.read("Game", "Name"));
        trace(IniFile.read("game", "Missing"));
        trace(IniFile.read("Game", "Marker"));
        trace(IniFile.write("Game", "Gold", 12));
        trace(IniFile.write("Game", "a=b", ""));
        trace(IniFile.read("Game", "gold"));
        trace(IniFile.eraseKey("Game", "Name"));
        trace(IniFile.eraseSection("Old"));
    )";
    TemporaryProject project;
    project.write("a.ini", "[Game]\nName=Hob\nMarker=__error__\n[Old]\nx=1\n");
    Settings settings("a.ini");
    Interpreter vm;
    vm.setServices({.settings = &settings});
    const ScriptRun run = runScript(kSource, vm);
    EXPECT_EQ(run.traces,
              (std::vector<std::string>{"Hob", "", "", "true", "false", "12", "true", "true"}));
    EXPECT_EQ(project.read("a.ini"), "[Game]\nMarker=__error__\nGold=12\n");
    const ScriptRun without = runScript(kSource);
    EXPECT_EQ(without.traces,
              (std::vector<std::string>{"", "", "", "false", "false", "", "false", "false"}));
}

TEST(StandardClasses, EventsHaveTheServicesOfTheEngine)
{
    TemporaryProject project;
    Settings settings("a.ini");
    registerEngineClasses();
    ScriptEngine::instance().setServices({.settings = &settings});
    ScriptEngine::instance().startEvent(u"test", u"IniFile.write(\"Game\", \"Gold\", 12);");
    ScriptEngine::instance().setServices({});
    EXPECT_EQ(settings.getSettingInt(u"Game", u"Gold", 0), 12);
}

TEST(StandardClasses, ShellExecuteAsksTheHost)
{
    RecordingHost host;
    registerEngineClasses();
    Interpreter vm;
    vm.compile(u"test", u"_ret = WinAPI.ShellExecute(\"readme.html\", \"\") * 100 + "
                        u"WinAPI.ShellExecute(\"editor\", \"readme.html\");");
    vm.execute();
    EXPECT_EQ(vm.getReturn().toInt(), 3300);
    EXPECT_EQ(host.opened, std::vector<WString>{u"readme.html"});
}

TEST(StandardClasses, ADictionaryCountsAgainstTheMemoryOfItsScript)
{
    Interpreter vm;
    vm.setMemoryLimit(1 << 20);
    const ScriptRun run = runScript("var d = new Dictionary(); var i: int;\n"
                                    "for (i = 0; i < 1000000; i++) d.set(\"key \" + i, i);",
                                    vm);
    EXPECT_NE(run.fatal.find("out of memory"), std::string::npos);
}

} // namespace
} // namespace varn::test
