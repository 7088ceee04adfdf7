#include "Game/Compiler/Script.h"

#include "Game/Compiler/Program.h"
#include "Game/Compiler/classes/engine/Drawable.h"
#include "Input/InputState.h"

#include <algorithm>
#include <span>

namespace varn {

using interpreter::InterpreterException;

namespace {

std::vector<OperandData>::iterator findEqual(std::vector<OperandData>& values,
                                             const OperandData& wanted)
{
    return std::find_if(values.begin(), values.end(),
                        [&wanted](const OperandData& each) { return each.equals(wanted); });
}

bool addOnce(std::vector<OperandData>& values, const OperandData& value)
{
    if (findEqual(values, value) != values.end())
        return false;
    values.push_back(value);
    return true;
}

bool removeFirst(std::vector<OperandData>& values, const OperandData& value)
{
    const auto found = findEqual(values, value);
    if (found == values.end())
        return false;
    values.erase(found);
    return true;
}

using ListenerChange = bool (Script::*)(WStringView, const OperandData&);
using ChildChange = bool (Script::*)(const OperandData&);

void changeListeners(Interpreter& vm, ListenerChange change, WStringView function)
{
    if (vm.getTop() != 2 || vm.get_type(1) != ValueKind::Function)
        throw InterpreterException(WString(interpreter::kInvalidArgumentCount), WString(function));
    auto* script = dynamic_cast<Script*>(&vm);
    const bool done = script && (script->*change)(vm.getString(0), vm.getOperand(1));
    vm.setReturn(OperandData::boolean(done));
}

void changeChildren(Interpreter& vm, ChildChange change, WStringView function)
{
    if (vm.getTop() != 1 || !pictureOf(vm.getOperand(0)))
        throw InterpreterException(u"the parameter must be a Graphics or Image object.",
                                   WString(function));
    auto* script = dynamic_cast<Script*>(&vm);
    vm.setReturn(OperandData::boolean(script && (script->*change)(vm.getOperand(0))));
}

} // namespace

bool Script::addEventListener(WStringView event, const OperandData& function)
{
    return addOnce(eventListeners[WString(event)], function);
}

bool Script::removeEventListener(WStringView event, const OperandData& function)
{
    return removeFirst(eventListeners[WString(event)], function);
}

const std::vector<OperandData>& Script::listenersOf(WStringView event) const
{
    static const std::vector<OperandData> none;
    const auto found = eventListeners.find(event);
    return found == eventListeners.end() ? none : found->second;
}

bool Script::addChild(const OperandData& object)
{
    return addOnce(children, object);
}

bool Script::removeChild(const OperandData& object)
{
    return removeFirst(children, object);
}

void Script::reset()
{
    eventListeners.clear();
    children.clear();
    delivering = false;
    Interpreter::reset();
}

bool Script::nextFrame()
{
    if (!park())
        return false;
    if (!delivering && !eventListeners.empty()) {
        delivering = true;
        deliverEvents();
        delivering = false;
    }
    return true;
}

void Script::deliverEvents()
{
    const InputState* input = getServices().input;
    for (const InputEvent& each : input ? input->getEvents() : std::vector<InputEvent>())
        deliver(each.isClick() ? u"click" : u"keyDown", &each);
    deliver(u"enterFrame", nullptr);
}

/// A listener may add and remove others; those removed are called no more.
void Script::deliver(WStringView event, const InputEvent* input)
{
    for (const OperandData& each : std::vector(listenersOf(event))) {
        const auto& still = listenersOf(event);
        if (isStopRequested() ||
            std::none_of(still.begin(), still.end(),
                         [&each](const OperandData& kept) { return kept.equals(each); }))
            continue;
        const bool asks = each.asFunction()->parameters > 0;
        const OperandData told = asks ? describe(event, input) : OperandData();
        callFunction(each, std::span(&told, asks ? 1 : 0));
    }
}

OperandData Script::describe(WStringView event, const InputEvent* input)
{
    MemberTable* table = heap().makeTable();
    setMember(*table, "type", heap().makeString(event));
    if (input && input->isClick()) {
        setMember(*table, "x", OperandData::integer(input->x));
        setMember(*table, "y", OperandData::integer(input->y));
        setMember(*table, "button", OperandData::integer(input->key));
    } else if (input) {
        setMember(*table, "keyCode", OperandData::integer(input->key));
    }
    return OperandData::table(table);
}

void Script::markRoots(Marker& marker)
{
    Interpreter::markRoots(marker);
    marker.mark(children);
}

void addEventListenerNative(Interpreter& vm)
{
    changeListeners(vm, &Script::addEventListener, u"ScriptEngine::addEventListener");
}

void removeEventListenerNative(Interpreter& vm)
{
    changeListeners(vm, &Script::removeEventListener, u"ScriptEngine::removeEventListener");
}

void addChildNative(Interpreter& vm)
{
    changeChildren(vm, &Script::addChild, u"ScriptEngine::addChild");
}

void removeChildNative(Interpreter& vm)
{
    changeChildren(vm, &Script::removeChild, u"ScriptEngine::removeChild");
}

ScriptEngine& ScriptEngine::instance()
{
    static ScriptEngine engine;
    return engine;
}

void ScriptEngine::startEvent(WStringView name, WString text)
{
    auto script = std::make_unique<Script>();
    script->setServices(services);
    script->compile(name, std::move(text));
    script->start();
    script->waitUntilIdle();
    if (script->isRunning())
        scripts.push_back(std::move(script));
}

void ScriptEngine::signalFrame()
{
    if (services.input)
        services.input->beginFrame();
    for (const auto& script : scripts)
        script->resume();
    for (const auto& script : scripts)
        script->waitUntilIdle();
    std::erase_if(scripts, [](const auto& script) { return !script->isRunning(); });
}

} // namespace varn
