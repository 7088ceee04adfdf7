#pragma once

#include "Game/Compiler/OperandData.h"

#include <cstddef>
#include <memory>
#include <span>
#include <unordered_map>
#include <vector>

namespace varn {

class Heap;
class Marker;

/// First eight bytes of everything the Heap collects.
class HeapObject
{
  public:
    enum class Type : std::uint8_t
    {
        Free,
        String,
        Array,
        Table,
        Box
    };

    Type type = Type::Free;
    bool marked = false; ///< reached in the collection that runs; constants stay marked for good
    std::uint8_t sizeClass = 0; ///< 16-byte steps of the cell it lies in; 0: allocated on its own
    std::uint8_t flags = 0;
    std::uint32_t count = 0; ///< units used, elements, members: what the type counts
};

/// UTF-16 units that one or more String cells see a prefix of. Only appended to, never moved.
class StringBuffer : public HeapObject
{
  public:
    std::uint32_t capacity = 0; ///< in units

    char16_t* units() { return reinterpret_cast<char16_t*>(this + 1); }
    const char16_t* units() const { return reinterpret_cast<const char16_t*>(this + 1); }
};

/// The arrays of scripts: elements by index from 0. Two elements fit without a second block, as
/// most small arrays have.
class Array : public HeapObject
{
  public:
    static constexpr std::uint32_t kMaxLength = 0x7FFFFFFF;

    std::uint32_t size() const { return count; }
    OperandData* begin() { return elements; }
    OperandData* end() { return elements + count; }
    const OperandData* begin() const { return elements; }
    const OperandData* end() const { return elements + count; }
    OperandData& operator[](std::size_t index) { return elements[index]; }
    const OperandData& operator[](std::size_t index) const { return elements[index]; }

    /// Script methods without an allocation. `pop` of an empty array is "undefined".
    std::int32_t length() const { return static_cast<std::int32_t>(count); }
    OperandData pop();
    /// Position of the first element `==` to `value` from `from` on (a negative one counts as 0),
    /// or -1.
    std::int32_t indexOf(const OperandData& value, std::int32_t from) const;
    WString join(WStringView separator);

  private:
    friend class Heap;
    static constexpr std::uint32_t kInlineElements = 2;

    OperandData* elements = inlined;
    std::uint32_t capacity = kInlineElements;
    OperandData inlined[kInlineElements];
};

/// The plain object of scripts: values by member name. A name is its index in the name table of the
/// compilation. Members keep the order of their making; a few are found by looking, many by hash.
class MemberTable : public HeapObject
{
  public:
    struct Member
    {
        std::uint32_t name;
        OperandData value;
    };

    std::uint32_t size() const { return count; }
    /// The member at a position that another table had it at, or null: tables of one make agree.
    OperandData* at(std::uint32_t position, std::uint32_t name)
    {
        return position < count && members[position].name == name ? &members[position].value
                                                                  : nullptr;
    }
    /// Place of a member, or -1.
    int positionOf(std::uint32_t name) const;
    /// Null when there is no such member.
    OperandData* find(std::uint32_t name)
    {
        const int position = positionOf(name);
        return position < 0 ? nullptr : &members[static_cast<std::size_t>(position)].value;
    }
    /// The member, made "undefined" when new. The reference holds until the next member is made.
    OperandData& ensure(std::uint32_t name);

    std::span<const Member> all() const { return members; }
    /// Bytes beside the object itself.
    std::size_t footprint() const;

  private:
    static constexpr std::size_t kLookedThrough = 8;
    using Index = std::unordered_map<std::uint32_t, std::uint32_t>; // name to position

    std::vector<Member> members;
    std::unique_ptr<Index> index; // beyond kLookedThrough members
};

/// "Dictionary" of scripts: values by text. Hashed; `sortedKeys` gives the ordered face.
class Map
{
  public:
    Map();
    ~Map();
    Map(const Map&) = delete;
    Map& operator=(const Map&) = delete;

    int size() const { return static_cast<int>(used); }
    const OperandData* find(WStringView key) const;
    /// The value of a key, "undefined" when new. The reference holds until the next new key.
    OperandData& ensure(WStringView key);
    void set(WStringView key, const OperandData& value) { ensure(key) = value; }
    std::vector<WString> sortedKeys() const;
    /// Reports every value to the collector.
    void trace(Marker& marker) const;
    std::size_t footprint() const { return bytes; }

  private:
    static constexpr std::uint64_t kFree = 0; // no text has that hash
    struct Slot
    {
        std::uint64_t hash = kFree;
        WString key;
        OperandData value;
    };
    std::size_t slotFor(WStringView key, std::uint64_t hash) const;
    void grow();

    std::vector<Slot> slots; // size is a power of two
    std::size_t used = 0;
    std::size_t bytes = 0;
};

/// A native instance with its class, as cells of kind Object and UserPtr hold it.
class ObjectBox : public HeapObject
{
  public:
    ClassInterface* classInterface = nullptr;
    void* instance = nullptr;
};

inline WStringView OperandData::asText() const
{
    return {asBuffer()->units(), textLength()};
}

} // namespace varn
