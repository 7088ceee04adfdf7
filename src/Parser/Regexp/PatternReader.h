#pragma once

#include "Parser/Regexp/Pattern.h"

namespace varn::regexp {

/// A cursor over a pattern's text. Keeps what is in force across its syntax: the quote `\Q`, the
/// case switches `\L` and `\U`, extended mode. A copy remembers a place to come back to.
class PatternReader
{
  public:
    PatternReader(WStringView text, bool extended) : text(text), extended(extended) {}

    bool atEnd() const { return position == text.size(); }
    /// The next unit; not at the end.
    char16_t peek() const { return text[position]; }
    bool at(WStringView units) const { return text.substr(position).starts_with(units); }
    char16_t take() { return text[position++]; }
    /// The next unit, or the two of a surrogate pair.
    char32_t takeCodePoint();
    bool accept(char16_t unit);
    bool accept(WStringView units);
    /// The same for a unit that means something, so not within a quote.
    bool atOperator(char16_t unit) const { return !quoting && !atEnd() && peek() == unit; }
    bool acceptOperator(char16_t unit) { return !quoting && accept(unit); }
    /// Decimal digits; what passes 32 bits counts as kUnlimited.
    std::optional<int> takeNumber();
    /// A group's name up to its terminator, which is taken too: letters, digits and `_`, not empty.
    WString takeName(char16_t terminator);
    /// Behind a backslash that stands for one character.
    char32_t takeEscapedCharacter();

    /// Passes what is no element: switches, ends of quotes, comments, in extended mode white space.
    void skipIgnored();
    /// Passes switches and ends of quotes only, as within a class.
    void skipSwitches();
    bool isQuoting() const { return quoting; }
    /// A character of the pattern under the case switch in force.
    char32_t switchCase(char32_t character) const;

    bool isExtended() const { return extended; }
    void setExtended(bool on) { extended = on; }
    /// Whether a `[` within a class opens a class.
    bool nestsClasses() const { return nesting; }
    void setNestsClasses(bool on) { nesting = on; }

    std::size_t getPosition() const { return position; }
    [[noreturn]] void fail(WString message) const;

  private:
    enum class Case : std::uint8_t
    {
        AsWritten,
        Lower,
        Upper
    };

    bool skipSwitch();
    void skipComment();
    char32_t takeHexadecimal(int leastDigits, int mostDigits);
    char32_t takeBracedHexadecimal();
    char32_t takeOctal();

    WStringView text;
    std::size_t position = 0;
    bool extended;
    bool quoting = false;
    bool nesting = true;
    Case letters = Case::AsWritten;
};

bool isDigit(char16_t unit);

} // namespace varn::regexp
