#include "Game/Compiler/Interpreter.h"
#include "Game/Compiler/SQClassDef.h"
#include "Game/Compiler/classes/Registrations.h"
#include "Input/InputState.h"

namespace varn {
namespace {

/// Keys and pads.
struct Key
{};

/// The pointer.
struct Mouse
{};

InputState* inputOf(const NativeCall& call)
{
    return call.vm.getServices().input;
}

using Ask = bool (InputState::*)(int) const;
template <Ask ask>
bool isKey(NativeCall& call, int key)
{
    const InputState* input = inputOf(call);
    return input && (input->*ask)(key);
}

using AskAny = bool (InputState::*)() const;
template <AskAny ask>
bool isAny(NativeCall& call)
{
    const InputState* input = inputOf(call);
    return input && (input->*ask)();
}

using SetTimer = void (InputState::*)(int);
template <SetTimer set>
void setTimer(NativeCall& call, int milliseconds)
{
    if (InputState* input = inputOf(call))
        (input->*set)(milliseconds);
}

template <int code>
int constant()
{
    return code;
}

template <int button>
int keyOf(NativeCall& call)
{
    const InputState* input = inputOf(call);
    return input ? input->keyOfButton(button) : key::kFirstButton + button;
}

using Coordinate = int (InputState::*)() const;
template <Coordinate coordinate>
int pointer(NativeCall& call)
{
    const InputState* input = inputOf(call);
    return input ? (input->*coordinate)() : 0;
}

bool isClick(NativeCall& call, int button)
{
    const bool isButton = button == key::kMouseLeft || button == key::kMouseRight;
    return isButton && isKey<&InputState::isTyped>(call, button);
}

} // namespace

void registerKey()
{
    auto made = std::make_unique<SQClassDef<Key>>("Key");
    made->addStaticFunc<&isKey<&InputState::isDown>>("isDown");
    made->addStaticFunc<&isKey<&InputState::isTyped>>("isTyped");
    made->addStaticFunc<&isKey<&InputState::isRepeated>>("isRepeat");
    made->addStaticFunc<&isKey<&InputState::isRepeated>>("isRepeated");
    made->addStaticFunc<&isAny<&InputState::isOkKeyTyped>>("isOkKeyTyped");
    made->addStaticFunc<&isAny<&InputState::isCancelKeyTyped>>("isCancelKeyTyped");
    made->addStaticFunc<&setTimer<&InputState::setRepeatTimer>>("setRepeatTimer");
    made->addStaticFunc<&setTimer<&InputState::setRepeatDelay>>("setRepeatClearTimer");
    made->addStaticFunc<&constant<key::kLeft>>("LEFT");
    made->addStaticFunc<&constant<key::kDown>>("DOWN");
    made->addStaticFunc<&constant<key::kRight>>("RIGHT");
    made->addStaticFunc<&constant<key::kUp>>("UP");
    made->addStaticFunc<&keyOf<key::kButtonB>>("B");
    made->addStaticFunc<&keyOf<key::kButtonA>>("A");
    made->addStaticFunc<&keyOf<key::kButtonY>>("Y");
    made->addStaticFunc<&keyOf<key::kButtonX>>("X");
    made->addStaticFunc<&keyOf<key::kButtonStart>>("START");
    GlobalClassTable::instance().registerClass(std::move(made));
}

void registerMouse()
{
    auto made = std::make_unique<SQClassDef<Mouse>>("Mouse");
    made->addStaticFunc<&constant<key::kMouseLeft>>("LEFT");
    made->addStaticFunc<&constant<key::kMouseRight>>("RIGHT");
    made->addStaticFunc<&pointer<&InputState::getPointerX>>("x");
    made->addStaticFunc<&pointer<&InputState::getPointerY>>("y");
    made->addStaticFunc<&isClick>("isClick");
    GlobalClassTable::instance().registerClass(std::move(made));
}

} // namespace varn
