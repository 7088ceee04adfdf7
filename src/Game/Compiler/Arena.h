#pragma once

#include "Parser/LargePages.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>
#include <utility>
#include <vector>

namespace varn {

/// Memory that is taken piece by piece and given back as a whole: tree nodes, symbols, constants.
/// What is made in it needs no destructor.
class Arena
{
  public:
    Arena() = default;
    Arena(Arena&&) = default;
    Arena& operator=(Arena&&) = default;

    /// Aligned for any pointer or double.
    void* allocate(std::size_t size)
    {
        size = (size + kAlignment - 1) / kAlignment * kAlignment;
        if (size > static_cast<std::size_t>(end - at))
            addChunk(size);
        std::byte* place = at;
        at += size;
        return place;
    }
    template <class T, class... Arguments>
    T* make(Arguments&&... arguments)
    {
        static_assert(std::is_trivially_destructible_v<T> && alignof(T) <= kAlignment);
        return new (allocate(sizeof(T))) T{std::forward<Arguments>(arguments)...};
    }
    void clear()
    {
        chunks.clear();
        at = end = nullptr;
        nextChunk = kFirstChunk;
    }

  private:
    static constexpr std::size_t kAlignment = 8;
    static constexpr std::size_t kFirstChunk = std::size_t{4} << 10;
    static constexpr std::size_t kLargestChunk = std::size_t{8} << 20;

    /// Each chunk is twice the one before: little for a formula, large pages for a long script.
    void addChunk(std::size_t atLeast)
    {
        const std::size_t size = std::max(atLeast, nextChunk);
        nextChunk = std::min(nextChunk * 2, kLargestChunk);
        chunks.emplace_back(new std::byte[size]);
        at = chunks.back().get();
        end = at + size;
        preferLargePages(at, size);
    }

    std::vector<std::unique_ptr<std::byte[]>> chunks;
    std::byte* at = nullptr;
    std::byte* end = nullptr;
    std::size_t nextChunk = kFirstChunk;
};

} // namespace varn
