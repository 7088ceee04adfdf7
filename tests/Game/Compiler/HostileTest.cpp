#include "Game/Compiler/InterpreterVM.h"
#include "ScriptRun.h"

#include <gtest/gtest.h>

namespace varn::test {
namespace {

std::string repeated(std::string_view part, int times)
{
    std::string text;
    for (int i = 0; i < times; ++i)
        text += part;
    return text;
}

struct FatalCase
{
    const char* source;
    const char* fault; // ends the run with this in it
};

TEST(Hostile, RunsThatCannotGoOnTellThePlace)
{
    constexpr FatalCase kCases[] = {
        {"function f() {\nf(); }\nf();", "\"test\"(2): the calls are nested too deeply"},
        {"function f(a, b, c) {\nreturn f(a + 1, b, c) + 1; }\nf();",
         "\"test\"(2): the calls are nested too deeply"},
        {"var a = 1;\nvar b = 0;\na = a / b;", "\"test\"(3): division by zero"},
        {"var a = 1;\na / 0;", "\"test\"(2): division by zero"},
        {"function f(a, b) { return a % b; }\nf(1, 0.5);", "\"test\"(1): remainder by zero"},
        {"5 % 0;", "remainder by zero"},
        {"var a = new Array();\nwhile (1) a.push(1);", "\"test\"(2): Exception: out of memory"},
        {"new Array(1000000000);", "Exception: array length is too large"},
        {"var n: int = -1; new Array(n);", "Exception: array length is too large"},
        {"var s = \"x\";\nwhile (1)\ns += s;", "\"test\"(3): Exception: out of memory"},
        {"var a = [0]; var i: int;\nwhile (1) { a = [a, a]; for (i = 0; i < 100; i++) a.push(a); }",
         "out of memory"},
        {"var o = new Object();\nvar a = [1];\nwhile (1) { a = [o, a]; }", "out of memory"},
        {"var a = [1, 2];\na[2];", "the index 2 is outside of the array"},
        {"var a = [1, 2];\na[-1] = 3;", "the index -1 is outside of the array"},
        {"var a = [[1]];\na[0][1000000] = 3;", "the index 1000000 is outside of the array"},
        {"var f = 5;\nf();", "\"test\"(2): what is called is no function"},
        {"var a = [1, 1]; var i: int;\nfor (i = 0; i < 60; i++) a = [a, a];\nvar s: String = \"\" "
         "+ a;",
         "too long"},
    };
    for (const FatalCase& each : kCases) {
        Interpreter vm;
        vm.setMemoryLimit(std::size_t{64} << 20);
        const ScriptRun run = runScript(each.source, vm);
        EXPECT_NE(run.fatal.find(each.fault), std::string::npos)
            << each.source << "\ngave: " << run.fatal << run.compileErrors;
        EXPECT_FALSE(vm.step()) << "the run is over: " << each.source;
    }
}

TEST(Hostile, DeepCallsThatEndAreFine)
{
    EXPECT_EQ(
        runScript("function f(n) { if (n == 0) return 0; return f(n - 1) + 1; }\n_ret = f(200000);")
            .result,
        200000);
}

/// Garbage that dies young never fills the memory.
TEST(Hostile, GarbageIsCollected)
{
    Interpreter vm;
    vm.setMemoryLimit(std::size_t{32} << 20);
    const ScriptRun run =
        runScript("var i: int; var a; var s: String = \"\";\n"
                  "for (i = 0; i < 300000; i++) { a = [i, [i], \"x\" + i]; s = \"y\" + i; }\n"
                  "for (i = 0; i < 40; i++) a = new Array(100000);\n"
                  "for (i = 0; i < 100000; i++) { a = new Object(); a.x = i; a.self = a; }\n"
                  "_ret = a.x;",
                  vm);
    EXPECT_EQ(run.fatal, "");
    EXPECT_EQ(run.result, 99999);
}

struct NestedCase
{
    const char* before;
    const char* open;
    const char* middle;
    const char* close;
    const char* after;
    int fine; ///< this many levels compile
};

/// Nesting up to what the grammar's automaton held compiles; beyond it there is one error.
TEST(Hostile, DeepSource)
{
    constexpr NestedCase kCases[] = {
        {"var x = ", "(", "1", ")", ";", 5000},
        {"var x = ", "!", "1", "", ";", 5000},
        {"var x = ", "[", "1", "]", ";", 1500},
        {"var x = ", "1 ? 2 : ", "1", "", ";", 1000},
        {"var x = ", "1 - (2 * ", "1", ")", ";", 1000},
        {"var x; ", "x = ", "1", "", ";", 2000},
        {"var x; x", "[x", "", "]", " = 1;", 2000},
        {"", "{", "", "}", "", 2000},
        {"", "if (1) ", ";", "", "", 1000},
        {"", "if (1) {} else ", ";", "", "", 1000},
        {"", "while (0) ", ";", "", "", 1000},
        {"function f(a) {} ", "f(", "1", ")", ";", 1500},
        {"var a; ", "a.m(", "1", ")", ";", 1500},
    };
    for (const NestedCase& each : kCases) {
        const auto source = [&each](int levels) {
            return each.before + repeated(each.open, levels) + each.middle +
                   repeated(each.close, levels) + each.after;
        };
        const auto errors = [](const std::string& text) {
            registerEngineClasses();
            Interpreter vm;
            try {
                vm.compile(u"test", fromUtf8(text));
            } catch (const std::string& found) {
                return found;
            }
            return std::string();
        };
        EXPECT_EQ(errors(source(each.fine)), "") << each.open;
        EXPECT_EQ(errors(source(20000)), "Error: E101 \"test\"(1): memory exhausted\n")
            << each.open;
    }
}

/// What only grows to the side has no limit of depth.
TEST(Hostile, LongSource)
{
    EXPECT_EQ(runScript("_ret = 0" + repeated(" + 1", 50000) + ";").result, 50000);
    EXPECT_EQ(runScript("if (1" + repeated(" && 1", 50000) + ") _ret = 3;").result, 3);
    EXPECT_EQ(runScript("var a = [0" + repeated(", 1", 50000) + "]; _ret = a.length();").result,
              50001);
    EXPECT_EQ(runScript("var x: int = 0; while (x < 2) { x++; " + repeated("x = x + 0;", 20000) +
                        "} _ret = x;")
                  .result,
              2);
    EXPECT_EQ(runScript("function f() { var x: int = 0; for (var i: int = 0; i < 3; i++) { " +
                        repeated("if (i > 5) break; x += 1;", 20000) + "} return x; } _ret = f();")
                  .result,
              60000);
    const ScriptRun tooMany = runScript("var a; a.m(0" + repeated(", 1", 70000) + ");");
    EXPECT_EQ(tooMany.compileErrors, "Error: E101 \"test\"(1): memory exhausted\n");
    std::string defaults = "function f0(a = 1) {}\n"; // each calls the one before twice
    for (int i = 1; i < 40; ++i) {
        const std::string before = "f" + std::to_string(i - 1) + "()";
        defaults += "function f" + std::to_string(i) + "(a = " + before + " + " + before + ") {}\n";
    }
    EXPECT_NE(runScript(defaults + "f39();").compileErrors, "");
    EXPECT_NE(runScript("function f(a = f()) {} f();").compileErrors, "");
}

TEST(Hostile, DeepSelectors)
{
    const ScriptRun run = runScript("var o = new Object(); var i: int; var t;\n"
                                    "o.a = o; _ret = 5; t = o" +
                                    repeated(".a", 3000) + "; trace(typeof t);");
    EXPECT_EQ(run.traces, std::vector<std::string>{"table"});
}

/// Any single step may be the last: the machine can be left at every instruction.
TEST(Hostile, StepsOneByOne)
{
    RecordingHost host;
    registerEngineClasses();
    Interpreter vm;
    vm.compile(u"test",
               u"function f(n) { if (n < 2) return n; return f(n - 1) + f(n - 2); } _ret = f(10);");
    int steps = 0;
    while (vm.step())
        ++steps;
    EXPECT_GT(steps, 500);
    EXPECT_EQ(vm.getReturn().toInt(), 55);
    vm.reset();
    EXPECT_FALSE(vm.execute(100));
    EXPECT_TRUE(vm.execute(1000000));
    EXPECT_EQ(vm.getReturn().toInt(), 55);
}

} // namespace
} // namespace varn::test
