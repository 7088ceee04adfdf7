// A message table of 16 MB: loading, composing and saving it, beside what the parser alone takes
// for the document, and a plain copy and a plain write of its bytes.
#include "Game/Database/StoryTables.h"
#include "Game/Database/WizItem.h"
#include "Parser/XMLParser.h"
#include "Util/File.h"

#include <benchmark/benchmark.h>
#include <cstring>
#include <filesystem>

namespace varn {
namespace {

constexpr std::size_t kDocumentBytes = 16u << 20;

/// The project is a folder of its own, with the table saved once.
struct Project
{
    Project()
    {
        const auto folder = std::filesystem::temp_directory_path() / "varn-bench-tables";
        std::filesystem::create_directories(folder);
        std::filesystem::current_path(folder);
        MessageTable& table = MessageTable::instance();
        const WString page(300, u'\u3042');
        for (std::size_t bytes = 0; bytes < kDocumentBytes; bytes += 4 * page.size() + 250) {
            MessageTableData row;
            row.setId(static_cast<std::int32_t>(table.size()));
            row.name = u"message " + toDecimal(static_cast<std::int64_t>(table.size()));
            row.setMessage(0, page + u"\r\n<page>");
            row.setMessage(1, page);
            table.add(std::move(row));
        }
        table.save();
    }
    ~Project() { std::filesystem::remove_all(std::filesystem::current_path()); }
};

MessageTable& project()
{
    static Project project;
    return MessageTable::instance();
}

void setBytes(benchmark::State& state)
{
    state.SetBytesProcessed(
        static_cast<std::int64_t>(state.iterations()) *
        static_cast<std::int64_t>(project().compose().size() * sizeof(char16_t)));
}

void load(benchmark::State& state)
{
    MessageTable& table = project();
    for ([[maybe_unused]] auto _ : state)
        table.load(u"MessageTable.xml", 0);
    setBytes(state);
}

void parseOnly(benchmark::State& state)
{
    project();
    for ([[maybe_unused]] auto _ : state) {
        XMLParser parser;
        benchmark::DoNotOptimize(parser.load(u"Data/MessageTable.xml"));
    }
    setBytes(state);
}

void compose(benchmark::State& state)
{
    MessageTable& table = project();
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(table.compose().data());
    setBytes(state);
}

void copy(benchmark::State& state)
{
    const WString text = project().compose();
    for ([[maybe_unused]] auto _ : state) {
        WString other(text);
        benchmark::DoNotOptimize(other.data());
    }
    setBytes(state);
}

void save(benchmark::State& state)
{
    MessageTable& table = project();
    for ([[maybe_unused]] auto _ : state)
        table.save();
    setBytes(state);
}

void writeOnly(benchmark::State& state)
{
    const WString text = project().compose();
    for ([[maybe_unused]] auto _ : state)
        replaceFile("plain.bin", std::as_bytes(std::span(text)));
    setBytes(state);
}

WizItemList& items()
{
    project();
    WizItemList& table = WizItemList::instance();
    if (table.empty()) {
        table.load(u"Item.dat", kMaximumRows);
        for (std::size_t i = 0; i < table.size(); i++) {
            table.at(i).setName(u"item " + toDecimal(static_cast<std::int64_t>(i)));
            table.at(i).setPrice(static_cast<std::int32_t>(i) * 3);
        }
        table.save();
    }
    return table;
}

void loadItems(benchmark::State& state)
{
    WizItemList& table = items();
    for ([[maybe_unused]] auto _ : state)
        table.load(u"Item.dat", 0);
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * table.size()));
}

void parseItems(benchmark::State& state)
{
    items();
    for ([[maybe_unused]] auto _ : state) {
        XMLParser parser;
        benchmark::DoNotOptimize(parser.load(u"Data/Items.xml"));
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * items().size()));
}

void composeItems(benchmark::State& state)
{
    WizItemList& table = items();
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(table.compose().data());
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * table.size()));
}

BENCHMARK(load)->Unit(benchmark::kMillisecond);
BENCHMARK(parseOnly)->Unit(benchmark::kMillisecond);
BENCHMARK(compose)->Unit(benchmark::kMillisecond);
BENCHMARK(copy)->Unit(benchmark::kMillisecond);
BENCHMARK(save)->Unit(benchmark::kMillisecond);
BENCHMARK(writeOnly)->Unit(benchmark::kMillisecond);
BENCHMARK(loadItems)->Unit(benchmark::kMillisecond);
BENCHMARK(parseItems)->Unit(benchmark::kMillisecond);
BENCHMARK(composeItems)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace varn

BENCHMARK_MAIN();
