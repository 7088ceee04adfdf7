#include "Game/Compiler/Objects.h"

#include "Game/Compiler/Heap.h"

#include <algorithm>
#include <bit>
#include <cstring>

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

/// Spreads what differs over all bits: half of the finalizer of A. Appleby's MurmurHash3 (64 bits).
std::uint64_t mix(std::uint64_t hash)
{
    hash *= 0xFF51AFD7ED558CCDU;
    return hash ^ hash >> 32;
}

constexpr std::size_t kStep = sizeof(std::uint64_t) / sizeof(char16_t);

std::uint64_t wordAt(WStringView text, std::size_t at)
{
    std::uint64_t word;
    std::memcpy(&word, text.data() + at, sizeof word);
    return word;
}

/// Four units at a step; the top bit is set, so that no text has the hash 0.
std::uint64_t hashOf(WStringView text)
{
    std::uint64_t hash = text.size();
    std::size_t i = 0;
    for (; i + kStep <= text.size(); i += kStep)
        hash = mix(hash ^ wordAt(text, i));
    std::uint64_t rest = 0;
    for (; i < text.size(); ++i)
        rest = rest << 16 | text[i];
    return mix(mix(hash ^ rest)) | std::uint64_t{1} << 63;
}

/// The same steps: keys are too short for a call of the library.
bool sameKey(WStringView a, WStringView b)
{
    if (a.size() != b.size())
        return false;
    std::size_t i = 0;
    for (; i + kStep <= a.size(); i += kStep)
        if (wordAt(a, i) != wordAt(b, i))
            return false;
    for (; i < a.size(); ++i)
        if (a[i] != b[i])
            return false;
    return true;
}

} // namespace

Map::Map() = default;
Map::~Map() = default;

std::size_t Map::slotFor(WStringView key, std::uint64_t hash) const
{
    const std::size_t mask = slots.size() - 1;
    std::size_t at = hash & mask;
    while (slots[at].hash != kFree && (slots[at].hash != hash || !sameKey(slots[at].key, key)))
        at = (at + 1) & mask;
    return at;
}

const OperandData* Map::find(WStringView key) const
{
    if (slots.empty())
        return nullptr;
    const Slot& slot = slots[slotFor(key, hashOf(key))];
    return slot.hash != kFree ? &slot.value : nullptr;
}

OperandData& Map::ensure(WStringView key)
{
    if (used * 4 >= slots.size() * 3)
        grow();
    const std::uint64_t hash = hashOf(key);
    Slot& slot = slots[slotFor(key, hash)];
    if (slot.hash == kFree) {
        slot.key = key;
        slot.hash = hash;
        bytes += key.size() * sizeof(char16_t);
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
        if (slot.hash == kFree)
            continue;
        std::size_t at = slot.hash & mask;
        while (slots[at].hash != kFree)
            at = (at + 1) & mask;
        slots[at] = std::move(slot);
    }
}

std::vector<WString> Map::sortedKeys() const
{
    std::vector<WString> keys;
    for (const Slot& slot : slots)
        if (slot.hash != kFree)
            keys.push_back(slot.key);
    std::sort(keys.begin(), keys.end());
    return keys;
}

void Map::trace(Marker& marker) const
{
    for (const Slot& slot : slots)
        marker.mark(slot.value);
}

} // namespace varn
