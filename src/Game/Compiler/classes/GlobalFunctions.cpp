#include "Game/Compiler/Interpreter.h"
#include "Game/Compiler/classes/Registrations.h"
#include "Util/Host.h"

#include <stdexcept>

namespace varn {
namespace {

/// Shows the text of its argument in a message box.
void showBox(Interpreter& vm)
{
    if (vm.getTop() > 0)
        host().showMessage(vm.getString(0));
    vm.setReturn(OperandData::integer(0));
}

/// Sends the text of its argument to the trace listener.
void trace(Interpreter& vm)
{
    if (vm.getTop() > 0)
        vm.trace(vm.getString(0));
    vm.setReturn(OperandData::integer(0));
}

/// Stands in the table for those who list its names: the compiler turns the call into the end of
/// the run.
void exitRun(Interpreter&) {}

/// One of the values that were handed to a formula.
void getArgs(Interpreter& vm)
{
    if (vm.getTop() != 1 || vm.get_type(0) != ValueKind::Int)
        throw interpreter::InterpreterException(u"vm->getTop() == 1 && vm->get_type(0) == VM_INT");
    const auto index = static_cast<std::size_t>(vm.getInt(0)); // a negative one is far outside
    if (index >= vm.globalValues.size())
        throw std::out_of_range("invalid vector subscript");
    vm.setReturn(vm.globalValues[index]);
}

} // namespace

void registerGlobalFunctions()
{
    registerGlobalFunction("MB", &showBox);
    registerGlobalFunction("trace", &trace);
    registerGlobalFunction("exit", &exitRun);
    registerGlobalFunction("_getArgs", &getArgs);
}

} // namespace varn
