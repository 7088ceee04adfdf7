#include "Game/Compiler/classes/Classes.h"

#include "Game/Compiler/Interpreter.h"
#include "Game/Compiler/SQClassDef.h"
#include "Game/Compiler/classes/ArrayClass.h"
#include "Game/Compiler/classes/RectangleClass.h"
#include "Game/Compiler/classes/StringClass.h"

namespace varn {
namespace {

/// Sends the text of its argument to the trace listener.
void trace(Interpreter& vm)
{
    if (vm.getTop() > 0)
        vm.trace(vm.getString(0));
    vm.setReturn(OperandData::integer(0));
}

/// Types that are a name and nothing else.
template <class T>
void registerName(std::string_view name)
{
    GlobalClassTable::instance().registerClass(std::make_unique<SQClassDef<T>>(std::string(name)));
}

void registerAll()
{
    registerGlobalFunction("trace", &trace);
    registerName<MemberTable>("Object");
    registerName<Number>("Number");
    registerName<Integer>("int");
    registerString();
    registerArray();
    registerRectangle();
}

} // namespace

void registerStandardClasses()
{
    static const bool done = (registerAll(), true);
    static_cast<void>(done);
}

} // namespace varn
