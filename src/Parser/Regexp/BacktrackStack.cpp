#include "Parser/Regexp/BacktrackStack.h"

#include <algorithm>

namespace varn::regexp {

bool BacktrackStack::grow(std::uint32_t count)
{
    const std::size_t most = std::min<std::size_t>(state.stackBytes / sizeof(Entry), kIndexMask);
    const std::size_t needed = std::size_t{top} + count;
    if (needed > most)
        return false;
    state.stack.resize(std::min(std::max(2 * state.stack.size(), needed), most));
    entries = state.stack.data();
    room = static_cast<std::uint32_t>(state.stack.size());
    return true;
}

void BacktrackStack::undo(std::uint32_t bottom)
{
    while (top != bottom) {
        const Entry& entry = entries[--top];
        if (entry.tag == Entry::Restore)
            restore(entry);
    }
}

void BacktrackStack::cut(std::uint32_t bottom)
{
    std::uint32_t to = bottom;
    for (std::uint32_t from = bottom; from != top; ++from)
        if (entries[from].tag == Entry::Restore)
            entries[to++] = entries[from];
    top = to;
}

} // namespace varn::regexp
