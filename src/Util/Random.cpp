#include "Util/Random.h"

#include <chrono>
#include <random>

namespace varn {

namespace {

/// The first `w`: one step of a 48-bit congruential generator whose state was multiplied by a
/// number that comes from the time of day. The clock of the run would not do: it starts alike each
/// time.
std::uint32_t firstWordFromTime()
{
    using namespace std::chrono;
    constexpr std::uint64_t kMask48 = (std::uint64_t{1} << 48) - 1;
    const auto now = duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
    std::minstd_rand platform(static_cast<std::uint32_t>(now));
    std::uint64_t state = 0x1234ABCD330E;
    state = state * platform() & kMask48;
    state = (state * 0x5DEECE66D + 11) & kMask48;
    return static_cast<std::uint32_t>(state >> 17) & 0x7FFFFFFF;
}

} // namespace

std::uint32_t Random::word()
{
    if (!seeded)
        seed(firstWordFromTime());
    const std::uint32_t t = x ^ (x << 11);
    x = y;
    y = z;
    z = w;
    w = w ^ (w >> 19) ^ t ^ (t >> 8);
    return w;
}

void Random::seed(std::uint32_t first)
{
    *this = Random();
    w = first;
    seeded = true;
}

Random& programRandom()
{
    static Random random;
    return random;
}

} // namespace varn
