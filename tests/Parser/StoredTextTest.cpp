#include "Parser/StoredText.h"
#include "Parser/Entities.h"

#include <gtest/gtest.h>

namespace varn {

TEST(Entities, NamesAndNumbers)
{
    const struct
    {
        WStringView name;
        int unit; ///< 0: unknown
    } kCases[] = {
        {u"amp", 38},
        {u"apos", 39},
        {u"nbsp", 32},
        {u"piv", 0x3D3},
        {u"thetasym", 977},
        {u"AElig", 198},
        {u"aelig", 230},
        {u"zwnj", 8204},
        {u"frac14", 188},
        {u"lang", 0x2329},
        {u"euro", 0},
        {u"fnof", 0},
        {u"rsaquo", 0},
        {u"", 0},
        {u"AMP", 0},
        {u"am", 0},
        {u"ampx", 0},
        {u"thetasymx", 0},
        {u"#65", 65},
        {u"#x41", 65},
        {u"#X3042", 0x3042},
        {u"#65xyz", 65},
        {u"#65601", 65},
        {u"#9", 0},
        {u"#", 0},
        {u"#00", 0},
        {u"#x", 0},
        {u"#xyz", 0},
        {u"#99999999999999", 0xFFFF},
    };
    for (const auto& c : kCases)
        EXPECT_EQ(lookUpEntity(c.name).value_or(0), c.unit) << toUtf8(c.name);
    EXPECT_FALSE(lookUpEntity(WStringView(u"amp\0", 4)));
}

/// A wrong value anywhere changes the sum.
TEST(Entities, TheTableIsWhole)
{
    constexpr WStringView kNames =
        u"amp lt gt quot apos nbsp rlm mdash ndash eacute iexcl cent pound curren yen brvbar sect "
        u"uml copy "
        u"ordf laquo not shy reg macr deg plusmn sup2 sup3 acute micro para middot cedil sup1 ordm "
        u"raquo "
        u"frac14 frac12 frac34 iquest Agrave Aacute Acirc Atilde Auml Aring AElig Ccedil Egrave "
        u"Eacute "
        u"Ecirc Euml Igrave Iacute Icirc Iuml ETH Ntilde Ograve Oacute Ocirc Otilde Ouml times "
        u"Oslash "
        u"Ugrave Uacute Ucirc Uuml Yacute THORN szlig agrave aacute acirc atilde auml aring aelig "
        u"ccedil "
        u"egrave ecirc euml igrave iacute icirc iuml eth ntilde ograve oacute ocirc otilde ouml "
        u"divide "
        u"oslash ugrave uacute ucirc uuml yacute thorn yuml OElig oelig Scaron scaron Yuml circ "
        u"tilde Alpha "
        u"Beta Gamma Delta Epsilon Zeta Eta Theta Iota Kappa Lambda Mu Nu Xi Omicron Pi Rho Sigma "
        u"Tau "
        u"Upsilon Phi Chi Psi Omega alpha beta gamma delta epsilon zeta eta theta iota kappa "
        u"lambda mu nu xi "
        u"omicron pi rho sigmaf sigma tau upsilon phi chi psi omega thetasym upsih piv bull hellip "
        u"prime "
        u"Prime oline frasl weierp image real trade alefsym larr uarr rarr darr harr crarr lArr "
        u"uArr rArr "
        u"dArr hArr forall part exist empty nabla isin notin ni prod sum minus lowast radic prop "
        u"infin ang "
        u"and or cap cup int there4 sim cong asymp ne equiv le ge sub sup nsub sube supe oplus "
        u"otimes perp "
        u"sdot lceil rceil lfloor rfloor lang rang loz spades clubs hearts diams ensp emsp thinsp "
        u"zwnj zwj "
        u"lrm lsquo rsquo sbquo ldquo rdquo bdquo dagger Dagger permil lsaquo";
    const auto names = split(kNames, u' ');
    EXPECT_EQ(names.size(), 250u);
    std::int64_t sum = 0;
    for (const WStringView name : names) {
        EXPECT_TRUE(lookUpEntity(name)) << toUtf8(name);
        sum += lookUpEntity(name).value_or(0);
    }
    EXPECT_EQ(sum, 851134);
}

TEST(StoredText, DecodesEntitiesEscapesAndBreaks)
{
    const struct
    {
        WStringView stored, kept, dropped;
    } kCases[] = {
        {u"plain", u"plain", u"plain"},
        {u"a\r\nb\nc\rd\n\re", u"a\r\nb\r\nc\r\nd\r\n\r\ne", u"abcde"},
        {u"1\\n2\\r3\\t4\\\\5\\x6\\",
         u"1\r\n2"
         u"3\t4\\5x6\\",
         u"1\r\n2"
         u"3\t4\\5x6\\"},
        {u"&lt;&amp;&gt;", u"<&>", u"<&>"},
        {u"&amp;lt;", u"<", u"<"},
        {u"&amp;amp;amp;quot;", u"\"", u"\""},
        {u"&amp;x;&amp;", u"&x;&", u"&x;&"},
        {u"&amp;&lt;", u"&<", u"&<"},
        {u"\\&lt;", u"&lt;", u"&lt;"},
        {u"&amp\\;lt;", u"&amp;lt;", u"&amp;lt;"},
        {u"&#65;&#38;lt;&#x41;&#4a;", u"A<&#x41;\x04", u"A<&#x41;\x04"},
        {u"&#0000000065;&#000000065;", u"&#0000000065;&#000000065;", u"&#0000000065;&#000000065;"},
        {u"&#00000065;", u"A", u"A"},
        {u"&frac14;&unknown;&;&", u"&frac14;&unknown;&;&", u"&frac14;&unknown;&;&"},
        {u"&#0;&#;", u"&#0;&#;", u"&#0;&#;"},
    };
    for (const auto& c : kCases) {
        EXPECT_EQ(toUtf8(decodeText(c.stored, LineBreaks::Keep)), toUtf8(c.kept));
        EXPECT_EQ(toUtf8(decodeText(c.stored, LineBreaks::Drop)), toUtf8(c.dropped));
    }
}

} // namespace varn
