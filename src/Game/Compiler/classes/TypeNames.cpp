#include "Game/Compiler/SQClassDef.h"
#include "Game/Compiler/classes/Registrations.h"

namespace varn {

/// A type that is a name and nothing else.
template <class T>
static void registerName(std::string_view name)
{
    GlobalClassTable::instance().registerClass(std::make_unique<SQClassDef<T>>(std::string(name)));
}

void registerTypeNames()
{
    registerName<MemberTable>("Object");
    registerName<Number>("Number");
    registerName<Integer>("int");
}

} // namespace varn
