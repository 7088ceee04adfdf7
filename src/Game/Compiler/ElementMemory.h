#pragma once

#include <cstddef>

namespace varn {

/// Memory for the elements of arrays. Small blocks come from the C library; from kMappedBytes on a
/// block is mapped by itself, in large pages where the system has them: a walk across a long array
/// then misses far fewer address translations, and growing moves no contents.
class ElementMemory
{
  public:
    static constexpr std::size_t kMappedBytes = std::size_t{4} << 20;

    /// Zeroed; null when there is none.
    static void* allocate(std::size_t bytes);
    /// The block with its contents, larger; null when there is none, and the old block stands.
    static void* grow(void* block, std::size_t before, std::size_t after);
    static void release(void* block, std::size_t bytes);
};

} // namespace varn
