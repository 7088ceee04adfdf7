#include "Parser/TagIndex.h"

namespace varn {

namespace {

std::size_t hashOf(WStringView name)
{
    // FNV-1a over units: G. Fowler, L. C. Noll, K.-P. Vo, 1991.
    std::uint64_t hash = 14695981039346656037u;
    for (const char16_t unit : name)
        hash = (hash ^ unit) * 1099511628211u;
    return static_cast<std::size_t>(hash ^ hash >> 32);
}

} // namespace

/// Where the name stands, or the free slot where it belongs.
std::size_t TagIndex::slotOf(WStringView name) const
{
    std::size_t slot = hashOf(name) & (slots.size() - 1);
    while (slots[slot] != 0 && entries[slots[slot] - 1].name != name)
        slot = (slot + 1) & (slots.size() - 1);
    return slot;
}

std::span<Element* const> TagIndex::find(WStringView tagName) const
{
    if (entries.empty())
        return {};
    const std::uint32_t number = slots[slotOf(tagName)];
    return number == 0 ? std::span<Element* const>() : entries[number - 1].elements;
}

TagIndex::Entry& TagIndex::findOrMake(WStringView name)
{
    if (entries.size() * 2 >= slots.size())
        enlarge();
    std::uint32_t& number = slots[slotOf(name)];
    if (number == 0) {
        entries.push_back({name, {}});
        number = static_cast<std::uint32_t>(entries.size());
    }
    last = number - 1;
    return entries[last];
}

void TagIndex::enlarge()
{
    slots.assign(slots.empty() ? 32 : slots.size() * 2, 0);
    for (std::size_t i = 0; i < entries.size(); ++i)
        slots[slotOf(entries[i].name)] = static_cast<std::uint32_t>(i + 1);
}

} // namespace varn
