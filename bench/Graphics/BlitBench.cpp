// The image blit of 640 by 480 pixels beside a memcpy of the picture, QPainter and cairo.
#include "Graphics/Blit.h"
#include "Pictures.h"

#include <QPainter>
#include <benchmark/benchmark.h>
#include <cairo.h>

namespace varn::bench {
namespace {

void copyBytes(benchmark::State& state)
{
    Image source = makeSprite(kWidth, kHeight, true), target = makeSprite(kWidth, kHeight, false);
    for (auto _ : state) {
        std::memcpy(target.getBitmap().getBits(), source.getBitmap().getBits(),
                    source.getBitmap().byteCount());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(copyBytes)->Name("blit/memcpy");

void blit(benchmark::State& state, bool alpha, double opacity)
{
    Image source = makeSprite(kWidth, kHeight, alpha), target = makeSprite(kWidth, kHeight, false);
    source.setColorKey(source.getBitmap().getPixelColor(3, 5));
    source.opacity = opacity;
    for (auto _ : state) {
        blitImage(target.getBitmap(), source, source.getBounds(), source.getBounds());
        benchmark::ClobberMemory();
    }
}
BENCHMARK_CAPTURE(blit, alpha, true, 1.0)->Name("blit/alpha");
BENCHMARK_CAPTURE(blit, fade, true, 0.5)->Name("blit/alpha, opacity tables");
BENCHMARK_CAPTURE(blit, key, false, 1.0)->Name("blit/colour key");

void painter(benchmark::State& state, double opacity)
{
    Image source = makeSprite(kWidth, kHeight, true), target = makeSprite(kWidth, kHeight, false);
    const QImage picture = wrap(source.getBitmap(), QImage::Format_ARGB32);
    for (auto _ : state) {
        QImage surface = wrap(target.getBitmap(), QImage::Format_RGB32);
        QPainter painter(&surface);
        painter.setOpacity(opacity);
        painter.drawImage(0, 0, picture);
    }
}
BENCHMARK_CAPTURE(painter, alpha, 1.0)->Name("blit/QPainter alpha");
BENCHMARK_CAPTURE(painter, fade, 0.5)->Name("blit/QPainter alpha, opacity");

void cairo(benchmark::State& state, double opacity)
{
    Image source = makeSprite(kWidth, kHeight, true), target = makeSprite(kWidth, kHeight, false);
    const auto surfaceOf = [](Bitmap& bitmap, cairo_format_t format) {
        return cairo_image_surface_create_for_data(bitmap.getBits(), format, bitmap.getWidth(),
                                                   bitmap.getHeight(), bitmap.getStride());
    };
    cairo_surface_t* const picture = surfaceOf(source.getBitmap(), CAIRO_FORMAT_ARGB32);
    cairo_surface_t* const surface = surfaceOf(target.getBitmap(), CAIRO_FORMAT_RGB24);
    for (auto _ : state) {
        cairo_t* const context = cairo_create(surface);
        cairo_set_source_surface(context, picture, 0, 0);
        cairo_paint_with_alpha(context, opacity);
        cairo_destroy(context);
    }
    cairo_surface_destroy(picture);
    cairo_surface_destroy(surface);
}
BENCHMARK_CAPTURE(cairo, alpha, 1.0)->Name("blit/cairo alpha");
BENCHMARK_CAPTURE(cairo, fade, 0.5)->Name("blit/cairo alpha, opacity");

} // namespace
} // namespace varn::bench
