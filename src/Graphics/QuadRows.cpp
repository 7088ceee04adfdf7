#include "Graphics/QuadRows.h"

namespace varn::quadrows {

void wallRowPlain(const WallRow& row, std::span<std::int32_t> out)
{
    for (std::size_t i = 0; i < out.size(); ++i) {
        const float v = static_cast<float>(-(row.constant[i] - row.rowConstant)) / row.linear[i];
        const double y = (row.height - 1) * static_cast<double>(v);
        const bool inside = row.columns[i] >= 0 && y >= 0 && y < row.height;
        out[i] = inside ? static_cast<std::int32_t>(y) * row.width + row.columns[i] : -1;
    }
}

void floorRowPlain(const FloorRow& row, std::span<std::int32_t> out)
{
    for (std::size_t i = 0; i < out.size(); ++i) {
        const double dx = row.first + (row.index + static_cast<int>(i));
        const double x = (row.width - 1) * ((dx - row.shift) / row.divisor);
        out[i] = x >= 0 && x < row.width ? row.rowStart + static_cast<std::int32_t>(x) : -1;
    }
}

#if defined(__x86_64__)

void wallRowAvx2(const WallRow& row, std::span<std::int32_t> out);
void floorRowAvx2(const FloorRow& row, std::span<std::int32_t> out);

void wallRow(const WallRow& row, std::span<std::int32_t> out)
{
    __builtin_cpu_supports("avx2") ? wallRowAvx2(row, out) : wallRowPlain(row, out);
}

void floorRow(const FloorRow& row, std::span<std::int32_t> out)
{
    __builtin_cpu_supports("avx2") ? floorRowAvx2(row, out) : floorRowPlain(row, out);
}

#else

void wallRow(const WallRow& row, std::span<std::int32_t> out)
{
    wallRowPlain(row, out);
}

void floorRow(const FloorRow& row, std::span<std::int32_t> out)
{
    floorRowPlain(row, out);
}

#endif

} // namespace varn::quadrows
