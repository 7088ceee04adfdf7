#include "Game/Compiler/Calculator.h"
#include "Game/Compiler/InterpreterException.h"
#include "Game/Compiler/SQClassDef.h"
#include "Game/Compiler/classes/Classes.h"
#include "Game/Database/StoryTables.h"
#include "Support/RecordingHost.h"

#include <gtest/gtest.h>

namespace varn::test {
namespace {

struct Fighter
{
    int hp;
    int getHP() const { return hp; }
    /// Asks for the same formula again, for a weaker fighter.
    int fall()
    {
        if (hp == 0)
            return 0;
        Fighter weaker{hp - 1};
        const FormulaArg argument[] = {{u"weaker", u"Fighter", &weaker}};
        return hp + CalculatorManager::instance().evaluate(u"a.fall()", argument);
    }
};

class Formulas : public testing::Test
{
  protected:
    void SetUp() override
    {
        registerEngineClasses();
        auto made = std::make_unique<SQClassDef<Fighter>>("Fighter");
        made->addFunc<&Fighter::getHP>("getHP");
        made->addFunc<&Fighter::fall>("fall");
        GlobalClassTable::instance().registerClass(std::move(made));
    }

    RecordingHost host;
    CalculatorManager manager;
    Fighter first{7}, second{5};
    std::vector<FormulaArg> both = {{u"first", u"Fighter", &first},
                                    {u"second", u"Fighter", &second}};
};

TEST_F(Formulas, Calculate)
{
    const std::pair<WStringView, int> kCases[] = {
        {u"5", 5},
        {u"2.9", 2},
        {u"-2.9", -2},
        {u"a.getHP() * 2 - b.getHP()", 9},
        {u"var x = a.getHP(); return x * 2", 14},
        {u"var i; var sum = 0; for (i = 0; i < 10; i++) sum += i; return sum;", 45},
        {u"_ret = \"7;\"", 0}, // a body that returns nothing, for its semicolon
        {u"var s = \"x\"; s += 1; return s == \"x1\"", 1},
        {u"a == a", 1},
        {u"\"12 apples\"", 12},
    };
    for (int round = 0; round < 2; ++round) // compiled, then from the cache
        for (const auto& [formula, result] : kCases)
            EXPECT_EQ(manager.evaluate(formula, both), result) << toUtf8(formula);
    EXPECT_EQ(manager.count(), std::size(kCases));
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(Formulas, AreTheSameOnlyWhenTheirWholeTextIs)
{
    EXPECT_EQ(manager.evaluate(u"bonus", {}, u"var bonus = 3;"), 3);
    EXPECT_EQ(manager.evaluate(u"bonus", {}, u"var bonus = 4;"), 4);
    EXPECT_EQ(manager.evaluate(u"bonus ", {}, u"var bonus = 4;"), 4);
    EXPECT_EQ(manager.evaluate(u"bonus ", both, u"var bonus = 4;"), 4);
    EXPECT_EQ(manager.count(), 4U);
}

/// Every run begins anew, with the instances of its own call.
TEST_F(Formulas, RunsDoNotSeeEachOther)
{
    const WString formula = u"var text = \"ab\"; text += text; var list = [text, a];"
                            u"return list.length() + text.length() + a.getHP() * 10";
    for (int hp = 0; hp < 5; ++hp) {
        first.hp = hp;
        EXPECT_EQ(manager.evaluate(formula, both), hp * 10 + 6);
    }
    const WString deep = u"return f(a.getHP() * 3000)";
    const WString recursion = u"function f(n) { if (n < 1) return 0; return f(n - 1) + 1; }";
    for (const int hp : {1, 0, 2})
        EXPECT_EQ((first.hp = hp, manager.evaluate(deep + u";", both, recursion)), hp * 3000);
}

TEST_F(Formulas, FaultsReachTheCallerAndLeaveTheFormulaUsable)
{
    EXPECT_THROW(manager.evaluate(u"1 +", {}), std::string);
    EXPECT_EQ(manager.count(), 0U);
    first.hp = 0;
    EXPECT_THROW(manager.evaluate(u"10 / a.getHP()", both), interpreter::InterpreterException);
    first.hp = 2;
    EXPECT_EQ(manager.evaluate(u"10 / a.getHP()", both), 5);
    EXPECT_EQ(manager.evaluate(u"_getArgs(9)", {}), 0);
    EXPECT_EQ(manager.evaluate(u"_getArgs(\"x\")", {}), 0);
    ASSERT_EQ(host.messages.size(), 2U);
    EXPECT_NE(host.messages[1].find(u"vm->getTop() == 1 && vm->get_type(0) == VM_INT"),
              WString::npos);
}

TEST_F(Formulas, AskForThemselves)
{
    const FormulaArg argument[] = {both[1]};
    EXPECT_EQ(CalculatorManager::instance().evaluate(u"a.fall()", argument), 15);
}

TEST_F(Formulas, ComeFromTheirTable)
{
    FormulaData row;
    row.setFormula(u"a.getHP() + 1");
    FormulaDatabase& table = FormulaDatabase::instance();
    const auto index = static_cast<std::int64_t>(table.size());
    table.add(std::move(row));
    EXPECT_EQ(manager.calculate(index, both), 8);
    EXPECT_EQ(manager.calculate(index + 1, both), -1);
    EXPECT_EQ(manager.calculate(-1, both), -1);
}

} // namespace
} // namespace varn::test
