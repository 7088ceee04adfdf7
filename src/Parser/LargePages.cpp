#include "Parser/LargePages.h"

#include <cstdint>
#include <sys/mman.h>

namespace varn {

void preferLargePages(void* memory, std::size_t bytes)
{
#ifdef MADV_HUGEPAGE
    constexpr std::uintptr_t kPage = std::uintptr_t{2} << 20;
    const auto begin = (reinterpret_cast<std::uintptr_t>(memory) + kPage - 1) & ~(kPage - 1);
    const auto end = (reinterpret_cast<std::uintptr_t>(memory) + bytes) & ~(kPage - 1);
    if (begin < end)
        ::madvise(reinterpret_cast<void*>(begin), end - begin, MADV_HUGEPAGE);
#else
    (void)memory;
    (void)bytes;
#endif
}

} // namespace varn
