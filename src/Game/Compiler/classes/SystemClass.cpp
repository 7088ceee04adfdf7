#include "Game/Compiler/classes/SystemClass.h"
#include "Game/Compiler/Interpreter.h"
#include "Game/Compiler/SQClassDef.h"
#include "Game/Compiler/classes/Registrations.h"
#include "Game/Compiler/classes/Waiting.h"
#include "Input/InputState.h"
#include "Util/Host.h"

#include <algorithm>

namespace varn {
namespace {

void sleep(NativeCall& call, int milliseconds)
{
    call.vm.sleepFor(std::max(milliseconds, 0));
}

int argumentOr(const Interpreter& vm, int index, int fallback)
{
    return index < vm.getTop() ? vm.getInt(index) : fallback;
}

bool isOkKeyTyped(const Interpreter& vm)
{
    const InputState* input = vm.getServices().input;
    return input && input->isOkKeyTyped();
}

bool takeAnyKey(const Interpreter& vm)
{
    InputState* input = vm.getServices().input;
    return input && input->takeAnyKey();
}

} // namespace

void wait(Interpreter& vm)
{
    const bool skippable = argumentOr(vm, 1, 1) != 0;
    std::uint64_t now = host().clockMs();
    const std::uint64_t end = now + static_cast<std::uint64_t>(std::max(argumentOr(vm, 0, 0), 0));
    for (; now < end && !vm.isStopRequested(); now = host().clockMs()) {
        if (!vm.nextFrame())
            return vm.sleepFor(static_cast<int>(end - now));
        if (skippable && isOkKeyTyped(vm))
            return;
    }
}

void waitFrame(Interpreter& vm)
{
    const bool skippable = argumentOr(vm, 1, 1) != 0;
    for (int left = argumentOr(vm, 0, 0); left >= 0 && !vm.isStopRequested(); --left)
        if (!vm.nextFrame() || (skippable && isOkKeyTyped(vm)))
            return;
}

void waitKey(Interpreter& vm)
{
    while (!takeAnyKey(vm) && !vm.isStopRequested())
        if (!vm.nextFrame())
            return;
}

void registerSystem()
{
    auto made = std::make_unique<SQClassDef<ScriptSystem>>("System");
    made->addStaticFunc<&sleep>("sleep");
    made->addStaticFunc<&wait>("wait");
    made->addStaticFunc<&waitFrame>("waitFrame");
    made->addStaticFunc<&waitKey>("waitKey");
    // The game gives these a meaning; here their scripts compile and wait.
    for (const char* name : {"isLanguagePrimary", "toggleLanguages", "resetFlags", "save", "load"})
        made->addStaticFunc<&wait>(name);
    GlobalClassTable::instance().registerClass(std::move(made));
}

} // namespace varn
