#include "Game/Compiler/Heap.h"
#include "Game/Compiler/InterpreterException.h"

#include <gtest/gtest.h>

namespace varn::test {
namespace {

void keepOnly(Heap& heap, const std::vector<OperandData>& roots)
{
    heap.collect([&roots](Marker& marker) { marker.mark(roots); });
}

TEST(Heap, AppendsInPlaceWithoutChangingWhatOthersSee)
{
    Heap heap;
    const OperandData a = heap.concat(heap.makeString(u"ab"), u"cdefghijklmnop");
    const OperandData b = heap.concat(a, u"1");
    const OperandData c = heap.concat(a, u"2"); // the place behind `a` is taken
    const OperandData d = heap.concat(b, b.asText());
    EXPECT_EQ(a.asText(), u"abcdefghijklmnop");
    EXPECT_EQ(b.asText(), u"abcdefghijklmnop1");
    EXPECT_EQ(c.asText(), u"abcdefghijklmnop2");
    EXPECT_EQ(d.asText(), u"abcdefghijklmnop1abcdefghijklmnop1");
    EXPECT_EQ(a.asBuffer(), b.asBuffer());
}

TEST(Heap, FreesWhatIsNotReached)
{
    Heap heap;
    std::vector<OperandData> roots;
    for (int i = 0; i < 2000; ++i) {
        Array* array = heap.makeArray(i % 100);
        heap.push(*array, heap.makeString(WString(static_cast<std::size_t>(i % 300), u'x')));
        if (i % 10 == 0)
            roots.push_back(OperandData::array(array));
    }
    EXPECT_TRUE(heap.wantsCollection());
    keepOnly(heap, roots);
    EXPECT_EQ(heap.objectCount(), 200U);
    EXPECT_GE(heap.threshold(), 1000U);
    for (std::size_t i = 0; i < roots.size(); ++i) {
        const Array& array = *roots[i].asArray();
        EXPECT_EQ(array.size(), i * 10 % 100 + 1);
        EXPECT_EQ(array[array.size() - 1].textLength(), i * 10 % 300);
    }
    keepOnly(heap, {});
    EXPECT_EQ(heap.objectCount(), 0U);
    EXPECT_EQ(heap.byteCount(), 0U);
}

TEST(Heap, WalksDeepAndCircularValues)
{
    Heap heap;
    Array* const first = heap.makeArray();
    Array* last = first;
    for (int i = 0; i < 300000; ++i) {
        Array* next = heap.makeArray();
        heap.push(*last, OperandData::array(next));
        last = next;
    }
    heap.push(*last, OperandData::array(first));
    keepOnly(heap, {OperandData::array(first)});
    EXPECT_EQ(heap.objectCount(), 300001U);
    EXPECT_GE(heap.threshold(), 600002U);
    EXPECT_EQ(OperandData::array(first).toString(), u""); // a circle gives nothing
    keepOnly(heap, {});
    EXPECT_EQ(heap.objectCount(), 0U);
}

TEST(Heap, RefusesMoreThanItsLimit)
{
    Heap heap;
    heap.setLimit(1 << 20);
    EXPECT_THROW(heap.makeArray(1000000000), interpreter::InterpreterException);
    EXPECT_THROW(heap.makeArray(-1), interpreter::InterpreterException);
    EXPECT_THROW(heap.makeString(WString(1 << 20, u'x')), interpreter::InterpreterException);
    Array* array = heap.makeArray();
    EXPECT_THROW(for (;;) heap.push(*array, OperandData::integer(1)),
                 interpreter::InterpreterException);
    EXPECT_LE(heap.byteCount(), std::size_t{1} << 20);
}

TEST(Map, HoldsManyKeysInOrder)
{
    Map map;
    for (int i = 0; i < 1000; ++i)
        map.set(toDecimal(i * 7 % 1000), OperandData::integer(i));
    EXPECT_EQ(map.size(), 1000);
    EXPECT_EQ(map.find(u"7")->asInt(), 1);
    EXPECT_EQ(map.find(u"none"), nullptr);
    map.ensure(u"none");
    EXPECT_TRUE(map.find(u"none")->is(ValueKind::Undefined));
    const auto keys = map.sortedKeys();
    EXPECT_TRUE(std::is_sorted(keys.begin(), keys.end()));
    EXPECT_EQ(keys.size(), 1001U);
}

struct NumberText
{
    const char16_t* text;
    double number;
};

TEST(Values, ReadNumbersAtTheFrontOfTexts)
{
    constexpr NumberText kCases[] = {
        {u"", 0},
        {u"abc", 0},
        {u"12", 12},
        {u"  -3.5x", -3.5},
        {u"+7", 7},
        {u"1e3", 1000},
        {u"0x10", 16},
        {u".5", 0.5},
        {u"5.", 5},
        {u"1e", 1},
        {u"12 13", 12},
        {u"\u3000"
         u"4",
         0},
        {u"99999999999999999999", 1e20},
        {u"-", 0},
    };
    for (const NumberText& each : kCases)
        EXPECT_EQ(textToNumber(each.text), each.number) << toUtf8(each.text);
    EXPECT_EQ(truncateToInt(4294967296.0 + 5), 5);
    EXPECT_EQ(truncateToInt(-2.9), -2);
    EXPECT_EQ(truncateToInt(1e300), 0);
    EXPECT_EQ(truncateToInt(0.0 / 0.0), 0);
}

} // namespace
} // namespace varn::test
