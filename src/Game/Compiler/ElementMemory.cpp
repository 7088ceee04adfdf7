#include "Game/Compiler/ElementMemory.h"

#include <cstdlib>
#include <cstring>
#include <sys/mman.h>

namespace varn {
namespace {

void* usingLargePages(void* mapped, std::size_t bytes)
{
    if (mapped == MAP_FAILED)
        return nullptr;
    ::madvise(mapped, bytes, MADV_HUGEPAGE); // a wish: it may stay with small ones
    return mapped;
}

} // namespace

void* ElementMemory::allocate(std::size_t bytes)
{
    if (bytes < kMappedBytes)
        return std::calloc(1, bytes);
    return usingLargePages(
        ::mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0), bytes);
}

void* ElementMemory::grow(void* block, std::size_t before, std::size_t after)
{
    if (after < kMappedBytes)
        return std::realloc(block, after);
    if (before >= kMappedBytes)
        return usingLargePages(::mremap(block, before, after, MREMAP_MAYMOVE), after);
    void* mapped = allocate(after);
    if (mapped && block) {
        std::memcpy(mapped, block, before);
        std::free(block);
    }
    return mapped;
}

void ElementMemory::release(void* block, std::size_t bytes)
{
    if (bytes < kMappedBytes)
        std::free(block);
    else
        ::munmap(block, bytes);
}

} // namespace varn
