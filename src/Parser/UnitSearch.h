#pragma once

#include "Util/Text.h"

#include <bit>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace varn {

/// Searches over UTF-16 units, eight at a time where the processor has SSE2. Each gives the place
/// of the first hit, or `end`; nothing behind `end` is read.

/// What a search looks for: any of a few units. Tests one, or eight at once (all ones: a hit).
template <std::size_t N>
struct AnyUnitOf
{
    char16_t units[N];

    bool operator()(char16_t unit) const
    {
        bool hit = false;
        for (const char16_t wanted : units)
            hit |= unit == wanted;
        return hit;
    }
#ifdef __SSE2__
    __m128i operator()(__m128i eight) const
    {
        __m128i hits = _mm_setzero_si128();
        for (const char16_t wanted : units)
            hits = _mm_or_si128(hits,
                                _mm_cmpeq_epi16(eight, _mm_set1_epi16(static_cast<short>(wanted))));
        return hits;
    }
#endif
};

template <class Match>
inline const char16_t* search(const char16_t* at, const char16_t* end, Match match)
{
#ifdef __SSE2__
    for (; end - at >= 8; at += 8) {
        const __m128i hits = match(_mm_loadu_si128(reinterpret_cast<const __m128i*>(at)));
        if (const auto mask = static_cast<unsigned>(_mm_movemask_epi8(hits)); mask != 0)
            return at + std::countr_zero(mask) / 2;
    }
#endif
    while (at != end && !match(*at))
        ++at;
    return at;
}

inline const char16_t* findEither(const char16_t* at, const char16_t* end, char16_t a, char16_t b)
{
    return search(at, end, AnyUnitOf<2>{a, b});
}

inline const char16_t* findUnit(const char16_t* at, const char16_t* end, char16_t unit)
{
    return search(at, end, AnyUnitOf<1>{unit});
}

/// The first place where `twice`, `twice`, `last` stand: "]]>", "-->".
inline const char16_t* findTriple(const char16_t* at, const char16_t* end, char16_t twice,
                                  char16_t last)
{
    if (end - at < 3)
        return end;
    const char16_t* hit = findUnit(at + 2, end, last);
    while (hit != end && (hit[-1] != twice || hit[-2] != twice))
        hit = findUnit(hit + 1, end, last);
    return hit == end ? end : hit - 2;
}

} // namespace varn
