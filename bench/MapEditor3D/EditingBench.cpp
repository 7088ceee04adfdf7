// What a stroke costs when its button goes up, beside a comparison of the two arrays of cells; and
// a new floor of 100 by 100, beside a frame of 60 Hz.
#include "MapEditor3D/WizMapEditor.h"
#include "MapEditor3D/generators/DungeonGenerator.h"

#include <benchmark/benchmark.h>
#include <cstring>
#include <memory>

namespace varn::bench {
namespace {

constexpr int kSize = 100;

/// A stroke that changes one cell, from press to release.
void commitOfAStroke(benchmark::State& state)
{
    WizMapEditor editor;
    editor.getMap().cols = editor.getMap().rows = kSize;
    editor.resetHistory();
    int tile = 0;
    for ([[maybe_unused]] auto _ : state) {
        tile = tile % 200 + 1;
        editor.getMap().cellAt(57, 31).floor = static_cast<std::uint8_t>(tile);
        editor.commitStroke();
    }
}
BENCHMARK(commitOfAStroke);

/// What a comparison of the two arrays costs at least.
void memcmpOfBothArrays(benchmark::State& state)
{
    const auto a = std::make_unique<WizMapCells>();
    const auto b = std::make_unique<WizMapCells>();
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(a->data());
        benchmark::DoNotOptimize(std::memcmp(a->data(), b->data(), sizeof(WizMapCells)));
    }
}
BENCHMARK(memcmpOfBothArrays);

/// A frame of 60 Hz is 16.7 ms.
void generateFloor(benchmark::State& state)
{
    const auto map = std::make_unique<WizMap>();
    map->cols = map->rows = kSize;
    for ([[maybe_unused]] auto _ : state)
        generator::DungeonGenerator(generator::GeneratorOptions()).generate(*map);
}
BENCHMARK(generateFloor)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace varn::bench
