#include "Game/Compiler/SQClassDef.h"
#include "ScriptRun.h"

#include <gtest/gtest.h>

namespace varn::test {
namespace {

/// A native that counts its instances and remembers what it was given.
struct Probe
{
    static inline int alive = 0;
    Probe() { ++alive; }
    ~Probe() { --alive; }

    int number = 0;
    OperandData kept;
    void trace(Marker& marker) const { marker.mark(kept); }

    void constructor(int value) { number = value; }
    int getNumber() const { return number; }
    void keep(const OperandData& value) { kept = value; }
    OperandData getKept() const { return kept; }
};

std::string describe(Probe&, int i, bool flag, double d, const WString& text,
                     const std::string& narrowed)
{
    return std::to_string(i) + (flag ? " yes " : " no ") + std::to_string(d) + " " + toUtf8(text) +
           " " + narrowed;
}
int first(Probe&)
{
    return 1;
}
int second(Probe&, int)
{
    return 2;
}
int third(Probe&, int, int)
{
    return 3;
}
int sum(Interpreter& vm)
{
    int total = 0;
    for (int i = 0; i < vm.getTop(); ++i)
        total += vm.getInt(i);
    if (vm.getTop() > 0)
        vm.push(OperandData::integer(total));
    return vm.getTop() > 0;
}
int refuse(Interpreter&)
{
    throw interpreter::InterpreterException(WString(interpreter::kInvalidArgumentCount),
                                            u"Probe::Refuse");
}
void throwRange(Probe&)
{
    throw std::out_of_range("out of range");
}
void globalSum(Interpreter& vm)
{
    vm.setReturn(OperandData::integer(vm.getInt(0) + vm.getInt(1)));
}

void registerProbe()
{
    auto made = std::make_unique<SQClassDef<Probe>>("Probe");
    made->addFunc<&Probe::constructor>("constructor");
    made->addFunc<&Probe::getNumber>("getNumber");
    made->addFunc<&Probe::keep>("keep");
    made->addFunc<&Probe::getKept>("kept");
    made->addFunc<&describe>("describe");
    made->addFunc<&first>("pick");
    made->addFunc<&second>("pick");
    made->addFunc<&third>("pick");
    made->addFunc<&throwRange>("throwRange");
    made->addFunc<&first>("secret", true);
    made->addStaticFunc<&sum>("sum");
    made->addStaticFunc<&refuse>("refuse");
    GlobalClassTable::instance().registerClass(std::move(made));
    registerGlobalFunction("globalSum", &globalSum);
}

class Binding : public testing::Test
{
  protected:
    void SetUp() override
    {
        registerEngineClasses();
        registerProbe();
    }
};

struct CallCase
{
    const char* source;
    const char* trace;
};

TEST_F(Binding, ConvertsArgumentsAndResults)
{
    constexpr CallCase kCases[] = {
        {"var p = new Probe(7); trace(p.getNumber());", "7"},
        {"var p = new Probe(); trace(p.getNumber());", "0"}, // no overload of the constructor
        {"var p = new Probe(1); trace(p.describe(2.9, 0.5, 3, 4, true));", "2 no 3.000000 4 true"},
        {"var p = new Probe(1); trace(p.describe(\"x\", 1, \"1.5\", \"t\", [1, 2]));",
         "0 yes 1.500000 t 1,2"},
        {"var p = new Probe(1); trace(p.keep(1));", "1"}, // a void native
        {"trace(Probe.sum(1, 2, 3));", "6"},
        {"_ret = 9; trace(Probe.sum());", "9"}, // accepted, but nothing pushed
        {"trace(globalSum(2, 3));", "5"},
        {"var p = new Probe(1); trace(p);", "Probe"},
        {"var p = new Probe(1); trace(p is Probe); ", "true"},
        {"var p = new Probe(1); trace(p == p);", "true"},
        {"trace(new Probe(1) == new Probe(1));", "false"},
    };
    for (const CallCase& each : kCases) {
        const ScriptRun run = runScript(each.source);
        EXPECT_EQ(run.traces, std::vector<std::string>{each.trace})
            << each.source << run.compileErrors << run.fatal;
        EXPECT_TRUE(run.messages.empty()) << each.source;
    }
}

/// The chain holds the first and the latest; the one between is displaced.
TEST_F(Binding, OverloadsChainFirstAndLatest)
{
    const ScriptRun run =
        runScript("var p = new Probe(1); trace(p.pick()); trace(p.pick(1, 2)); p.pick(1);");
    EXPECT_EQ(run.traces, (std::vector<std::string>{"1", "3"}));
    EXPECT_EQ(run.messages, std::vector<std::string>{"Probe.pick is passed invalidate args"});
}

TEST_F(Binding, NativesThatThrowAreShownAndTheRunGoesOn)
{
    const ScriptRun run = runScript(
        "_ret = 5; trace(Probe.refuse()); var p = new Probe(1); p.throwRange(); trace(\"on\");");
    EXPECT_EQ(run.traces, (std::vector<std::string>{"5", "on"}));
    ASSERT_EQ(run.messages.size(), 2U);
    EXPECT_EQ(run.messages[0], "ClassMethodCallException:\n===\nProbe::Refuse()\n===\nThe number "
                               "of arguments is invalid.");
    EXPECT_NE(run.messages[1].find("out of range"), std::string::npos);
}

/// A receiver that is no instance never reaches the native.
TEST_F(Binding, ReceiversAreChecked)
{
    const ScriptRun run =
        runScript("var p: Probe; p.getNumber(); p = [1]; p.describe(1, 2, 3, 4, 5);\n"
                  "p = new Rectangle(1, 2, 3, 4); p.getNumber();");
    EXPECT_EQ(run.messages,
              (std::vector<std::string>{"Probe.getNumber is passed invalidate args",
                                        "Probe.describe is passed invalidate args",
                                        "Probe.getNumber is passed invalidate args"}));
}

TEST_F(Binding, NamesAreListed)
{
    const ClassInterface* probe = GlobalClassTable::instance().find("Probe");
    using Methods = ClassInterface::Methods;
    EXPECT_EQ(probe->getMethodNames(Methods::Static), (std::vector<std::string>{"refuse", "sum"}));
    const auto all = probe->getMethodNames(Methods::All);
    EXPECT_EQ(std::count(all.begin(), all.end(), "constructor"), 0);
    EXPECT_EQ(std::count(all.begin(), all.end(), "secret"), 0);
    EXPECT_EQ(std::count(all.begin(), all.end(), "pick"), 1);
}

TEST_F(Binding, RegisteringAgainReplaces)
{
    const std::size_t before = GlobalClassTable::instance().classes().size();
    registerProbe();
    EXPECT_EQ(GlobalClassTable::instance().classes().size(), before);
}

/// What a native holds stays; what nothing reaches dies once a thousand objects were made.
TEST_F(Binding, InstancesLiveAsLongAsTheyAreReached)
{
    Interpreter vm;
    const ScriptRun run =
        runScript("var p = new Probe(1); p.keep([new Probe(2)]); var i: int; var a;\n"
                  "for (i = 0; i < 5000; i++) a = new Probe(i);\n"
                  "var k = p.kept(); trace(k[0] is Probe); a = k[0]; trace(a.getNumber());",
                  vm);
    EXPECT_EQ(run.traces, (std::vector<std::string>{"true", "2"}));
    EXPECT_LT(Probe::alive, 1100);
    vm.reset();
    EXPECT_EQ(Probe::alive, 0);
}

} // namespace
} // namespace varn::test
