#include "Parser/Regexp/FailureMemory.h"

#include <algorithm>

namespace varn::regexp {

namespace {

constexpr std::size_t kLargestMemory = std::size_t{64} << 20; // bytes

} // namespace

void FailureMemory::start()
{
    const std::size_t words = row * program.memoryCount;
    if (remembering || words == 0 || words > kLargestMemory / sizeof(std::uint64_t))
        return;
    state.memory.assign(words, 0);
    remembering = true;
}

void FailureMemory::setFailed(std::uint32_t memory, int first, int last)
{
    std::uint64_t* const bits = state.memory.data() + (memory - 1) * row;
    for (auto place = static_cast<std::size_t>(first); place <= static_cast<std::size_t>(last);) {
        const std::size_t wordLast = std::min(static_cast<std::size_t>(last), place | 63);
        bits[place / 64] |= (~std::uint64_t{0} >> (63 - (wordLast - place))) << (place % 64);
        place = wordLast + 1;
    }
}

void FailureMemory::forgetAttempt()
{
    for (Stretch& stretch : state.stretches)
        if (stretch.attempt == state.attempt)
            stretch = {};
}

} // namespace varn::regexp
