#pragma once

#include <cstdint>
#include <string_view>

namespace varn {

/// Sums of bytes by FNV-1a: G. Fowler, L. C. Noll, K.-P. Vo, D. Eastlake, "The FNV
/// Non-Cryptographic Hash Algorithm".
constexpr std::uint32_t fnv1a32(std::string_view bytes)
{
    std::uint32_t sum = 0x811C9DC5;
    for (const char byte : bytes)
        sum = (sum ^ static_cast<std::uint8_t>(byte)) * 0x01000193U;
    return sum;
}

constexpr std::uint64_t fnv1a64(std::string_view bytes)
{
    std::uint64_t sum = 0xCBF29CE484222325;
    for (const char byte : bytes)
        sum = (sum ^ static_cast<std::uint8_t>(byte)) * 0x00000100000001B3U;
    return sum;
}
static_assert(fnv1a32("a") == 0xE40C292C && fnv1a64("a") == 0xAF63DC4C8601EC8C);

} // namespace varn
