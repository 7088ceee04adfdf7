#include "Game/Compiler/SQClassDef.h"
#include "Game/Compiler/classes/Registrations.h"

namespace varn {
namespace {

/// Constants of scripts, the values of a cell's facing.
struct ScriptDirection
{};

template <int value>
int constant()
{
    return value;
}

} // namespace

void registerDirection()
{
    auto made = std::make_unique<SQClassDef<ScriptDirection>>("Direction");
    made->addStaticFunc<&constant<1>>("NORTH");
    made->addStaticFunc<&constant<2>>("EAST");
    made->addStaticFunc<&constant<4>>("SOUTH");
    made->addStaticFunc<&constant<8>>("WEST");
    GlobalClassTable::instance().registerClass(std::move(made));
}

} // namespace varn
