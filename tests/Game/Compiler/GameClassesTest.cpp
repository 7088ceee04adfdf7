#include "Game/Compiler/classes/game/GameClasses.h"
#include "ScriptRun.h"

#include <gtest/gtest.h>

namespace varn::test {
namespace {

TEST(GameClasses, CompileAndDoNothing)
{
    registerGameClasses();
    const ScriptRun run = runScript(
        "Player.goForward(); Player.setLocation(1, 2); Player.setLocation(); Player.warp(1);\n"
        "var p: PlayerCharacter; p.gainExp(5); var b: Battler; var e: Enemy = new Enemy();\n"
        "PartyStatusWindow.show(); Effect.shake(1, 2, 3); MessageTable.get(1);\n"
        "NpcDatabase.setRead(1, true); SceneManager.gotoInn(); SceneManager.battle(\"x\");\n"
        "Window.msg(\"hello\"); setFlag(1, 2); msg(\"x\"); novel(); trace(\"nothing is traced\");\n"
        "waitFrame(2); waitKey(); _ret = 9; var f = getFlag(3); var m = Window.yesno(\"?\");\n"
        "_ret = f * 10 + m + (BattleManager.RESULT_VICTORY == \"\");");
    EXPECT_EQ(run.compileErrors + run.fatal, "");
    EXPECT_EQ(run.messages, std::vector<std::string>{});
    EXPECT_EQ(run.traces, std::vector<std::string>{});
    EXPECT_EQ(run.result, 100); // a native without a result leaves what `_ret` held
}

TEST(GameClasses, TellWrongCalls)
{
    registerGameClasses();
    EXPECT_EQ(
        runScript("var p: PlayerCharacter; p.gainExp(1, 2); SceneManager.gotoInn(1);").messages,
        (std::vector<std::string>{"PlayerCharacter.gainExp is passed invalidate args",
                                  "SceneManager.gotoInn is passed invalidate args"}));
    EXPECT_NE(runScript("Player.fly();").compileErrors, "");
    EXPECT_NE(runScript("PlayerCharacter.gainExp(1);").compileErrors, "");
}

} // namespace
} // namespace varn::test
