#pragma once

#include "Util/AsciiRun.h"

#include <algorithm>
#include <string>

namespace varn {

/// Copies the characters below 128 at the front from one width to another; gives their count.
template <typename To, typename From>
std::size_t copyAscii(const From* from, std::size_t count, To* to)
{
    constexpr std::size_t kBlock = 16 / sizeof(From);
    std::size_t at = 0;
    while (at + kBlock <= count && isAsciiBlock(from + at)) {
        for (std::size_t i = 0; i < kBlock; ++i) // a constant count: vector instructions
            to[at + i] = static_cast<To>(static_cast<std::make_unsigned_t<From>>(from[at + i]));
        at += kBlock;
    }
    for (; at < count && static_cast<std::make_unsigned_t<From>>(from[at]) < 0x80; ++at)
        to[at] = static_cast<To>(from[at]);
    return at;
}

/// Converts a text slice by slice through a block that stays in the nearest cache, so that large
/// texts are written to memory once and short ones allocate what they need.
///
/// @tparam most  characters that one of the source can become, at most
/// @param convert  `To* convert(std::size_t& at, std::size_t sliceEnd, To* out)`: converts from
/// `at` up
///                 to `sliceEnd` or some few characters farther, moves `at` there, gives the end of
///                 what it wrote
template <typename To, std::size_t most, typename Convert>
std::basic_string<To> convertBySlices(std::size_t size, Convert convert)
{
    constexpr std::size_t kSlice = 512, kFarther = 8;
    To block[(kSlice + kFarther) * most];
    std::basic_string<To> result;
    if (size > kSlice)
        result.reserve(size * most);
    for (std::size_t at = 0; at < size;) {
        To* end = convert(at, std::min(at + kSlice, size), static_cast<To*>(block));
        result.append(block, static_cast<std::size_t>(end - block));
    }
    return result;
}

} // namespace varn
