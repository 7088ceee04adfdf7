#include "Parser/Regexp/CaseFolding.h"
#include "Parser/Regexp/StartPlan.h"
#include "Parser/Regexp/UnitTable.h"

#include <gtest/gtest.h>
#include <random>

namespace varn::test {

using regexp::Probe;
using regexp::UnitSet;
using regexp::UnitTable;

namespace {

UnitSet randomSet(std::mt19937& random)
{
    std::vector<regexp::UnitRange> ranges;
    for (auto left = random() % 7; left > 0; --left) {
        const auto first = static_cast<char16_t>(random() % 3 == 0 ? random() : random() % 64);
        const auto span = static_cast<char16_t>(random() % 20);
        ranges.push_back({first, static_cast<char16_t>(std::min(first + span, 0xFFFF))});
    }
    const UnitSet set(std::move(ranges));
    return random() % 2 == 0 ? set : set.complement();
}

WString randomText(std::mt19937& random, unsigned units)
{
    WString text;
    for (auto left = random() % 60; left > 0; --left)
        text += static_cast<char16_t>(random() % 20 == 0 ? random() : random() % units);
    return text;
}

} // namespace

TEST(RegexpScan, setsAndTablesAgree)
{
    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round) {
        const UnitSet set = randomSet(random);
        const UnitTable table(set);
        const WString text = randomText(random, 80);
        const char16_t* const end = text.data() + text.size();
        for (const char16_t unit : text)
            ASSERT_EQ(table.has(unit), set.has(unit));
        for (const char16_t* from = text.data(); from != end; ++from) {
            ASSERT_EQ(table.find(from, end), table.findPlain(from, end));
            ASSERT_EQ(table.skip(from, end), table.skipPlain(from, end));
        }
    }
}

TEST(RegexpScan, probesFindWhatThePlainLoopFinds)
{
    std::mt19937 random(8);
    for (int round = 0; round < 2000; ++round) {
        Probe probe;
        for (Probe::Place* place : {&probe.first, &probe.second}) {
            place->count = 1 + random() % Probe::kMostUnits;
            for (std::size_t i = 0; i < place->count; ++i)
                place->units[i] = static_cast<char16_t>(random() % 10);
        }
        probe.first.offset = static_cast<int>(random() % 4);
        probe.second.offset = probe.first.offset + static_cast<int>(random() % 12);
        probe.length = probe.second.offset + 1;
        const WString text = randomText(random, 25);
        const char16_t* const end = text.data() + text.size();
        for (const char16_t* from = text.data(); from != end; ++from)
            ASSERT_EQ(probe.find(from, end), probe.findPlain(from, end));
    }
}

TEST(RegexpScan, setAlgebra)
{
    std::mt19937 random(9);
    for (int round = 0; round < 300; ++round) {
        const UnitSet a = randomSet(random);
        const UnitSet b = randomSet(random);
        EXPECT_EQ(a.count() + a.complement().count(), 0x10000);
        EXPECT_EQ((a | b).complement(), a.complement() & b.complement());
        EXPECT_EQ((a & b).count() + (a | b).count(), a.count() + b.count());
        const UnitSet folded = a.withCaseVariants();
        EXPECT_EQ(folded | a, folded);
        EXPECT_EQ(folded.withCaseVariants(), folded);
    }
}

TEST(RegexpScan, caseFolding)
{
    for (const auto& [unit, folded] : {std::pair{u'A', u'a'},
                                       {u'É', u'é'},
                                       {u'Σ', u'σ'},
                                       {u'ς', u'σ'},
                                       {u'Ж', u'ж'},
                                       {u'Ａ', u'ａ'},
                                       {u'Ⅳ', u'ⅳ'},
                                       {u'あ', u'あ'},
                                       {u'\u212A', u'\u212A'},
                                       {u'ÿ', u'ÿ'},
                                       {u'Ÿ', u'ÿ'}}) {
        EXPECT_EQ(regexp::foldCase(unit), folded);
    }
    for (const auto& [unit, capital] : {std::pair{u'a', u'A'},
                                        {u'μ', u'Μ'},
                                        {u'σ', u'Σ'},
                                        {u'ı', u'ı'},
                                        {u'ÿ', u'Ÿ'},
                                        {u'å', u'Å'},
                                        {u'A', u'A'}})
        EXPECT_EQ(regexp::capitalOf(unit), capital);
}

} // namespace varn::test
