#include "Game/Compiler/SQClassDef.h"
#include "Game/Compiler/Script.h"
#include "ScriptRun.h"

#include <chrono>
#include <gtest/gtest.h>

namespace varn::test {
namespace {

using Clock = std::chrono::steady_clock;

void parkNative(Interpreter& vm)
{
    vm.park();
}

class ScriptThreads : public testing::Test
{
  protected:
    void SetUp() override
    {
        registerEngineClasses();
        registerGlobalFunction("park", &parkNative);
    }
    RecordingHost host;
};

TEST_F(ScriptThreads, StopEndsALoopThatNeverWaits)
{
    for (const WStringView source : {u"while (1) ;", u"for (;;) { }",
                                     u"function f() { f2(); } function f2() { } while (1) f();"}) {
        Script script;
        script.compile(u"test", WString(source));
        script.start();
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        const auto before = Clock::now();
        script.stop();
        EXPECT_LT(Clock::now() - before, std::chrono::milliseconds(500));
        EXPECT_EQ(script.runResult(), Interpreter::RunResult::Stopped);
    }
}

TEST_F(ScriptThreads, ParksResumesAndStops)
{
    Script script;
    script.compile(u"test", u"var i: int; for (i = 1; i < 1000; i++) { _ret = i; park(); }");
    script.start();
    for (int frame = 1; frame <= 3; ++frame) {
        script.waitUntilIdle();
        EXPECT_TRUE(script.isParked());
        EXPECT_EQ(script.getReturn().toInt(), frame);
        script.resume();
    }
    script.stop();
    EXPECT_FALSE(script.isRunning());
    EXPECT_EQ(script.runResult(), Interpreter::RunResult::Stopped);
}

TEST_F(ScriptThreads, TheEngineKeepsScriptsThatWait)
{
    ScriptEngine& engine = ScriptEngine::instance();
    engine.startEvent(u"test", u"var a = 1;");
    EXPECT_EQ(engine.count(), 0U);
    engine.startEvent(u"test", u"park(); park();");
    engine.startEvent(u"test", u"park();");
    EXPECT_EQ(engine.count(), 2U);
    engine.signalFrame();
    EXPECT_EQ(engine.count(), 1U);
    engine.signalFrame();
    EXPECT_EQ(engine.count(), 0U);
    EXPECT_THROW(engine.startEvent(u"test", u"nonsense"), std::string);
}

TEST_F(ScriptThreads, AFatalFaultIsShown)
{
    Script script;
    script.compile(u"test", u"var a = 0;\n1 / a;");
    script.start();
    script.waitUntilIdle();
    script.stop();
    EXPECT_EQ(script.runResult(), Interpreter::RunResult::Failed);
    EXPECT_EQ(host.messages, std::vector<WString>{u"Error: \"test\"(2): division by zero"});
}

TEST_F(ScriptThreads, NoCode)
{
    Script script;
    script.start();
    script.waitUntilIdle();
    script.stop();
    EXPECT_EQ(script.runResult(), Interpreter::RunResult::NoCode);
}

TEST_F(ScriptThreads, Listeners)
{
    Script script;
    const ScriptRun run = runScript(
        "function f() {} function g() {}\n"
        "trace(addEventListener(\"click\", f)); trace(addEventListener(\"click\", f));\n"
        "trace(addEventListener(\"click\", g)); trace(removeEventListener(\"click\", f));\n"
        "trace(removeEventListener(\"keyDown\", f)); addEventListener(\"click\"); addChild(5);",
        script);
    EXPECT_EQ(run.traces, (std::vector<std::string>{"true", "false", "true", "true", "false"}));
    EXPECT_EQ(script.listenersOf(u"click").size(), 1U);
    ASSERT_EQ(run.messages.size(), 2U);
    EXPECT_EQ(run.messages[0],
              "GlobalFunctionCallException: \n===\nScriptEngine::addEventListener()\n===\n"
              "The number of arguments is invalid.");
    EXPECT_NE(run.messages[1].find("the parameter must be a Graphics or Image object."),
              std::string::npos);
}

} // namespace
} // namespace varn::test
