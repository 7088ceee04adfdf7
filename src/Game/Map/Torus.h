#pragma once

#include <cstdint>

namespace varn {

/// The place of `value` on a ring of `size` places: 0 to size - 1, for negative values too.
inline int wrapOnRing(std::int64_t value, int size)
{
    if (value >= 0 && value < size)
        return static_cast<int>(value); // nearly always; a division costs more than all the rest
    const auto rest = static_cast<int>(value % size);
    return rest < 0 ? rest + size : rest;
}

} // namespace varn
