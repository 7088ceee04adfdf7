#include "Game/Compiler/ClassInterface.h"

namespace varn {

ClassInterface::~ClassInterface() = default;

WString ClassInterface::getClassName() const
{
    return widen(name);
}

WString ClassInterface::toString(const void*) const
{
    return getClassName();
}

bool ClassInterface::compare(const void* a, const void* b) const
{
    if (a == b)
        return true;
    return a && b && comparator && comparator->equal(a, b);
}

std::vector<std::string> ClassInterface::getMethodNames(Methods which) const
{
    std::vector<std::string> names;
    for (const auto& [method, first] : methods) {
        const bool wanted = which == Methods::All || first->isStatic == (which == Methods::Static);
        if (wanted && !first->hidden && method != "constructor")
            names.push_back(method);
    }
    return names;
}

bool ClassInterface::isStatic(std::string_view method) const
{
    const NativeFunction* found = findMethod(method);
    return found && found->isStatic;
}

bool ClassInterface::hasMethod(std::string_view method) const
{
    return findMethod(method) != nullptr;
}

bool ClassInterface::call(NativeCall& call, std::string_view method)
{
    return (isStatic(method) || isInstance(call.receiver)) && invoke(call, method);
}

bool ClassInterface::invoke(NativeCall& call, std::string_view method)
{
    for (const NativeFunction* each = findMethod(method); each; each = each->next) {
        if (!each->accepts(call.count))
            continue;
        each->thunk(call);
        return true;
    }
    return false;
}

void ClassInterface::trace(const void*, Marker&) const {}

std::size_t ClassInterface::footprint(const void*) const
{
    return 0;
}

const NativeFunction* ClassInterface::findMethod(std::string_view method) const
{
    const auto found = methods.find(method);
    return found == methods.end() ? nullptr : found->second;
}

void ClassInterface::addMethod(NativeFunction method)
{
    NativeFunction* added =
        owned.emplace_back(std::make_unique<NativeFunction>(std::move(method))).get();
    NativeFunction*& first = methods[added->name];
    if (!first || added->isStatic)
        first = added;
    else
        first->next = added;
}

GlobalClassTable& GlobalClassTable::instance()
{
    static GlobalClassTable table;
    return table;
}

void GlobalClassTable::registerClass(std::unique_ptr<ClassInterface> made)
{
    const auto [place, added] = byName.try_emplace(made->scriptName(), entries.size());
    if (added) {
        entries.push_back(std::move(made));
        return;
    }
    std::swap(entries[place->second], made);
    replaced.push_back(std::move(made));
}

ClassInterface* GlobalClassTable::find(std::string_view name) const
{
    const auto found = byName.find(name);
    return found == byName.end() ? nullptr : entries[found->second].get();
}

static std::map<std::string, GlobalFunction, std::less<>>& globalFunctions()
{
    static std::map<std::string, GlobalFunction, std::less<>> table;
    return table;
}

void registerGlobalFunction(std::string_view name, GlobalFunction function)
{
    globalFunctions().insert_or_assign(std::string(name), function);
}

GlobalFunction findGlobalFunction(std::string_view name)
{
    const auto found = globalFunctions().find(name);
    return found == globalFunctions().end() ? nullptr : found->second;
}

std::vector<std::string> globalFunctionNames()
{
    std::vector<std::string> names;
    for (const auto& entry : globalFunctions())
        names.push_back(entry.first);
    return names;
}

} // namespace varn
