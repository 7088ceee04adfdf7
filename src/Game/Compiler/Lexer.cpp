#include "Game/Compiler/Lexer.h"

#include <array>

namespace varn {
namespace {

enum : std::uint8_t
{
    kBlank = 1,
    kLetter = 2,
    kDigit = 4,
    kHexDigit = 8
};

constexpr std::array<std::uint8_t, 128> makeClasses()
{
    std::array<std::uint8_t, 128> classes{};
    for (const int blank : {9, 10, 11, 12, 13, 32})
        classes[static_cast<std::size_t>(blank)] = kBlank;
    for (std::size_t c = '0'; c <= '9'; ++c)
        classes[c] = kDigit | kHexDigit;
    for (std::size_t c = 'a'; c <= 'z'; ++c)
        classes[c] = classes[c - 32] = kLetter | (c <= 'f' ? kHexDigit : 0);
    classes['_'] = kLetter;
    return classes;
}
constexpr std::array<std::uint8_t, 128> kClasses = makeClasses();

bool isOf(char16_t unit, int classes)
{
    return unit < 128 && (kClasses[unit] & classes) != 0;
}

bool endsText(char16_t unit)
{
    return unit == 0 || unit == 0xFFFF;
}

std::uint32_t hexValue(char16_t unit)
{
    return unit <= u'9' ? unit - u'0' : (unit | 0x20U) - u'a' + 10;
}

/// What a letter behind a backslash stands for; 0: itself.
char16_t controlOf(char16_t letter)
{
    switch (letter) {
    case u'f':
        return 12;
    case u'n':
        return 10;
    case u'r':
        return 13;
    case u't':
        return 9;
    default:
        return 0;
    }
}

/// The value of a colour constant of `digits` digits.
std::uint32_t colourOf(std::uint32_t value, int digits)
{
    if (digits == 3) {
        std::uint32_t colour = 0;
        for (const int shift : {8, 4, 0})
            colour = colour << 8 | (value >> shift & 15) * 255 / 15;
        return colour;
    }
    if (digits == 8) // RRGGBBAA to AARRGGBB; the shift back keeps the sign
        return value << 24 | static_cast<std::uint32_t>(static_cast<std::int32_t>(value) >> 8);
    return value;
}

} // namespace

Lexer::Lexer(IncludeStack& sources, SymbolTable& symbols, ConstantTable& constants,
             const CompileErrors& errors)
    : sources(sources), symbols(symbols), constants(constants), errors(errors)
{
    enterSource();
}

void Lexer::enterSource()
{
    const auto& script = sources.current();
    at = script.text.c_str() + script.savedPosition;
    line = script.savedLine;
}

void Lexer::next(Token& token)
{
    for (;;) {
        token = {};
        if (!skipBlanksAndComments())
            ended = true;
        token.line = line;
        token.file = static_cast<std::uint16_t>(sources.currentIndex());
        if (ended)
            return;
        if (!endsText(*at)) {
            if (scan(token))
                return;
        } else if (sources.finishCurrent()) {
            enterSource();
        } else {
            ended = true;
        }
    }
}

void Lexer::skipBlanks()
{
    for (; isOf(*at, kBlank); ++at)
        line += *at == u'\n';
}

/// False when the text ended inside a comment, which ends all input.
bool Lexer::skipBlanksAndComments()
{
    for (;;) {
        skipBlanks();
        if (*at != u'/')
            return true;
        if (at[1] == u'/') {
            while (*at != u'\n' && !endsText(*at))
                ++at;
        } else if (at[1] == u'*') {
            at += 2;
            if (!skipComment())
                return false;
        } else {
            return true;
        }
    }
}

/// The character behind a `*` is not looked at again, so `**/` closes nothing.
bool Lexer::skipComment()
{
    for (;;) {
        if (endsText(*at))
            return false;
        const char16_t unit = *at++;
        line += unit == u'\n';
        if (unit != u'*')
            continue;
        if (endsText(*at))
            return false;
        const char16_t behind = *at++;
        line += behind == u'\n';
        if (behind == u'/')
            return true;
    }
}

bool Lexer::take(char16_t expected)
{
    if (*at != expected)
        return false;
    ++at;
    return true;
}

void Lexer::set(Token& token, TokenKind kind, int value)
{
    token.kind = kind;
    token.value = value;
}

void Lexer::badCharacter(const Token& token, char16_t unit) const
{
    errors.fail({token.file, token.line}, "'" + toUtf8(WStringView(&unit, 1)) + "' is bad char");
}

/// False when an `#include` stood there: reading goes on in the new text.
bool Lexer::scan(Token& token)
{
    if (*at == u'#') {
        ++at;
        return scanColour(token) || include(token);
    }
    scanPlain(token);
    return true;
}

void Lexer::scanPlain(Token& token)
{
    const char16_t unit = *at;
    if (isOf(unit, kLetter))
        return scanWord(token);
    if (isOf(unit, kDigit))
        return scanNumber(token);
    ++at;
    const auto operatorOrAssignment = [&](TokenKind kind, int value) {
        take(u'=') ? set(token, kTokenCompoundAssignment, value) : set(token, kind, value);
    };
    switch (unit) {
    case u'!':
        return take(u'=') ? set(token, kTokenComparison, 32) : set(token, TokenKind{u'!'});
    case u'"':
        return scanString(token);
    case u'%':
        return operatorOrAssignment(kTokenMultiplicative, 5);
    case u'*':
        return operatorOrAssignment(kTokenMultiplicative, 3);
    case u'/':
        return operatorOrAssignment(kTokenMultiplicative, 4);
    case u'&':
        return take(u'&') ? set(token, kTokenAnd, 10)
                          : operatorOrAssignment(kTokenBitAnd, kTokenBitAnd);
    case u'|':
        return take(u'|') ? set(token, kTokenOr, 11)
                          : operatorOrAssignment(kTokenBitOr, kTokenBitOr);
    case u'^':
        return operatorOrAssignment(kTokenBitXor, kTokenBitXor);
    case u'\'':
        return scanCharacter(token);
    case u'+':
        return take(u'+') ? set(token, kTokenIncrement) : operatorOrAssignment(kTokenAdditive, 1);
    case u'-':
        return take(u'-') ? set(token, kTokenDecrement) : operatorOrAssignment(kTokenAdditive, 2);
    case u'<':
        return take(u'<') ? set(token, kTokenLeftShift, kTokenLeftShift)
                          : set(token, kTokenComparison, take(u'=') ? 30 : 29);
    case u'>':
        return take(u'>') ? set(token, kTokenRightShift, kTokenRightShift)
                          : set(token, kTokenComparison, take(u'=') ? 33 : 34);
    case u'=':
        return take(u'=') ? set(token, kTokenComparison, 31) : set(token, TokenKind{u'='});
    case u'(':
    case u')':
    case u',':
    case u'.':
    case u':':
    case u';':
    case u'?':
    case u'[':
    case u']':
    case u'{':
    case u'}':
        return set(token, static_cast<TokenKind>(unit));
    default:
        badCharacter(token, unit);
    }
}

void Lexer::scanWord(Token& token)
{
    const char16_t* begin = at;
    std::uint32_t hash = SymbolTable::kHashStart;
    for (; isOf(*at, kLetter | kDigit); ++at)
        hash = SymbolTable::hashStep(hash, *at);
    Symbol* symbol = symbols.intern(WStringView(begin, static_cast<std::size_t>(at - begin)), hash);
    token.symbol = symbol;
    if (symbol->keyword == kTokenTrue || symbol->keyword == kTokenFalse)
        return set(token, kTokenBoolean, symbol->keyword == kTokenTrue);
    token.kind = symbol->keyword;
    if (symbol->keyword == kTokenEnd)
        ended = true;
}

/// Digits wrap around at 32 bits. A leading 0 is a prefix: what follows other than x begins anew.
void Lexer::scanNumber(Token& token)
{
    std::uint32_t value = 0;
    if (*at == u'0') {
        ++at;
        if (*at == u'x' || *at == u'X')
            for (++at; isOf(*at, kHexDigit); ++at)
                value = value << 4 | hexValue(*at);
    } else {
        for (; isOf(*at, kDigit); ++at)
            value = value * 10 + (*at - u'0');
    }
    if (take(u'.'))
        return scanReal(token, value);
    set(token, kTokenInteger, static_cast<std::int32_t>(value));
}

/// The digits behind the point go on in the same 32 bits, so long constants wrap around.
void Lexer::scanReal(Token& token, std::uint32_t digits)
{
    double divisor = 1;
    for (; isOf(*at, kDigit); ++at) {
        digits = digits * 10 + (*at - u'0');
        divisor *= 10;
    }
    const double value = static_cast<std::int32_t>(digits) / divisor;
    set(token, kTokenReal, static_cast<std::int32_t>(constants.addNumber(value)));
}

/// Literals that follow each other are one, across blanks and lines.
void Lexer::scanString(Token& token)
{
    literal.clear();
    do {
        while (*at != u'"' && !endsText(*at)) {
            const char16_t unit = *at++;
            line += unit == u'\n';
            if (unit != u'\\') {
                literal.push_back(unit);
                continue;
            }
            if (endsText(*at))
                break;
            const char16_t escaped = *at++;
            line += escaped == u'\n';
            if (escaped == u'!' || escaped == u'.' || escaped == u'^')
                literal.push_back(u'\\'); // patterns get theirs unharmed
            literal.push_back(controlOf(escaped) ? controlOf(escaped) : escaped);
        }
        if (endsText(*at))
            break;
        ++at;
        skipBlanks();
    } while (take(u'"'));
    set(token, kTokenString, static_cast<std::int32_t>(constants.addText(literal)));
}

/// The closing quote is passed over unseen.
void Lexer::scanCharacter(Token& token)
{
    const auto takeUnit = [this] {
        if (endsText(*at))
            return char16_t{0};
        line += *at == u'\n';
        return *at++;
    };
    char16_t unit = takeUnit();
    if (unit == u'\\') {
        unit = takeUnit();
        unit = controlOf(unit) ? controlOf(unit) : unit;
    }
    takeUnit();
    set(token, kTokenInteger, unit);
}

bool Lexer::scanColour(Token& token)
{
    std::uint32_t value = 0;
    int digits = 0;
    for (; isOf(*at, kHexDigit); ++at, ++digits)
        value = value << 4 | hexValue(*at);
    if (digits == 0)
        return false;
    set(token, kTokenInteger, static_cast<std::int32_t>(colourOf(value, digits)));
    return true;
}

/// Always false: there is no token yet.
bool Lexer::include(const Token& token)
{
    Token word;
    if (skipBlanksAndComments() && isOf(*at, kLetter))
        scanWord(word);
    skipBlanks();
    if (word.kind != kTokenInclude || !take(u'"'))
        badCharacter(token, u'#');
    const char16_t* begin = at;
    while (*at != u'"' && !endsText(*at)) {
        line += *at == u'\n';
        ++at;
    }
    const WString name(begin, at);
    take(u'"');
    auto& script = sources.current();
    script.savedPosition = static_cast<std::size_t>(at - script.text.c_str());
    script.savedLine = line;
    if (!sources.includeFile(name))
        errors.fail({token.file, token.line}, "Couldn't open this file: " + toUtf8(name));
    enterSource();
    return false;
}

} // namespace varn
