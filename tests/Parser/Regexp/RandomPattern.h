#pragma once

#include "Util/Text.h"

#include <random>

namespace varn::test {

/// Small patterns over a handful of letters, so that they match small texts often: every construct
/// that the engine knows, some of them ill formed.
class RandomPattern
{
  public:
    explicit RandomPattern(std::uint32_t seed) : random(seed) {}

    WString pattern() { return alternation(3); }

    WString text(int longest)
    {
        static constexpr WStringView kUnits = u"aaaaabbbbcc_A \n\r\xE9\xC9";
        WString result;
        for (int left = upTo(longest); left > 0; --left)
            result += kUnits[static_cast<std::size_t>(upTo(static_cast<int>(kUnits.size()) - 1))];
        return result;
    }

    int upTo(int most) { return std::uniform_int_distribution<int>(0, most)(random); }

  private:
    WString alternation(int depth)
    {
        WString result = sequence(depth);
        while (upTo(3) == 0)
            result += u"|" + sequence(depth);
        return result;
    }

    WString sequence(int depth)
    {
        WString result;
        for (int left = upTo(3); left >= 0; --left)
            result += atom(depth) + quantifier();
        return result;
    }

    WString atom(int depth)
    {
        static constexpr WStringView kLeaves[] = {
            u"a",       u"a",      u"b",      u"b",      u"c",       u"ab",
            u"ba",      u".",      u"[ab]",   u"[^a]",   u"\\w",     u"\\W",
            u"\\s",     u"\\d",    u"^",      u"$",      u"\\b",     u"\\B",
            u"\\A",     u"\\Z",    u"\\z",    u"\\G",    u"\\1",     u"\\2",
            u"\\k<n>",  u"\\g<1>", u"\\g<n>", u"\\g<0>", u"[a[bc]]", u"[[:upper:]_]",
            u"\\n",     u"\xE9",   u"\\x61",  u"",       u"(?i)",    u"\\La\\E",
            u"\\Qab\\E"};
        static constexpr WStringView kOpenings[] = {
            u"(",   u"(",    u"(",    u"(?:",   u"(?:",   u"(?<n>",   u"(?>",      u"(?=",
            u"(?!", u"(?<=", u"(?<!", u"(?(1)", u"(?(2)", u"(?(?=a)", u"(?(?<!b)", u"(?(<n>)"};
        if (depth == 0 || upTo(2) != 0)
            return WString(kLeaves[upTo(static_cast<int>(std::size(kLeaves)) - 1)]);
        const WStringView opening = kOpenings[upTo(static_cast<int>(std::size(kOpenings)) - 1)];
        return WString(opening) + alternation(depth - 1) + u")";
    }

    WString quantifier()
    {
        static constexpr WStringView kQuantifiers[] = {u"*",    u"+",     u"?",    u"{2}", u"{1,2}",
                                                       u"{2,}", u"{0,3}", u"{,1}", u"{0}"};
        static constexpr WStringView kSuffixes[] = {u"", u"", u"?", u"+"};
        if (upTo(1) == 0)
            return {};
        return WString(kQuantifiers[upTo(static_cast<int>(std::size(kQuantifiers)) - 1)]) +
               WString(kSuffixes[upTo(static_cast<int>(std::size(kSuffixes)) - 1)]);
    }

    std::mt19937 random;
};

} // namespace varn::test
