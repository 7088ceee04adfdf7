// Text of 16 MB against one copy of as many bytes into fresh memory, which no decoding can beat.

#include "Util/TextFile.h"

#include <benchmark/benchmark.h>
#include <cstring>

namespace {

using namespace varn;

constexpr std::size_t kBytes = std::size_t{16} << 20;

/// Lines of letters, or of Japanese with some letters between, cut to this many bytes in the
/// encoding.
std::string sample(bool japanese, Encoding encoding)
{
    const WStringView line =
        japanese ? u"地下三階の扉を開けた。 Door 12\r\n" : u"the party opened door 12 on B3F\r\n";
    const std::string unit = *encodeText(line, encoding);
    std::string bytes(byteOrderMark(encoding));
    while (bytes.size() + unit.size() <= kBytes)
        bytes += unit;
    return bytes;
}

void count(benchmark::State& state, std::size_t bytes)
{
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes));
}

void copyIntoFreshMemory(benchmark::State& state)
{
    const std::string bytes = sample(false, Encoding::Ansi);
    for ([[maybe_unused]] auto _ : state) {
        std::string copy(bytes);
        benchmark::DoNotOptimize(copy.data());
    }
    count(state, bytes.size());
}
BENCHMARK(copyIntoFreshMemory);

void decode(benchmark::State& state, bool japanese, Encoding encoding)
{
    const std::string bytes = sample(japanese, encoding);
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(decodeBytes(asBytes(bytes), encoding).text.data());
    count(state, bytes.size());
}
BENCHMARK_CAPTURE(decode, Utf16, true, Encoding::Unicode);
BENCHMARK_CAPTURE(decode, Utf16Be, true, Encoding::Utf16Be);
BENCHMARK_CAPTURE(decode, Utf8Ascii, false, Encoding::Utf8);
BENCHMARK_CAPTURE(decode, Utf8Japanese, true, Encoding::Utf8);
BENCHMARK_CAPTURE(decode, ShiftJis, true, Encoding::ShiftJis);

void encode(benchmark::State& state, Encoding encoding)
{
    const std::string bytes = sample(true, encoding);
    const WString text = decodeBytes(asBytes(bytes), encoding).text;
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(encodeText(text, encoding)->data());
    count(state, bytes.size());
}
BENCHMARK_CAPTURE(encode, Utf8Japanese, Encoding::Utf8);
BENCHMARK_CAPTURE(encode, ShiftJis, Encoding::ShiftJis);

void detect(benchmark::State& state, bool japanese, Encoding encoding)
{
    const std::string bytes = sample(japanese, encoding);
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(detectEncoding(asBytes(bytes)));
    count(state, bytes.size());
}
BENCHMARK_CAPTURE(detect, Ascii, false, Encoding::Ansi);
BENCHMARK_CAPTURE(detect, ShiftJis, true, Encoding::ShiftJis);
BENCHMARK_CAPTURE(detect, Utf8Japanese, true, Encoding::Utf8);

void score(benchmark::State& state, bool japanese)
{
    const std::string bytes = sample(japanese, Encoding::ShiftJis);
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(scoreEncodings(asBytes(bytes)));
    count(state, bytes.size());
}
BENCHMARK_CAPTURE(score, Ascii, false);
BENCHMARK_CAPTURE(score, ShiftJis, true);

} // namespace
