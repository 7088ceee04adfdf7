#include "Game/Compiler/SQClassDef.h"
#include "Game/Compiler/classes/Registrations.h"

namespace varn {
namespace {

/// The value of a key, made when new; what it takes is told to the heap.
OperandData& ensure(Map& map, Heap& heap, WStringView key)
{
    const std::size_t before = map.footprint();
    OperandData& value = map.ensure(key);
    if (map.footprint() != before)
        heap.accountExternal(static_cast<std::ptrdiff_t>(map.footprint() - before));
    return value;
}

OperandData get(Map& map, NativeCall& call, WStringView key)
{
    return ensure(map, call.heap, key);
}

void set(Map& map, NativeCall& call, WStringView key, const OperandData& value)
{
    ensure(map, call.heap, key) = value;
}

WString toString(const Map&)
{
    return u"Dictionary";
}

} // namespace

void registerDictionary()
{
    auto made = std::make_unique<SQClassDef<Map>>("Dictionary");
    made->addFunc<&get>("get");
    made->addFunc<&set>("set");
    made->addFunc<&Map::size>("size");
    made->addFunc<&toString>("toString");
    GlobalClassTable::instance().registerClass(std::move(made));
}

} // namespace varn
