#include "Parser/Tokenizer.h"

#include <gtest/gtest.h>

namespace varn {

/// Kind by its first letter, text, value: "Wwarp M( I3=3".
WString describe(WStringView source)
{
    WString all;
    Tokenizer tokenizer(source);
    for (const Tokenizer::Token& token : tokenizer.rest()) {
        all += all.empty() ? u"" : u" ";
        all += u"WIRSM"[static_cast<int>(token.kind)];
        all += token.text;
        if (token.kind == Tokenizer::Kind::Integer)
            all += u"=" + toDecimal(token.value);
    }
    return all;
}

TEST(Tokenizer, CutsScripts)
{
    const struct
    {
        WStringView source, tokens;
    } kCases[] = {
        {u"warp(3, 14);", u"Wwarp M( I3=3 M, I14=14 M) M;"},
        {u"a.b1_ += --c << 2;", u"Wa M. Wb1_ M+= M-- Wc M<< I2=2 M;"},
        {u"0x1F 012 1.5 0.25 4294967297", u"I0x1F=31 I0=0 I12=12 R1.5 R0.25 I4294967297=1"},
        {u"'a' '\\n' '\\\\'", u"I'a'=97 I'\\n'=10 I'\\\\'=92"},
        {u"#F80 #123456 #11223344 #88000000 #12",
         u"I#F80=16746496 I#123456=1193046 "
         u"I#11223344=1141973555 I#88000000=-7864320 I#12=18"},
        {u"#include \"a\"", u"M# Winclude Sa"},
        {u"\"a\\tb\\.c\\\"\" \n \"d\" e", u"Sa\tb\\.c\"d We"},
        {u"a // b\n /* c ** d */ e /* f **/ g */ h", u"Wa We Wh"},
        {u"a /* b", u"Wa"},
        {u"\"open\\", u"Sopen\\"},
        {u"/ 'x", u"M/ I'x=120"},
        {u"", u""},
    };
    for (const auto& c : kCases)
        EXPECT_EQ(toUtf8(describe(c.source)), toUtf8(c.tokens));
}

TEST(Tokenizer, GoesOnBehindABadCharacter)
{
    Tokenizer tokenizer(u"a\n@ b 剣");
    const auto tokens = tokenizer.rest();
    ASSERT_EQ(tokens.size(), 2u);
    EXPECT_EQ(tokens[1].line, 2);
    EXPECT_EQ(tokenizer.getComplaints(),
              u"Line:2 lex(): find a bad char '@'\nLine:2 lex(): find a bad char '剣'\n");
}

TEST(Tokenizer, CutsLinesAtSeparators)
{
    Tokenizer tokenizer(u"2 15 The old mine\nrest");
    EXPECT_EQ(tokenizer.cutAt(u' '), u"2");
    EXPECT_EQ(tokenizer.next()->value, 15);
    EXPECT_EQ(tokenizer.cutAt(u'\n'), u" The old mine");
    EXPECT_EQ(tokenizer.cutAt(u' '), u"rest");
    EXPECT_FALSE(tokenizer.next());
}

} // namespace varn
