#include "Parser/Tokenizer.h"

#include <algorithm>
#include <iterator>

namespace varn {

namespace {

constexpr WStringView kPairs[] = {u"!=", u"%=", u"*=", u"&=", u"&&", u"|=", u"||", u"^=", u"++",
                                  u"+=", u"--", u"-=", u"/=", u"<=", u"<<", u">=", u">>", u"=="};
constexpr WStringView kMarks = u"!#%&*(),.:;?[]{}+-/<>=|^";

bool isDigit(char16_t unit)
{
    return unit >= u'0' && unit <= u'9';
}

bool isWordStart(char16_t unit)
{
    return unit == u'_' || (unit < 0x80 && isLetter(unit));
}

/// -1 for what is no hexadecimal digit.
int hexDigit(char16_t unit)
{
    if (isDigit(unit))
        return unit - u'0';
    const char16_t lower = unit | 0x20;
    return lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : -1;
}

/// Behind a backslash.
char16_t escaped(char16_t unit)
{
    switch (unit) {
    case u'f':
        return u'\f';
    case u'n':
        return u'\n';
    case u'r':
        return u'\r';
    case u't':
        return u'\t';
    default:
        return unit;
    }
}

/// A colour by its digits: three give each a byte, eight move the last two in front, and when the
/// first bit of eight is set those two are all ones.
std::int32_t colourOf(std::uint32_t digits, std::size_t count)
{
    if (count == 3)
        return static_cast<std::int32_t>((digits >> 8) * 17 << 16 | (digits >> 4 & 15) * 17 << 8 |
                                         (digits & 15) * 17);
    const auto number = static_cast<std::int32_t>(digits);
    return count == 8 ? static_cast<std::int32_t>(digits << 24) | number >> 8 : number;
}

} // namespace

char16_t Tokenizer::peek(std::size_t ahead) const
{
    return at + ahead < source.size() ? source[at + ahead] : u'\0';
}

char16_t Tokenizer::take()
{
    if (atEnd())
        return u'\0';
    line += source[at] == u'\n' ? 1 : 0;
    return source[at++];
}

/// White space and comments; false at the end.
bool Tokenizer::skipBlanks()
{
    for (;;) {
        while (!atEnd() && (peek() == u' ' || (peek() >= 9 && peek() <= 13)))
            take();
        if (peek() != u'/' || !skipComment())
            return !atEnd();
    }
}

/// In a block comment the character behind a `*` is looked at once: "**/" does not close it.
bool Tokenizer::skipComment()
{
    if (peek(1) == u'/') {
        at = std::min(source.find(u'\n', at), source.size());
        return true;
    }
    if (peek(1) != u'*')
        return false;
    at += 2;
    while (!atEnd()) {
        if (take() == u'*' && take() == u'/')
            break;
    }
    return true;
}

std::optional<Tokenizer::Token> Tokenizer::next()
{
    while (skipBlanks()) {
        Token token = {Kind::Mark, {}, 0, line};
        if (readToken(token))
            return token;
        const WStringView bad = source.substr(at, 1);
        complaints += u"Line:" + toDecimal(line) + u" lex(): find a bad char '";
        complaints.append(bad).append(u"'\n");
        take();
    }
    return std::nullopt;
}

std::vector<Tokenizer::Token> Tokenizer::rest()
{
    std::vector<Token> tokens;
    while (auto token = next())
        tokens.push_back(std::move(*token));
    return tokens;
}

WStringView Tokenizer::cutAt(char16_t separator)
{
    const std::size_t end = std::min(source.find(separator, at), source.size());
    const WStringView piece = source.substr(at, end - at);
    line += static_cast<int>(std::count(piece.begin(), piece.end(), u'\n'));
    at = end;
    take();
    return piece;
}

bool Tokenizer::readToken(Token& token)
{
    const char16_t first = peek();
    const std::size_t begin = at;
    if (first == u'"') {
        readString(token);
        return true;
    }
    if (isWordStart(first))
        readWord(token);
    else if (isDigit(first))
        readNumber(token);
    else if (first == u'#' && hexDigit(peek(1)) >= 0)
        readColour(token);
    else if (first == u'\'')
        readCharacter(token);
    else if (std::find(std::begin(kPairs), std::end(kPairs), source.substr(at, 2)) !=
             std::end(kPairs))
        at += 2;
    else if (kMarks.find(first) != WStringView::npos)
        ++at;
    token.text = source.substr(begin, at - begin);
    return at != begin;
}

void Tokenizer::readWord(Token& token)
{
    token.kind = Kind::Word;
    while (isWordStart(peek()) || isDigit(peek()))
        ++at;
}

/// A leading 0 stands alone unless an `x` or a `.` follows.
void Tokenizer::readNumber(Token& token)
{
    token.kind = Kind::Integer;
    std::uint32_t value = 0; // wraps
    if (peek() == u'0' && (peek(1) | 0x20) == u'x') {
        for (at += 2; hexDigit(peek()) >= 0; ++at)
            value = value << 4 | static_cast<std::uint32_t>(hexDigit(peek()));
    } else if (peek() == u'0') {
        ++at;
    } else {
        for (; isDigit(peek()); ++at)
            value = value * 10 + (peek() - u'0');
    }
    token.value = static_cast<std::int32_t>(value);
    if (peek() != u'.')
        return;
    token.kind = Kind::Real;
    for (++at; isDigit(peek());)
        ++at;
}

void Tokenizer::readColour(Token& token)
{
    token.kind = Kind::Integer;
    const std::size_t begin = ++at;
    std::uint32_t digits = 0;
    for (; hexDigit(peek()) >= 0; ++at)
        digits = digits << 4 | static_cast<std::uint32_t>(hexDigit(peek()));
    token.value = colourOf(digits, at - begin);
}

/// The closing quote is stepped over whatever it is.
void Tokenizer::readCharacter(Token& token)
{
    token.kind = Kind::Integer;
    take();
    const char16_t unit = take();
    token.value = unit == u'\\' ? escaped(take()) : unit;
    take();
}

/// A string, and those that follow it with nothing but white space between.
void Tokenizer::readString(Token& token)
{
    token.kind = Kind::String;
    while (peek() == u'"') {
        take();
        while (!atEnd() && peek() != u'"') {
            const char16_t unit = take();
            if (unit != u'\\' || atEnd()) {
                token.text += unit;
                continue;
            }
            // These belong to regular expressions, which read the backslash themselves.
            if (WStringView(u"!.^").find(peek()) != WStringView::npos)
                token.text += u'\\';
            token.text += escaped(take());
        }
        take();
        while (!atEnd() && (peek() == u' ' || (peek() >= 9 && peek() <= 13)))
            take();
    }
}

} // namespace varn
