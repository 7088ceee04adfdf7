#include "Parser/Regexp/PatternReader.h"

#include "Parser/Regexp/CaseFolding.h"

namespace varn::regexp {

namespace {

bool isSpace(char16_t unit)
{
    return unit == u' ' || (unit >= 9 && unit <= 13);
}

int hexadecimalDigit(char16_t unit)
{
    if (isDigit(unit))
        return unit - u'0';
    if (unit >= u'a' && unit <= u'f')
        return unit - u'a' + 10;
    if (unit >= u'A' && unit <= u'F')
        return unit - u'A' + 10;
    return -1;
}

} // namespace

bool isDigit(char16_t unit)
{
    return unit >= u'0' && unit <= u'9';
}

char32_t PatternReader::takeCodePoint()
{
    const char16_t unit = take();
    const bool paired = (unit & 0xFC00) == 0xD800 && !atEnd() && (peek() & 0xFC00) == 0xDC00;
    return paired ? 0x10000 + ((unit & 0x3FFu) << 10) + (take() & 0x3FFu) : unit;
}

bool PatternReader::accept(char16_t unit)
{
    if (atEnd() || peek() != unit)
        return false;
    ++position;
    return true;
}

bool PatternReader::accept(WStringView units)
{
    if (!at(units))
        return false;
    position += units.size();
    return true;
}

std::optional<int> PatternReader::takeNumber()
{
    if (atEnd() || !isDigit(peek()))
        return std::nullopt;
    std::int64_t number = 0;
    while (!atEnd() && isDigit(peek()))
        number = std::min<std::int64_t>(number * 10 + (take() - u'0'), kUnlimited);
    return static_cast<int>(number);
}

WString PatternReader::takeName(char16_t terminator)
{
    WString name;
    while (!atEnd() && (isLetter(peek()) || isDigit(peek()) || peek() == u'_'))
        name += take();
    if (name.empty() || !accept(terminator))
        fail(u"A group's name is missing, or has other than letters, digits and _");
    return name;
}

char32_t PatternReader::takeEscapedCharacter()
{
    static constexpr WStringView kLetters = u"aefnrtv";
    static constexpr WStringView kCharacters = u"\a\x1B\f\n\r\t\v";
    if (const std::size_t place = kLetters.find(peek()); place != WStringView::npos) {
        take();
        return kCharacters[place];
    }
    switch (peek()) {
    case u'x':
        take();
        return accept(u'{') ? takeBracedHexadecimal() : takeHexadecimal(1, 2);
    case u'u':
        take();
        return accept(u'{') ? takeBracedHexadecimal() : takeHexadecimal(4, 4);
    case u'0':
        return takeOctal();
    default:
        return takeCodePoint();
    }
}

char32_t PatternReader::takeHexadecimal(int leastDigits, int mostDigits)
{
    char32_t value = 0;
    int digits = 0;
    while (digits < mostDigits && !atEnd() && hexadecimalDigit(peek()) >= 0) {
        value = value * 16 + static_cast<char32_t>(hexadecimalDigit(take()));
        ++digits;
    }
    if (digits < leastDigits || value > 0x10FFFF)
        fail(u"A character's number is missing, too short or too big");
    return value;
}

char32_t PatternReader::takeBracedHexadecimal()
{
    const char32_t value = takeHexadecimal(1, 6);
    if (!accept(u'}'))
        fail(u"A character's number is not closed by }");
    return value;
}

/// `\0` and up to two octal digits more.
char32_t PatternReader::takeOctal()
{
    char32_t value = 0;
    for (int digits = 0; digits < 3 && !atEnd() && peek() >= u'0' && peek() <= u'7'; ++digits)
        value = value * 8 + static_cast<char32_t>(take() - u'0');
    return value;
}

void PatternReader::skipIgnored()
{
    for (;;) {
        skipSwitches();
        if (quoting || atEnd())
            return;
        if (at(u"(?#"))
            skipComment();
        else if (extended && isSpace(peek()))
            take();
        else if (extended && peek() == u'#')
            while (!atEnd() && take() != u'\n') {
            }
        else
            return;
    }
}

void PatternReader::skipSwitches()
{
    while (skipSwitch()) {
    }
}

bool PatternReader::skipSwitch()
{
    if (!at(u"\\") || position + 1 == text.size())
        return false;
    const char16_t letter = text[position + 1];
    if (quoting && letter != u'E')
        return false;
    switch (letter) {
    case u'Q':
        quoting = true;
        break;
    case u'L':
        letters = Case::Lower;
        break;
    case u'U':
        letters = Case::Upper;
        break;
    case u'E':
        if (!quoting)
            letters = Case::AsWritten;
        quoting = false;
        break;
    default:
        return false;
    }
    position += 2;
    return true;
}

void PatternReader::skipComment()
{
    const std::size_t close = text.find(u')', position);
    if (close == WStringView::npos)
        fail(u"A comment is not closed");
    position = close + 1;
}

char32_t PatternReader::switchCase(char32_t character) const
{
    if (letters == Case::AsWritten || character > 0xFFFF)
        return character;
    const auto unit = static_cast<char16_t>(character);
    return letters == Case::Lower ? foldCase(unit) : capitalOf(unit);
}

void PatternReader::fail(WString message) const
{
    throw PatternException(std::move(message), position);
}

} // namespace varn::regexp
