#include "Game/Compiler/Objects.h"

#include "Game/Compiler/Heap.h"

#include <algorithm>
#include <bit>

namespace varn {

OperandData Array::pop()
{
    return count == 0 ? OperandData() : elements[--count];
}

std::int32_t Array::indexOf(const OperandData& value, std::int32_t from) const
{
    for (std::uint32_t i = static_cast<std::uint32_t>(std::max(from, 0)); i < count; ++i)
        if (elements[i].equals(value))
            return static_cast<std::int32_t>(i);
    return -1;
}

int MemberTable::positionOf(std::uint32_t name) const
{
    if (index) {
        const auto found = index->find(name);
        return found == index->end() ? -1 : static_cast<int>(found->second);
    }
    for (std::size_t i = 0; i < members.size(); ++i)
        if (members[i].name == name)
            return static_cast<int>(i);
    return -1;
}

OperandData& MemberTable::ensure(std::uint32_t name)
{
    if (OperandData* known = find(name))
        return *known;
    members.push_back({name, {}});
    count = static_cast<std::uint32_t>(members.size());
    if (members.size() == kLookedThrough + 1) {
        index = std::make_unique<Index>();
        for (std::uint32_t i = 0; i < count; ++i)
            index->emplace(members[i].name, i);
    } else if (index) {
        index->emplace(name, count - 1);
    }
    return members.back().value;
}

std::size_t MemberTable::footprint() const
{
    constexpr std::size_t kIndexed = 48; // of an entry of the index, about
    return members.capacity() * sizeof(Member) + (index ? members.size() * kIndexed : 0);
}

namespace {

constexpr std::size_t kFirstSlots = 16;

/// G. Fowler, L. C. Noll, K.-P. Vo: the FNV-1a hash, over units, with a final spreading of the high
/// bits that the power-of-two table looks at.
std::uint64_t hashOf(WStringView text)
{
    std::uint64_t hash = 0xCBF29CE484222325U;
    for (const char16_t unit : text)
        hash = (hash ^ unit) * 0x100000001B3U;
    return hash ^ hash >> 32;
}

} // namespace

Map::Map() = default;
Map::~Map() = default;

std::size_t Map::slotFor(WStringView key, std::uint64_t hash) const
{
    const std::size_t mask = slots.size() - 1;
    std::size_t at = hash & mask;
    while (slots[at].key && (slots[at].hash != hash || *slots[at].key != key))
        at = (at + 1) & mask;
    return at;
}

const OperandData* Map::find(WStringView key) const
{
    if (slots.empty())
        return nullptr;
    const Slot& slot = slots[slotFor(key, hashOf(key))];
    return slot.key ? &slot.value : nullptr;
}

OperandData& Map::ensure(WStringView key)
{
    if (used * 4 >= slots.size() * 3)
        grow();
    const std::uint64_t hash = hashOf(key);
    Slot& slot = slots[slotFor(key, hash)];
    if (!slot.key) {
        slot.key = std::make_unique<WString>(key);
        slot.hash = hash;
        bytes += sizeof(WString) + key.size() * sizeof(char16_t);
        ++used;
    }
    return slot.value;
}

void Map::grow()
{
    std::vector<Slot> before(slots.empty() ? kFirstSlots : slots.size() * 2);
    before.swap(slots);
    bytes += (slots.size() - before.size()) * sizeof(Slot);
    const std::size_t mask = slots.size() - 1;
    for (Slot& slot : before) {
        if (!slot.key)
            continue;
        std::size_t at = slot.hash & mask;
        while (slots[at].key)
            at = (at + 1) & mask;
        slots[at] = std::move(slot);
    }
}

std::vector<WString> Map::sortedKeys() const
{
    std::vector<WString> keys;
    for (const Slot& slot : slots)
        if (slot.key)
            keys.push_back(*slot.key);
    std::sort(keys.begin(), keys.end());
    return keys;
}

void Map::trace(Marker& marker) const
{
    for (const Slot& slot : slots)
        marker.mark(slot.value);
}

} // namespace varn
