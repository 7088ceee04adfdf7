#include "Game/Compiler/Interpreter.h"

#include "Game/Compiler/Compiler.h"
#include "Game/Compiler/InterpreterVM.h"
#include "Game/Compiler/SQClassDef.h"
#include "Util/Host.h"

#include <algorithm>
#include <cassert>

namespace varn {

using interpreter::InterpreterException;

NativeFrame::NativeFrame(NativeCall& call) : vm(call.vm), before(call.vm.call)
{
    vm.call = &call;
}

NativeFrame::~NativeFrame()
{
    vm.call = before;
}

Interpreter::Interpreter() : compiler(std::make_unique<Compiler>()) {}

Interpreter::~Interpreter()
{
    stop();
    values.clear();
}

void Interpreter::compile(WStringView name, WString text)
{
    machine.reset();
    values.clear();
    scriptName = name;
    compiler->compile(name, std::move(text),
                      loadGlobalScript ? Compiler::GlobalScript::Included
                                       : Compiler::GlobalScript::LeftOut);
    reset();
}

const Program* Interpreter::getProgram() const
{
    return compiler->getProgram();
}

void Interpreter::reset()
{
    using Contents = InterpreterVM::StackContents;
    call = nullptr;
    globalValues.clear();
    const Contents contents = values.isUntouched() ? Contents::Plain : Contents::HeapValues;
    values.clear();
    Program* program = compiler->getProgram();
    if (machine)
        machine->restart(contents);
    else if (program)
        machine = std::make_unique<InterpreterVM>(*this, values, *program, stopRequested);
}

int Interpreter::run()
{
    if (!machine)
        return static_cast<int>(RunResult::NoCode);
    try {
        execute();
    } catch (const InterpreterException& fault) {
        host().showMessage(fault.getMessage());
        return static_cast<int>(RunResult::Failed);
    }
    return static_cast<int>(machine->state() == InterpreterVM::State::Stopped ? RunResult::Stopped
                                                                              : RunResult::Ended);
}

bool Interpreter::step()
{
    return machine && machine->run(1) == InterpreterVM::State::Running;
}

bool Interpreter::execute()
{
    return execute(InterpreterVM::kUnlimited);
}

bool Interpreter::execute(std::uint64_t budget)
{
    return !machine || machine->run(budget) != InterpreterVM::State::Running;
}

const OperandData& Interpreter::getReturn() const
{
    static constexpr OperandData kNothing = OperandData::integer(0);
    return machine ? machine->global(0) : kNothing;
}

void Interpreter::setReturn(const OperandData& value)
{
    machine->global(0) = value;
}

void Interpreter::trace(WStringView text) const
{
    if (traceListener)
        traceListener(text);
}

const OperandData& Interpreter::getOperand(int index) const
{
    if (index < 0 || index >= getTop())
        throw InterpreterException(WString(interpreter::kInvalidArgumentCount));
    return call->arguments[index];
}

OperandData Interpreter::pop()
{
    assert(call->pushed);
    call->pushed = false;
    return call->result;
}

OperandData Interpreter::callFunction(const OperandData& function,
                                      std::span<const OperandData> arguments)
{
    return machine->callFunction(*function.asFunction(), arguments);
}

void Interpreter::setMember(MemberTable& table, std::string_view name, const OperandData& value)
{
    const auto& names = compiler->getProgram()->names;
    const auto found = std::find(names.begin(), names.end(), name);
    if (found != names.end())
        values.ensureMember(table, static_cast<std::uint32_t>(found - names.begin())) = value;
}

void Interpreter::markRoots(Marker& marker)
{
    machine->markRoots(marker);
    marker.mark(globalValues);
}

} // namespace varn
