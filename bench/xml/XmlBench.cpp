// Loads and writes a table of 16 MB in UTF-16 beside pugixml, which does the same from and to the
// same file format. Loading includes the detection and, with us, the index by name.
#include "TableDocument.h"

#include "Parser/XMLParser.h"
#include "Util/ProjectPath.h"

#include <benchmark/benchmark.h>
#include <fstream>
#include <pugixml.hpp>

namespace varn::bench {
namespace {

constexpr std::size_t kBytes = 16'000'000;

/// The document as a file, for as long as the program runs.
struct TableFile
{
    TableFile() : path(std::filesystem::temp_directory_path() / "varn-bench-table.xml")
    {
        writeTextFile(path, makeTableDocument(kBytes, &messages, &items), Encoding::Unicode);
        size = std::filesystem::file_size(path);
    }
    ~TableFile() { std::filesystem::remove(path); }

    std::filesystem::path path;
    std::size_t size = 0, messages = 0, items = 0;
};

const TableFile& tableFile()
{
    static const TableFile file;
    return file;
}

void setBytes(benchmark::State& state)
{
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * tableFile().size));
}

void loadOurs(benchmark::State& state)
{
    const WString path = toWide(tableFile().path);
    for ([[maybe_unused]] auto _ : state) {
        XMLParser parser;
        if (!parser.load(path) || parser.elementsByTag(u"data").size() != tableFile().items ||
            parser.elementsByTag(u"message").size() != tableFile().messages)
            state.SkipWithError("the document was not read");
    }
    setBytes(state);
}
BENCHMARK(loadOurs)->Unit(benchmark::kMillisecond);

void loadPugixml(benchmark::State& state)
{
    for ([[maybe_unused]] auto _ : state) {
        pugi::xml_document document;
        if (!document.load_file(tableFile().path.c_str()))
            state.SkipWithError("the document was not read");
    }
    setBytes(state);
}
BENCHMARK(loadPugixml)->Unit(benchmark::kMillisecond);

void writeOurs(benchmark::State& state)
{
    XMLParser parser;
    parser.load(toWide(tableFile().path));
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(parser.composeBytes());
    setBytes(state);
}
BENCHMARK(writeOurs)->Unit(benchmark::kMillisecond);

struct StringWriter : pugi::xml_writer
{
    std::string bytes;
    void write(const void* data, std::size_t size) override
    {
        bytes.append(static_cast<const char*>(data), size);
    }
};

void writePugixml(benchmark::State& state)
{
    pugi::xml_document document;
    document.load_file(tableFile().path.c_str());
    for ([[maybe_unused]] auto _ : state) {
        StringWriter writer;
        document.save(writer, "\t", pugi::format_default | pugi::format_write_bom,
                      pugi::encoding_utf16_le);
        benchmark::DoNotOptimize(writer.bytes);
    }
    setBytes(state);
}
BENCHMARK(writePugixml)->Unit(benchmark::kMillisecond);

/// What reading the file alone takes, into memory that is new each time.
void readOnly(benchmark::State& state)
{
    for ([[maybe_unused]] auto _ : state) {
        const auto bytes = std::make_unique_for_overwrite<char[]>(tableFile().size);
        std::ifstream file(tableFile().path, std::ios::binary);
        file.rdbuf()->pubsetbuf(nullptr, 0);
        file.read(bytes.get(), static_cast<std::streamsize>(tableFile().size));
        benchmark::DoNotOptimize(bytes.get());
    }
    setBytes(state);
}
BENCHMARK(readOnly)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace varn::bench

BENCHMARK_MAIN();
