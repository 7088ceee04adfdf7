#pragma once

#include <bit>
#include <cstdint>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

/// Eight UTF-16 units at a time. Lanes come out as a mask of two bits a unit, the first unit
/// lowest. Where the processor has no such registers a group is one unit.
namespace varn::regexp::vector {

#if defined(__SSE2__)

using Units = __m128i;
inline constexpr std::ptrdiff_t kLanes = 8;
inline constexpr unsigned kAllLanes = 0xFFFF;

inline Units load(const char16_t* from)
{
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
}
inline Units repeat(char16_t unit)
{
    return _mm_set1_epi16(static_cast<short>(unit));
}
inline Units isEqual(Units a, Units b)
{
    return _mm_cmpeq_epi16(a, b);
}
/// first <= unit <= first + span
inline Units isWithin(Units units, Units first, Units span)
{
    const Units offset = _mm_sub_epi16(units, first);
    return _mm_cmpeq_epi16(_mm_subs_epu16(offset, span), _mm_setzero_si128());
}
inline Units either(Units a, Units b)
{
    return _mm_or_si128(a, b);
}
inline Units both(Units a, Units b)
{
    return _mm_and_si128(a, b);
}
inline unsigned lanesOf(Units hits)
{
    return static_cast<unsigned>(_mm_movemask_epi8(hits));
}

#else

using Units = std::uint16_t;
inline constexpr std::ptrdiff_t kLanes = 1;
inline constexpr unsigned kAllLanes = 3;

inline Units load(const char16_t* from)
{
    return *from;
}
inline Units repeat(char16_t unit)
{
    return unit;
}
inline Units isEqual(Units a, Units b)
{
    return a == b ? 0xFFFF : 0;
}
inline Units isWithin(Units units, Units first, Units span)
{
    return static_cast<Units>(units - first) <= span ? 0xFFFF : 0;
}
inline Units either(Units a, Units b)
{
    return a | b;
}
inline Units both(Units a, Units b)
{
    return a & b;
}
inline unsigned lanesOf(Units hits)
{
    return hits & 3u;
}

#endif

/// Place of the first lane of a mask that is not 0.
inline std::ptrdiff_t firstLane(unsigned lanes)
{
    return std::countr_zero(lanes) / 2;
}

} // namespace varn::regexp::vector
