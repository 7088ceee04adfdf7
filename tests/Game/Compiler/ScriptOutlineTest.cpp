#include "Game/Compiler/ScriptOutline.h"

#include <gtest/gtest.h>

namespace varn::test {
namespace {

TEST(ScriptOutline, FindsFunctionHeadsLineByLine)
{
    const std::pair<const char16_t*, std::vector<std::pair<int, WString>>> kCases[] = {
        {u"", {}},
        {u"function f()", {{1, u"f()"}}},
        {u"var a;\nfunction one(a, b) {\n}\r\n\r\n  function two(c = 1) {}\rfunction x3() {}",
         {{2, u"one(a, b)"}, {5, u"two(c = 1)"}, {6, u"x3()"}}},
        {u"function _hidden() {}\nfunction\nf()\nfunction  g()\nfunction h(a,\n b) {}", {}},
        {u"function f(a) { return (a); } // (x)\n", {{1, u"f(a) { return (a); } // (x)"}}},
        {u"// function old(a)\n", {{1, u"old(a)"}}},
        {u"function 名()\nfunction f名(前)", {{2, u"f名(前)"}}},
    };
    for (const auto& [source, wanted] : kCases) {
        std::vector<std::pair<int, WString>> found;
        for (const OutlineEntry& entry : outlineOf(source))
            found.emplace_back(entry.line, entry.signature);
        EXPECT_EQ(found, wanted) << toUtf8(source);
    }
}

} // namespace
} // namespace varn::test
