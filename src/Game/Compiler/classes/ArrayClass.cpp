#include "Game/Compiler/Interpreter.h"
#include "Game/Compiler/SQClassDef.h"
#include "Game/Compiler/classes/Registrations.h"

#include <algorithm>

namespace varn {
namespace {

std::span<const OperandData> argumentsOf(const Interpreter& vm, int from = 0)
{
    if (from >= vm.getTop())
        return {};
    return {&vm.getOperand(from), static_cast<std::size_t>(vm.getTop() - from)};
}

/// One int is a length, anything else the elements.
int construct(Array& array, Interpreter& vm)
{
    const bool isLength = vm.getTop() == 1 && vm.get_type(0) == ValueKind::Int;
    if (isLength)
        vm.heap().resize(array, vm.getInt(0));
    else
        vm.heap().append(array, argumentsOf(vm));
    return 0;
}

/// A start at or beyond the end is 0; a negative one counts from the end.
OperandData splice(Array& array, Interpreter& vm)
{
    if (vm.getTop() == 0)
        throw interpreter::InterpreterException(u"Not enough arguments.", u"Array<OBJECT>::splice");
    const std::int64_t size = array.size();
    std::int64_t start = vm.getInt(0);
    if (start >= size)
        start = 0;
    else if (start < 0)
        start = std::max<std::int64_t>(size + start, 0);
    const std::int64_t wanted = vm.getTop() > 1 ? vm.getInt(1) : 0;
    const auto count =
        static_cast<std::uint32_t>(std::clamp<std::int64_t>(wanted, 0, size - start));
    const auto position = static_cast<std::uint32_t>(start);
    Array* removed = vm.heap().makeArray(std::span(array.begin() + position, count));
    vm.heap().replace(array, position, count, argumentsOf(vm, 2));
    return OperandData::array(removed);
}

/// A copy of the receiver and the arguments behind it, arrays by their elements.
OperandData concat(Array& array, Interpreter& vm)
{
    Array* joined = vm.heap().makeArray(std::span<const OperandData>(array.begin(), array.end()));
    for (const OperandData& each : argumentsOf(vm)) {
        if (each.is(ValueKind::Array))
            vm.heap().append(*joined, std::span<const OperandData>(each.asArray()->begin(),
                                                                   each.asArray()->end()));
        else
            vm.heap().push(*joined, each);
    }
    return OperandData::array(joined);
}

OperandData indexOf(Array& array, Interpreter& vm)
{
    if (vm.getTop() == 0)
        return OperandData::integer(0);
    const bool hasFrom = vm.getTop() > 1 && vm.get_type(1) == ValueKind::Int;
    return OperandData::integer(array.indexOf(vm.getOperand(0), hasFrom ? vm.getInt(1) : 0));
}

/// The new length.
int push(Array& array, NativeCall& call, const OperandData& value)
{
    call.heap.push(array, value);
    return array.length();
}

WString toString(Array& array)
{
    return array.join(u",");
}

} // namespace

void registerArray()
{
    auto made = std::make_unique<SQClassDef<Array>>("Array");
    made->addFunc<&construct>("constructor");
    made->addFunc<&splice>("splice");
    made->addFunc<&concat>("concat");
    made->addFunc<&indexOf>("indexOf");
    made->addFunc<&Array::length>("length");
    made->addFunc<&Array::join>("join");
    made->addFunc<&push>("push");
    made->addFunc<&Array::pop>("pop");
    made->addFunc<&toString>("toString");
    GlobalClassTable::instance().registerClass(std::move(made));
}

} // namespace varn
