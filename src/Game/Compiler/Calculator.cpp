#include "Game/Compiler/Calculator.h"

#include "Game/Compiler/InterpreterException.h"
#include "Game/Database/StoryTables.h"

#include <cassert>

namespace varn {

using interpreter::InterpreterException;

/// `_getArgs(i)` of the wrapped text: argument i.
static void getArgs(Interpreter& vm)
{
    if (vm.getTop() != 1 || vm.get_type(0) != ValueKind::Int)
        throw InterpreterException(u"vm->getTop() == 1 && vm->get_type(0) == VM_INT", u"_getArgs");
    const auto index = static_cast<std::size_t>(vm.getInt(0));
    if (index >= vm.globalValues.size())
        throw InterpreterException(u"the index " + toDecimal(vm.getInt(0)) +
                                       u" is out of range, the number of arguments is " +
                                       toDecimal(static_cast<std::int64_t>(vm.globalValues.size())),
                                   u"_getArgs");
    vm.setReturn(vm.globalValues[index]);
}

Calculator::Calculator(WStringView formula, std::size_t argumentCount, WStringView prefix)
    : slots(argumentCount)
{
    static const bool registered = (registerGlobalFunction("_getArgs", &getArgs), true);
    static_cast<void>(registered);
    for (Slot& slot : slots) {
        slot.box.type = HeapObject::Type::Box;
        slot.box.marked = true; // for good: no collector follows or frees it
    }
    interpreter.loadGlobalScript = false;
    interpreter.compile({}, wrap(formula, argumentCount, prefix));
}

WString Calculator::wrap(WStringView formula, std::size_t argumentCount, WStringView prefix)
{
    WString text;
    for (std::size_t i = 0; i < argumentCount; ++i) {
        const auto letter = static_cast<char16_t>(u'a' + i);
        text += WString(u"var ") + letter + u" = _getArgs(" +
                toDecimal(static_cast<std::int64_t>(i)) + u");";
    }
    text += prefix;
    if (formula.find(u';') == WStringView::npos)
        return text.append(u"_ret = ").append(formula).append(u"; ");
    return text.append(u"function __formula() {")
        .append(formula)
        .append(u"; } _ret = __formula();");
}

void Calculator::fill(Slot& slot, const FormulaArg& argument) const
{
    if (slot.className != argument.className) {
        slot.className = argument.className;
        slot.box.classInterface = GlobalClassTable::instance().find(narrow(argument.className));
    }
    assert(slot.box.classInterface && argument.instance);
    slot.box.instance = argument.instance;
}

int Calculator::calculate(std::span<const FormulaArg> arguments)
{
    assert(arguments.size() == slots.size());
    interpreter.reset();
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        fill(slots[i], arguments[i]);
        interpreter.globalValues.push_back(OperandData::object(ValueKind::UserPtr, &slots[i].box));
    }
    struct Running
    {
        explicit Running(bool& flag) : flag(flag) { flag = true; }
        ~Running() { flag = false; }
        bool& flag;
    };
    const Running here(running);
    interpreter.execute();
    return interpreter.getReturn().toInt();
}

CalculatorManager& CalculatorManager::instance()
{
    static CalculatorManager manager;
    return manager;
}

int CalculatorManager::calculate(std::int64_t row, std::span<const FormulaArg> arguments,
                                 WStringView prefix)
{
    const FormulaData* data = FormulaDatabase::instance().find(row);
    return data ? evaluate(data->getFormula(), arguments, prefix) : -1;
}

int CalculatorManager::evaluate(WStringView formula, std::span<const FormulaArg> arguments,
                                WStringView prefix)
{
    auto found = interpreters.find(Sought{formula, arguments.size(), prefix});
    if (found == interpreters.end()) {
        auto made = std::make_unique<Calculator>(formula, arguments.size(), prefix);
        found = interpreters
                    .emplace(Wrapped{WString(formula), arguments.size(), WString(prefix)},
                             std::move(made))
                    .first;
    }
    Calculator& calculator = *found->second;
    if (!calculator.isRunning())
        return calculator.calculate(arguments);
    return Calculator(formula, arguments.size(), prefix).calculate(arguments);
}

} // namespace varn
