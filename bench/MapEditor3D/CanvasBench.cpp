// What the canvas costs on a map of 100 by 100 with walls, floors and areas all over it: painting
// the whole window, a stroke of the pen from event to repainted pixels, and a copy of the window's
// bytes as the limit of what any painter could do.
#include "MapEditor3D/canvas/MapPainter.h"
#include "MapEditor3D/generators/DungeonGenerator.h"
#include "MapEditor3D/recovery/RecoveryFile.h"
#include "Util/Random.h"

#include <benchmark/benchmark.h>
#include <cstring>

namespace varn::bench {
namespace {

constexpr int kSize = 100;
constexpr int kWidth = 1600, kHeight = 1000;

/// A generated floor, a tile in every third cell, four large areas.
void fill(WizMapEditor& editor)
{
    WizMap& map = editor.getMap();
    map.cols = map.rows = kSize;
    programRandom().seed(7);
    generator::DungeonGenerator(generator::GeneratorOptions()).generate(map);
    for (int y = 0; y < kSize; ++y) {
        for (int x = 0; x < kSize; ++x) {
            map.cellAt(x, y).floor = static_cast<std::uint8_t>((x + y) % 3 == 0 ? x % 14 + 1 : 0);
            map.areas.paint(1 + x / 50 + 2 * (y / 50), x, y);
        }
    }
    map.setImageName(ImageType::Floor2D, u"Graphics/System/floor2D.png");
    map.setImageName(ImageType::Wall2D, u"Graphics/Dungeon/wall2D.png");
    editor.setLayer(EditorLayer::Wall);
    editor.setSelectedTile(WallKind::Wall);
    editor.propertiesEdited();
    editor.resetHistory();
}

CanvasView viewOf(WizMapEditor& editor, int tile)
{
    while (editor.getTileSize() < tile)
        editor.zoom(true);
    return {.width = kWidth, .height = kHeight, .tileSize = tile, .scrollX = 200, .scrollY = 200};
}

/// @param state.range  pixels of a cell; 1: the project's wall strip
void paintWindow(benchmark::State& state)
{
    WizMapEditor editor;
    fill(editor);
    MapPainter painter(editor);
    painter.setView(viewOf(editor, static_cast<int>(state.range(0))));
    painter.setOptions({.walls = state.range(1) ? WallLook::Strip : WallLook::Glyphs});
    Graphics surface;
    painter.paint(surface);
    for ([[maybe_unused]] auto _ : state) {
        painter.invalidate();
        painter.paint(surface);
    }
}
BENCHMARK(paintWindow)
    ->ArgNames({"cell", "strip"})
    ->Args({20, 0})
    ->Args({20, 1})
    ->Args({60, 0})
    ->Args({60, 1})
    ->Unit(benchmark::kMillisecond);

/// A move of the pen over edges: the event, the walls, the parts repainted.
void penMove(benchmark::State& state)
{
    WizMapEditor editor;
    fill(editor);
    MapPainter painter(editor);
    const CanvasView view = viewOf(editor, 60);
    painter.setView(view);
    Graphics surface;
    painter.paint(surface);
    const auto at = [&](int step) {
        return Point{100 + step * 60 % 1400, 100 + step / 23 * 60 % 800};
    };
    editor.press(MouseButton::Left, aim(editor, view, at(0)));
    int step = 0;
    for ([[maybe_unused]] auto _ : state) {
        ++step;
        editor.setSelectedTile(step / 300 % 2 + 1);
        painter.setHover(view.placeAt(at(step)));
        editor.move(aim(editor, view, at(step)));
        benchmark::DoNotOptimize(painter.paint(surface));
    }
}
BENCHMARK(penMove)->Unit(benchmark::kMillisecond);

void hoverMove(benchmark::State& state)
{
    WizMapEditor editor;
    fill(editor);
    MapPainter painter(editor);
    const CanvasView view = viewOf(editor, 60);
    painter.setView(view);
    Graphics surface;
    painter.paint(surface);
    int step = 0;
    for ([[maybe_unused]] auto _ : state) {
        ++step;
        painter.setHover(view.placeAt({100 + step * 31 % 1400, 100 + step * 17 % 800}));
        benchmark::DoNotOptimize(painter.paint(surface));
    }
}
BENCHMARK(hoverMove)->Unit(benchmark::kMillisecond);

/// What the record of unsaved strokes costs between two strokes; the disk is another thread's.
void recordOfTheMap(benchmark::State& state)
{
    WizMapEditor editor;
    fill(editor);
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(contentsOf(editor.getMap()));
}
BENCHMARK(recordOfTheMap)->Unit(benchmark::kMillisecond);

/// The bytes of the window, copied.
void copyOfTheWindow(benchmark::State& state)
{
    const std::vector<char> from(std::size_t{kWidth} * kHeight * 4, 90);
    std::vector<char> to(from.size(), 1);
    for ([[maybe_unused]] auto _ : state) {
        std::memcpy(to.data(), from.data(), from.size());
        benchmark::DoNotOptimize(to.data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(copyOfTheWindow)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace varn::bench
