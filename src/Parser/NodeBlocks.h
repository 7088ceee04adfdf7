#pragma once

#include "Parser/Element.h"

#include <cstddef>

namespace varn {

/// The attributes of one element: a header with `capacity` entries behind it.
struct Element::AttributeList
{
    std::size_t count;
    std::size_t capacity;

    /// A list in `home` that begins as a copy of `items`; `capacity` is at least its size.
    static AttributeList* make(NodeArena::Blocks& home, std::span<const Attribute> items,
                               std::size_t capacity);
    Attribute* items() { return reinterpret_cast<Attribute*>(this + 1); }
};
static_assert(alignof(Attribute) <= alignof(std::size_t));

/// The memory behind an arena: blocks that are filled from front to back and freed together. Nodes
/// and attributes have no destructors, so nothing is walked when they go.
struct NodeArena::Blocks
{
    static constexpr std::size_t kFirstBlock = std::size_t{2} << 10;
    static constexpr std::size_t kLargestBlock = std::size_t{16} << 20;

    NodeArena* arena = nullptr;        ///< follows the arena when that is moved
    WString document;                  ///< a parsed text that nodes view
    std::unique_ptr<std::byte[]> file; ///< or the bytes of a UTF-16 file that they view

    /// `bytes` of memory aligned for any node; stays until the arena goes.
    void* allocate(std::size_t bytes)
    {
        bytes = roundUp(bytes);
        if (bytes > static_cast<std::size_t>(limit - at))
            return allocateInNewBlock(bytes);
        void* const taken = at;
        at += bytes;
        return taken;
    }

    /// Room for a text of at most `units`, which `finishText` cuts to what was written. Nothing may
    /// be allocated in between.
    char16_t* beginText(std::size_t units)
    {
        return static_cast<char16_t*>(allocate(units * sizeof(char16_t)));
    }
    WStringView finishText(char16_t* begin, const char16_t* end);

    /// The next block is made large enough for about `bytes` of nodes and texts.
    void expect(std::size_t bytes);
    void reset();
    WStringView keep(WStringView text);

  private:
    struct Block
    {
        std::unique_ptr<std::byte[]> memory;
        std::size_t size;
    };

    static constexpr std::size_t roundUp(std::size_t bytes)
    {
        return (bytes + alignof(void*) - 1) & ~(alignof(void*) - 1);
    }
    void* allocateInNewBlock(std::size_t bytes);

    std::vector<Block> blocks;
    std::byte* front = nullptr; // of the block being filled
    std::byte* at = nullptr;
    std::byte* limit = nullptr;
    std::size_t nextSize = kFirstBlock;
};

} // namespace varn
