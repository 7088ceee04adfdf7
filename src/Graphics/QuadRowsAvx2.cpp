// Compiled for AVX2, without fused multiply-add: every step rounds as in the plain form.
#if defined(__AVX2__)

#include "Graphics/QuadRows.h"

#include <immintrin.h>

namespace varn::quadrows {

namespace {

/// Indices of four places along one axis: the truncated value, or all ones where it is not in 0 to
/// below `size`.
__m128i indicesOf(__m256d place, __m256d size)
{
    const __m256d inside = _mm256_and_pd(_mm256_cmp_pd(place, _mm256_setzero_pd(), _CMP_GE_OQ),
                                         _mm256_cmp_pd(place, size, _CMP_LT_OQ));
    // Truncation of an outside place may give anything; the mask then covers it.
    const __m128i index = _mm256_cvttpd_epi32(place);
    const __m256i wide = _mm256_castpd_si256(inside);
    const __m128i mask =
        _mm_castps_si128(_mm_shuffle_ps(_mm_castsi128_ps(_mm256_castsi256_si128(wide)),
                                        _mm_castsi128_ps(_mm256_extracti128_si256(wide, 1)), 0x88));
    return _mm_or_si128(index, _mm_xor_si128(mask, _mm_set1_epi32(-1)));
}

__m128 negatedSingle(const double* constant, __m256d rowConstant)
{
    const __m256d difference = _mm256_sub_pd(_mm256_loadu_pd(constant), rowConstant);
    return _mm256_cvtpd_ps(_mm256_xor_pd(difference, _mm256_set1_pd(-0.0)));
}

/// trunc(last * v) of eight values in double precision.
__m256i scaledIndices(__m256 v, __m256d last)
{
    const __m256d low = _mm256_mul_pd(last, _mm256_cvtps_pd(_mm256_castps256_ps128(v)));
    const __m256d high = _mm256_mul_pd(last, _mm256_cvtps_pd(_mm256_extractf128_ps(v, 1)));
    return _mm256_set_m128i(_mm256_cvttpd_epi32(high), _mm256_cvttpd_epi32(low));
}

} // namespace

void wallRowAvx2(const WallRow& row, std::span<std::int32_t> out)
{
    const __m256d rowConstant = _mm256_set1_pd(row.rowConstant);
    const __m256d last = _mm256_set1_pd(row.height - 1);
    const __m256i stride = _mm256_set1_epi32(row.width), height = _mm256_set1_epi32(row.height);
    std::size_t i = 0;
    for (; i + 8 <= out.size(); i += 8) {
        const __m256 constant = _mm256_set_m128(negatedSingle(row.constant + i + 4, rowConstant),
                                                negatedSingle(row.constant + i, rowConstant));
        const __m256 v = _mm256_div_ps(constant, _mm256_loadu_ps(row.linear + i));
        const __m256i y = scaledIndices(v, last);
        const __m256i x = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(row.columns + i));
        const __m256i index = _mm256_add_epi32(_mm256_mullo_epi32(y, stride), x);
        // A place is not negative where v is not; what is too large truncates to `height` or more,
        // or to the most negative number.
        const __m256 notNegative = _mm256_cmp_ps(v, _mm256_setzero_ps(), _CMP_GE_OQ);
        const __m256i below =
            _mm256_andnot_si256(_mm256_srai_epi32(y, 31), _mm256_cmpgt_epi32(height, y));
        const __m256i inside = _mm256_andnot_si256(
            _mm256_srai_epi32(x, 31), _mm256_and_si256(below, _mm256_castps_si256(notNegative)));
        const __m256i outside = _mm256_xor_si256(inside, _mm256_set1_epi32(-1));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(out.data() + i),
                            _mm256_or_si256(index, outside));
    }
    const WallRow rest{.linear = row.linear + i,
                       .constant = row.constant + i,
                       .columns = row.columns + i,
                       .rowConstant = row.rowConstant,
                       .width = row.width,
                       .height = row.height};
    wallRowPlain(rest, out.subspan(i));
}

void floorRowAvx2(const FloorRow& row, std::span<std::int32_t> out)
{
    const __m256d shift = _mm256_set1_pd(row.shift), divisor = _mm256_set1_pd(row.divisor);
    const __m256d last = _mm256_set1_pd(row.width - 1), size = _mm256_set1_pd(row.width);
    const __m128i start = _mm_set1_epi32(row.rowStart);
    std::size_t i = 0;
    for (; i + 4 <= out.size(); i += 4) {
        const __m256d steps = _mm256_cvtepi32_pd(_mm_add_epi32(
            _mm_set1_epi32(row.index + static_cast<int>(i)), _mm_setr_epi32(0, 1, 2, 3)));
        const __m256d dx = _mm256_add_pd(_mm256_set1_pd(row.first), steps);
        const __m256d u = _mm256_div_pd(_mm256_sub_pd(dx, shift), divisor);
        const __m128i x = indicesOf(_mm256_mul_pd(last, u), size);
        const __m128i outside = _mm_srai_epi32(x, 31);
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out.data() + i),
                         _mm_or_si128(_mm_add_epi32(x, start), outside));
    }
    FloorRow rest = row;
    rest.index += static_cast<int>(i);
    floorRowPlain(rest, out.subspan(i));
}

} // namespace varn::quadrows

#endif
