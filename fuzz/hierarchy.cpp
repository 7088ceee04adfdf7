#include "Game/Map/MapHierarchy.h"

#include <cstddef>
#include <cstdint>

// Any bytes as "MapHierarchy.ini": entries that survive their own file, and a tree that can be taken
// apart from any of them.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const varn::WString text = varn::decodeBytes(std::as_bytes(std::span(data, size))).text;
    varn::MapDatabase().parse(text);
    varn::MapHierarchy tree;
    tree.parse(text);
    varn::MapHierarchy again;
    again.parse(tree.toText());
    const bool plain = text.find(u'\r') == varn::WString::npos;
    if (plain && !(again == tree))
        __builtin_trap();

    while (again.size() > 0 && again.size() < 200) {
        const std::size_t index = again.size() * 7 % again.size();
        again.move(index, again.parentOf(again.size() - 1));
        again.addFolder(index);
        again.remove(index);
        again.remove(again.size() - 1);
    }
    return 0;
}
