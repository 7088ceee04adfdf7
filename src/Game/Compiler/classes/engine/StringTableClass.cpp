#include "Game/Compiler/Interpreter.h"
#include "Game/Compiler/SQClassDef.h"
#include "Game/Compiler/classes/Registrations.h"
#include "Game/Database/StringTable.h"

namespace varn {
namespace {

struct ScriptStringTable
{};

StringTable* tableOf(const NativeCall& call)
{
    const auto& texts = call.vm.getServices().texts;
    return texts ? &texts() : nullptr;
}

WString get(NativeCall& call, WStringView key)
{
    StringTable* table = tableOf(call);
    return table ? table->get(key) : WString(key);
}

void set(NativeCall& call, WStringView key, WStringView text)
{
    if (StringTable* table = tableOf(call))
        table->set(key, text);
}

} // namespace

void registerStringTable()
{
    auto made = std::make_unique<SQClassDef<ScriptStringTable>>("StringTable");
    made->addStaticFunc<&get>("get");
    made->addStaticFunc<&set>("set");
    GlobalClassTable::instance().registerClass(std::move(made));
}

} // namespace varn
