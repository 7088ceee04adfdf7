#include "Game/Compiler/classes/game/GameClasses.h"
#include "ScriptRun.h"

#include <gtest/gtest.h>
#include <sstream>

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

/// A script of the game that uses every name there is.
TEST(GameClasses, HaveEveryNameOfTheGame)
{
    registerGameClasses();
    const struct
    {
        const char* owner;
        const char* names;
        const char* arguments;
    } cases[] = {
        {"Player.", "goForward stepBack turnLeft turnRight", "()"},
        {"Player.",
         "setLocation setDirection warp addItem hasItem removeItem addGold removeGold encounter "
         "getPlayerCharacter getPlayerCharacters",
         "(1, \"two\", [3])"},
        {"one.", "changeClass gainExp gainGold learnSkill forgetSkill", "(1)"},
        {"PartyStatusWindow.", "choosePlayerCharacter show hide", "(1, 2)"},
        {"BattleManager.", "RESULT_VICTORY RESULT_ESCAPE RESULT_LOSE RESULT_TELEPORT RESULT_LEAVE",
         ""},
        {"Effect.", "fadeOut fadeIn shake snowfall", "()"},
        {"", "MessageTable.get NpcDatabase.setRead", "(1, 2, 3)"},
        {"SceneManager.", "battle riddle camp", "(1)"},
        {"SceneManager.",
         "changeScene restartAdventure gotoInn gotoMaze gotoShop gotoTavern gotoTemple "
         "gotoTrainingGrounds",
         "()"},
        {"Window.", "msg menu yesno alert", "(\"text\", 1)"},
        {"",
         "setLocation setDirection warp pit addItem hasItem fadeOut fadeIn shake riddle battle "
         "changeScene trace waitFrame waitKey playBGM playVideo playSound stopBGM stopSound save "
         "load msg menu yesno novel getFlag setFlag",
         "(1, 2, 3, 4)"},
    };
    std::string source = "var one: PlayerCharacter = new PlayerCharacter();"
                         "var other: Battler = new Battler(); var third: Enemy;";
    for (const auto& c : cases) {
        std::istringstream names(c.names);
        for (std::string name; names >> name;)
            source += c.owner + name + c.arguments + ";\n";
    }
    const ScriptRun run =
        runScript(source + "_ret = 7; var known = trace(\"x\"); _ret = known;"
                           "var done = Player.goForward(); _ret = _ret * 10 + done;");
    EXPECT_EQ(run.compileErrors + run.fatal, "");
    EXPECT_EQ(run.messages, std::vector<std::string>{});
    EXPECT_EQ(run.traces, std::vector<std::string>{}); // the game's trace, not the tool's
    EXPECT_EQ(run.result, 71);
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
