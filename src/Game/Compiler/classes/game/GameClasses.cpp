#include "Game/Compiler/classes/game/GameClasses.h"

#include "Game/Compiler/Interpreter.h"
#include "Game/Compiler/SQClassDef.h"
#include "Game/Compiler/classes/Classes.h"
#include "Game/Compiler/classes/Waiting.h"

#include <algorithm>

namespace varn {
namespace {

struct GameObject
{};
using GameClass = SQClassDef<GameObject>;

// What stands in for the game's natives.

void withoutArguments() {}

/// Takes any arguments and pushes no result.
int withAny(Interpreter&)
{
    return 0;
}

void withInt(GameObject&, int) {}

WString emptyText()
{
    return {};
}

/// `_ret` stays what it was.
void globalWithAny(Interpreter&) {}

using StandIn = void (*)(GameClass&, std::string_view);

template <auto F>
void addStatic(GameClass& made, std::string_view method)
{
    made.addStaticFunc<F>(method);
}
template <auto F>
void addMember(GameClass& made, std::string_view method)
{
    made.addFunc<F>(method);
}
constexpr StandIn kNone = &addStatic<&withoutArguments>;
constexpr StandIn kAny = &addStatic<&withAny>;
constexpr StandIn kInt = &addMember<&withInt>;
constexpr StandIn kText = &addStatic<&emptyText>;

/// Methods of a class that one native stands in for; blanks between the names.
struct Methods
{
    std::string_view className;
    StandIn standIn;
    std::string_view names;
};

constexpr Methods kMethods[] = {
    {"Player", kNone, "goForward stepBack turnLeft turnRight"},
    {"Player", kAny,
     "setLocation setDirection warp addItem hasItem removeItem addGold removeGold encounter "
     "getPlayerCharacter getPlayerCharacters"},
    {"PlayerCharacter", kInt, "changeClass gainExp gainGold learnSkill forgetSkill"},
    {"Battler", kNone, ""},
    {"Enemy", kNone, ""},
    {"PartyStatusWindow", kAny, "choosePlayerCharacter show hide"},
    {"BattleManager", kText,
     "RESULT_VICTORY RESULT_ESCAPE RESULT_LOSE RESULT_TELEPORT RESULT_LEAVE"},
    {"Effect", kAny, "fadeOut fadeIn shake snowfall"},
    {"MessageTable", kAny, "get"},
    {"NpcDatabase", kAny, "setRead"},
    {"SceneManager", kAny, "battle riddle camp"},
    {"SceneManager", kNone,
     "changeScene restartAdventure gotoInn gotoMaze gotoShop gotoTavern gotoTemple "
     "gotoTrainingGrounds"},
    {"Window", kAny, "msg menu yesno alert"},
};

constexpr std::string_view kFunctions =
    "setLocation setDirection warp pit addItem hasItem fadeOut fadeIn shake riddle battle "
    "changeScene trace playBGM playVideo playSound stopBGM stopSound save load msg menu yesno "
    "novel getFlag setFlag";

template <class Use>
void forEachName(std::string_view names, Use&& use)
{
    while (!names.empty()) {
        const std::size_t end = std::min(names.find(' '), names.size());
        use(names.substr(0, end));
        names.remove_prefix(std::min(end + 1, names.size()));
    }
}

void registerAll()
{
    registerEngineClasses();
    std::unique_ptr<GameClass> made;
    const auto finish = [&made] {
        if (made)
            GlobalClassTable::instance().registerClass(std::move(made));
    };
    for (const Methods& row : kMethods) {
        if (!made || made->scriptName() != row.className) {
            finish();
            made = std::make_unique<GameClass>(std::string(row.className));
        }
        forEachName(row.names, [&](std::string_view method) { row.standIn(*made, method); });
    }
    finish();
    forEachName(kFunctions,
                [](std::string_view name) { registerGlobalFunction(name, &globalWithAny); });
    registerGlobalFunction("waitFrame", &waitFrame);
    registerGlobalFunction("waitKey", &waitKey);
}

} // namespace

void registerGameClasses()
{
    static const bool done = (registerAll(), true);
    static_cast<void>(done);
}

} // namespace varn
