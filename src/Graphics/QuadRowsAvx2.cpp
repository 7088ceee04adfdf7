// Compiled for AVX2, without fused multiply-add: every step rounds as in the plain form.
#if defined(__AVX2__)

#include "Graphics/QuadRows.h"

#include <cmath>
#include <immintrin.h>

namespace varn::quadrows {

namespace {

constexpr std::size_t kLanes = 8;

/// Places along one axis in single precision, and whether any of them lies so near to a whole
/// number that its truncation is not sure.
struct Guess
{
    __m256i index;
    __m256 inside;
    bool isSure;
};

Guess guess(__m256 place, __m256 margin, __m256 size)
{
    const __m256 whole = _mm256_round_ps(place, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    const __m256 off = _mm256_andnot_ps(_mm256_set1_ps(-0.0F), _mm256_sub_ps(place, whole));
    // Also unsure where the place is no number.
    const __m256 sure = _mm256_cmp_ps(off, margin, _CMP_GE_OQ);
    const __m256 inside = _mm256_and_ps(_mm256_cmp_ps(place, _mm256_setzero_ps(), _CMP_GE_OQ),
                                        _mm256_cmp_ps(place, size, _CMP_LT_OQ));
    return {_mm256_cvttps_epi32(place), inside, _mm256_movemask_ps(sure) == 0xFF};
}

void store(std::int32_t* out, __m256i index, __m256 inside)
{
    const __m256i outside = _mm256_xor_si256(_mm256_castps_si256(inside), _mm256_set1_epi32(-1));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(out), _mm256_or_si256(index, outside));
}

WallRow from(const WallRow& row, std::size_t i)
{
    WallRow rest = row;
    rest.linear += i;
    rest.constant += i;
    rest.columns += i;
    rest.scale += i;
    rest.offset += i;
    rest.margin += i;
    return rest;
}

FloorRow from(const FloorRow& row, std::size_t i)
{
    FloorRow rest = row;
    rest.index += static_cast<int>(i);
    return rest;
}

/// Calls `work` with the first of eight places until all are done; the last eight may overlap those
/// before them.
template <class Work>
void forEachEight(std::size_t count, Work work)
{
    std::size_t i = 0;
    for (; i + kLanes <= count; i += kLanes)
        work(i);
    if (i < count && count >= kLanes)
        work(count - kLanes);
}

} // namespace

void wallRowAvx2(const WallRow& row, std::span<std::int32_t> out)
{
    const __m256 rowConstant = _mm256_set1_ps(static_cast<float>(row.rowConstant));
    const __m256 height = _mm256_set1_ps(static_cast<float>(row.height));
    const __m256i stride = _mm256_set1_epi32(row.width);
    forEachEight(out.size(), [&](std::size_t i) {
        const __m256 y = _mm256_add_ps(_mm256_mul_ps(rowConstant, _mm256_loadu_ps(row.scale + i)),
                                       _mm256_loadu_ps(row.offset + i));
        const Guess at = guess(y, _mm256_loadu_ps(row.margin + i), height);
        if (!at.isSure) {
            wallRowPlain(from(row, i), out.subspan(i, kLanes));
            return;
        }
        const __m256i x = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(row.columns + i));
        const __m256i index = _mm256_add_epi32(_mm256_mullo_epi32(at.index, stride), x);
        // A column outside the picture is all ones.
        store(out.data() + i, _mm256_or_si256(index, _mm256_srai_epi32(x, 31)), at.inside);
    });
    if (out.size() < kLanes)
        wallRowPlain(row, out);
}

void floorRowAvx2(const FloorRow& row, std::span<std::int32_t> out)
{
    const double step = (row.width - 1) / row.divisor;
    const double start = (row.first + row.index - row.shift) * step;
    const double largest =
        std::abs(step) * static_cast<double>(out.size()) + std::abs(start) + row.width;
    const __m256 steps = _mm256_set1_ps(static_cast<float>(step));
    const __m256 starts = _mm256_set1_ps(static_cast<float>(start));
    const __m256 margin = _mm256_set1_ps(static_cast<float>(largest * kRounding));
    const __m256 width = _mm256_set1_ps(static_cast<float>(row.width));
    const __m256i rowStart = _mm256_set1_epi32(row.rowStart);
    forEachEight(out.size(), [&](std::size_t i) {
        const __m256 column = _mm256_add_ps(_mm256_set1_ps(static_cast<float>(i)),
                                            _mm256_setr_ps(0, 1, 2, 3, 4, 5, 6, 7));
        const Guess at = guess(_mm256_add_ps(_mm256_mul_ps(column, steps), starts), margin, width);
        if (at.isSure)
            store(out.data() + i, _mm256_add_epi32(at.index, rowStart), at.inside);
        else
            floorRowPlain(from(row, i), out.subspan(i, kLanes));
    });
    if (out.size() < kLanes)
        floorRowPlain(row, out);
}

} // namespace varn::quadrows

#endif
