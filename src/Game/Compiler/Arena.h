#pragma once

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
    }

  private:
    static constexpr std::size_t kAlignment = 8;
    static constexpr std::size_t kChunk = std::size_t{64} << 10;

    void addChunk(std::size_t atLeast)
    {
        const std::size_t size = atLeast > kChunk ? atLeast : kChunk;
        chunks.emplace_back(new std::byte[size]);
        at = chunks.back().get();
        end = at + size;
    }

    std::vector<std::unique_ptr<std::byte[]>> chunks;
    std::byte* at = nullptr;
    std::byte* end = nullptr;
};

} // namespace varn
