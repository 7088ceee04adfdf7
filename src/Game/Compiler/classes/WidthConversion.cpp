#include "Game/Compiler/classes/WidthConversion.h"

#include <algorithm>

namespace varn {
namespace {

constexpr WStringView kHalfWidth =
    u" 0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz!\"#$%&'()*+,-./:;<=>?_";
constexpr WStringView kFullWidth =
    u"　０１２３４５６７８９ＡＢＣＤＥＦＧＨＩＪＫＬＭＮＯＰＱＲＳＴＵＶＷＸＹＺａｂｃｄｅｆｇｈｉ"
    u"ｊｋｌｍ"
    u"ｎｏｐｑｒｓｔｕｖｗｘｙｚ！”＃＄％＆’（）＊＋，－．／：；＜＝＞？＿";
static_assert(kHalfWidth.size() == 85 && kFullWidth.size() == 85);

/// The text with each unit of one list replaced by its partner in the other.
WString replaceUnits(WStringView text, WStringView from, WStringView to)
{
    WString converted(text);
    for (char16_t& unit : converted)
        if (const std::size_t at = from.find(unit); at != WStringView::npos)
            unit = to[at];
    return converted;
}

} // namespace

WString toFullWidth(WStringView text)
{
    return replaceUnits(text, kHalfWidth, kFullWidth);
}

WString toHalfWidth(WStringView text)
{
    return replaceUnits(text, kFullWidth, kHalfWidth);
}

} // namespace varn
