#pragma once

#include <cstdint>

namespace varn {

/// The one random source of the program.
/// G. Marsaglia, "Xorshift RNGs", Journal of Statistical Software 8(14), 2003: the 128-bit generator.
class Random
{
  public:
    /// The next word of the stream. The first call seeds `w` from the clock unless `seed` was called.
    std::uint32_t word();
    /// The next word scaled to 0 to 1, both included.
    double randomUnit() { return word() * (1.0 / 4294967295.0); }
    /// A whole number from `min` to `max`, both included; the one word 0xFFFFFFFF yields `max + 1`.
    int range(int min, int max)
    {
        return static_cast<int>(randomUnit() * (static_cast<double>(max) - min + 1) + min);
    }

    /// Makes the stream repeatable: the other three words take their first values, `w` is `first`.
    void seed(std::uint32_t first);

  private:
    std::uint32_t x = 123456789, y = 362436069, z = 521288629, w = 0;
    bool seeded = false;
};

/// The program's stream, shared by generator, view and scripts.
Random& programRandom();

} // namespace varn
