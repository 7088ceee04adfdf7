// A textured quad over the full screen beside QPainter's quad-to-quad transform; items are pixels.
#include "Graphics/Quad.h"
#include "Pictures.h"

#include <QPainter>
#include <QTransform>
#include <benchmark/benchmark.h>

namespace varn::bench {
namespace {

constexpr QuadCorners kWall = {{{0, 0}, {0, 479}, {639, 400}, {639, 80}}};
constexpr QuadCorners kFloor = {{{200, 0}, {0, 479}, {639, 479}, {439, 0}}};

double areaOf(const QuadCorners& q)
{
    double twice = 0;
    for (std::size_t i = 0; i < 4; ++i)
        twice += q[i].x * q[(i + 1) % 4].y - q[(i + 1) % 4].x * q[i].y;
    return std::abs(twice) / 2;
}

void quad(benchmark::State& state, const QuadCorners& corners, bool fog)
{
    Image source = makeSprite(256, 256, false), target = makeSprite(kWidth, kHeight, false);
    source.getBitmap().setColorKeyEnabled(false);
    if (fog)
        source.gradation = Gradation{0x203040, 255, 40, true};
    for (auto _ : state) {
        drawImageToQuad(source, corners, target.getBitmap());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(
        static_cast<std::int64_t>(areaOf(corners) * static_cast<double>(state.iterations())));
}
BENCHMARK_CAPTURE(quad, wall, kWall, false)->Name("quad/wall");
BENCHMARK_CAPTURE(quad, fog, kWall, true)->Name("quad/wall with gradation");
BENCHMARK_CAPTURE(quad, floor, kFloor, false)->Name("quad/floor");

void painter(benchmark::State& state, const QuadCorners& corners)
{
    Image source = makeSprite(256, 256, false), target = makeSprite(kWidth, kHeight, false);
    const QImage picture = wrap(source.getBitmap(), QImage::Format_RGB32);
    QPolygonF to;
    for (const std::size_t i : {0, 3, 2, 1})
        to << QPointF(corners[i].x, corners[i].y);
    QTransform transform;
    QTransform::quadToQuad(QPolygonF({{0, 0}, {256, 0}, {256, 256}, {0, 256}}), to, transform);
    for (auto _ : state) {
        QImage surface = wrap(target.getBitmap(), QImage::Format_RGB32);
        QPainter painter(&surface);
        painter.setTransform(transform);
        painter.drawImage(0, 0, picture);
    }
    state.SetItemsProcessed(
        static_cast<std::int64_t>(areaOf(corners) * static_cast<double>(state.iterations())));
}
BENCHMARK_CAPTURE(painter, wall, kWall)->Name("quad/QPainter wall");
BENCHMARK_CAPTURE(painter, floor, kFloor)->Name("quad/QPainter floor");

} // namespace
} // namespace varn::bench
