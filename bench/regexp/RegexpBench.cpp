// All matches over 5 MB of UTF-16 text, ours beside PCRE2-16 without its compiler to machine code.
// Both find the same matches, or the run is an error.
#define PCRE2_CODE_UNIT_WIDTH 16
#include "GameText.h"

#include "Parser/Regexp/CRegexpT.h"

#include <benchmark/benchmark.h>
#include <cstdint>
#include <pcre2.h>

namespace varn::bench {

namespace {

constexpr std::size_t kUnits = 2'500'000;

struct Row
{
    const char* name;
    WStringView pattern;
    int flags = 0;
    bool xRuns = false;
};

constexpr Row kRows[] = {
    {"literal", u"carefully"},
    {"japaneseLiteral", u"魔法剣士"},
    {"words", u"potion|sword|shield"},
    {"identifierWithDigit", u"[A-Za-z_][A-Za-z0-9_]*[0-9]"},
    {"reluctantTag", u"<b>.*?</b>"},
    {"doubledWord", u"\\b(\\w+) \\1\\b"},
    {"callName", u"\\w+(?=\\()"},
    {"includeLines", u"^#include.*$", CRegexpT::kMultiLine},
    {"nestedRuns", u"(x+x+)+y", 0, true},
    {"ignoreCaseLiteral", u"CAREFULLY", CRegexpT::kIgnoreCase},
};

const WString& textOf(const Row& row)
{
    static const WString plain = makeGameText(kUnits, false);
    static const WString runs = makeGameText(kUnits, true);
    return row.xRuns ? runs : plain;
}

/// The number of matches and a checksum of where they are.
struct Found
{
    std::size_t count = 0;
    std::size_t places = 0;

    void add(std::size_t start, std::size_t end)
    {
        ++count;
        places = places * 31 + start * 7 + end;
    }
    bool operator==(const Found&) const = default;
};

class Ours
{
  public:
    explicit Ours(const Row& row) : regexp(row.pattern, row.flags) {}

    Found findAll(const WString& text)
    {
        Found found;
        context.setText(text);
        while (regexp.match(context, result))
            found.add(static_cast<std::size_t>(result.getStart()),
                      static_cast<std::size_t>(result.getEnd()));
        return found;
    }

  private:
    CRegexpT regexp;
    CContext context;
    MatchResultT result;
};

class Pcre
{
  public:
    explicit Pcre(const Row& row)
    {
        std::uint32_t options = 0;
        if ((row.flags & CRegexpT::kMultiLine) != 0)
            options |= PCRE2_MULTILINE;
        if ((row.flags & CRegexpT::kIgnoreCase) != 0)
            options |= PCRE2_CASELESS;
        int error = 0;
        std::size_t offset = 0;
        code = pcre2_compile(reinterpret_cast<PCRE2_SPTR>(row.pattern.data()), row.pattern.size(),
                             options, &error, &offset, nullptr);
        data = pcre2_match_data_create_from_pattern(code, nullptr);
    }
    ~Pcre()
    {
        pcre2_match_data_free(data);
        pcre2_code_free(code);
    }
    Pcre(const Pcre&) = delete;
    Pcre& operator=(const Pcre&) = delete;

    Found findAll(const WString& text)
    {
        Found found;
        const auto* units = reinterpret_cast<PCRE2_SPTR>(text.data());
        for (std::size_t from = 0; from <= text.size();) {
            if (pcre2_match(code, units, text.size(), from, 0, data, nullptr) < 0)
                break;
            const std::size_t* place = pcre2_get_ovector_pointer(data);
            found.add(place[0], place[1]);
            from = place[1] + (place[0] == place[1] ? 1 : 0);
        }
        return found;
    }

  private:
    pcre2_code* code;
    pcre2_match_data* data;
};

template <typename Engine>
void findAll(benchmark::State& state, const Row& row)
{
    const WString& text = textOf(row);
    Engine engine(row);
    Found found;
    for ([[maybe_unused]] auto _ : state)
        found = engine.findAll(text);
    if (found.count == 0 || found != Ours(row).findAll(text))
        state.SkipWithError("the engines differ, or nothing matched");
    state.counters["matches"] = static_cast<double>(found.count);
    state.SetBytesProcessed(
        static_cast<std::int64_t>(state.iterations() * text.size() * sizeof(char16_t)));
}

/// Building a replacement text is part of what a script asks for.
void replaceAll(benchmark::State& state)
{
    const CRegexpT regexp(u"(\\w+)\\(", CRegexpT::kMultiLine);
    const WString& text = textOf(kRows[0]);
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(regexp.replace(text, u"call $1 ("));
    state.SetBytesProcessed(
        static_cast<std::int64_t>(state.iterations() * text.size() * sizeof(char16_t)));
}

void registerAll()
{
    for (const Row& row : kRows) {
        const std::string name = row.name;
        benchmark::RegisterBenchmark((name + "/ours").c_str(), findAll<Ours>, row)
            ->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark((name + "/pcre2").c_str(), findAll<Pcre>, row)
            ->Unit(benchmark::kMillisecond);
    }
    benchmark::RegisterBenchmark("replaceAll/ours", replaceAll)->Unit(benchmark::kMillisecond);
}

} // namespace

} // namespace varn::bench

int main(int count, char** arguments)
{
    varn::bench::registerAll();
    benchmark::Initialize(&count, arguments);
    benchmark::RunSpecifiedBenchmarks();
}
