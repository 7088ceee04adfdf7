#include "Game/Map/GameEvent.h"

#include <algorithm>
#include <charconv>

namespace varn {

namespace {

bool isBlank(char16_t unit)
{
    return unit == u' ' || (unit >= 9 && unit <= 13);
}

bool isDigit(char16_t unit)
{
    return unit >= u'0' && unit <= u'9';
}

bool isWord(char16_t unit)
{
    return unit == u'_' || isDigit(unit) || isLetter(unit);
}

/// The tokens of the script language as far as a call needs them: words, numbers, single marks.
class WarpTokens
{
  public:
    explicit WarpTokens(WStringView script) : rest(script) {}

    /// Empty behind the last one.
    WStringView next()
    {
        skipBlanksAndComments();
        std::size_t length = rest.empty() ? 0 : 1;
        if (length != 0 && isWord(rest[0])) {
            const bool isNumber = isDigit(rest[0]); // which may hold a point
            while (length < rest.size() &&
                   (isWord(rest[length]) || (isNumber && rest[length] == u'.')))
                ++length;
        }
        const WStringView token = rest.substr(0, length);
        rest.remove_prefix(length);
        return token;
    }

  private:
    void skipBlanksAndComments()
    {
        for (;;) {
            if (!rest.empty() && isBlank(rest[0]))
                rest.remove_prefix(1);
            else if (rest.starts_with(u"//"))
                dropTo(rest.find(u'\n'));
            else if (rest.starts_with(u"/*"))
                dropBehind(rest.find(u"*/", 2));
            else
                return;
        }
    }
    void dropTo(std::size_t at) { rest.remove_prefix(std::min(at, rest.size())); }
    void dropBehind(std::size_t at)
    {
        rest.remove_prefix(at == WStringView::npos ? rest.size() : at + 2);
    }

    WStringView rest;
};

std::optional<std::int32_t> wholeNumber(WStringView token)
{
    std::string digits;
    for (const char16_t unit : token) {
        if (unit > 127)
            return std::nullopt;
        digits.push_back(static_cast<char>(unit));
    }
    const bool hexadecimal = digits.starts_with("0x") || digits.starts_with("0X");
    const char* first = digits.data() + (hexadecimal ? 2 : 0);
    const char* last = digits.data() + digits.size();
    if (first == last || *first == '-')
        return std::nullopt;
    std::int32_t value = 0;
    const auto [end, fault] = std::from_chars(first, last, value, hexadecimal ? 16 : 10);
    if (end != last || fault != std::errc())
        return std::nullopt;
    return value;
}

} // namespace

std::optional<MapCell> parseWarp(WStringView script)
{
    WarpTokens tokens(script);
    WStringView first[7];
    for (WStringView& token : first) {
        token = tokens.next();
        if (token.empty())
            return std::nullopt;
    }
    const auto x = wholeNumber(first[2]);
    const auto y = wholeNumber(first[4]);
    if (first[0] != u"warp" || !x || !y)
        return std::nullopt;
    return MapCell{*x, *y};
}

WString warpScript(MapCell target)
{
    return u"warp(" + toDecimal(target.x) + u", " + toDecimal(target.y) + u");";
}

} // namespace varn
