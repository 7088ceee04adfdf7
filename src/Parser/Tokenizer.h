#pragma once

#include "Util/Text.h"

#include <optional>

namespace varn {

/// The small tokenizer of the script language, for code completion and for calls that the tool
/// itself reads ("warp(3, 4);"). It has the compiler's rules for comments, strings and numbers, but
/// includes no file and never stops: a character that begins no token is remembered and skipped.
class Tokenizer
{
  public:
    enum class Kind
    {
        Word,    ///< an identifier or a keyword
        Integer, ///< decimal, `0x1F`, a character constant, a colour constant (`#F80`)
        Real,
        String, ///< neighbours are one token
        Mark,   ///< an operator or a single character
    };
    struct Token
    {
        Kind kind;
        WString text;           ///< as written; of a string its contents
        std::int32_t value = 0; ///< of an integer
        int line = 1;           ///< where it begins
    };

    /// @param source  borrowed for the tokenizer's life
    explicit Tokenizer(WStringView source) : source(source) {}

    /// Nothing at the end of the text.
    std::optional<Token> next();
    /// All that are left.
    std::vector<Token> rest();
    /// What stands before the next `separator` or the end, whatever it is; both are stepped over.
    WStringView cutAt(char16_t separator);

    /// A line "Line:%d lex(): find a bad char '%c'\n" for each character that was skipped.
    const WString& getComplaints() const { return complaints; }

  private:
    bool atEnd() const { return at >= source.size(); }
    char16_t peek(std::size_t ahead = 0) const;
    char16_t take();
    bool skipBlanks();
    bool skipComment();
    bool readToken(Token& token);
    void readWord(Token& token);
    void readNumber(Token& token);
    void readColour(Token& token);
    void readCharacter(Token& token);
    void readString(Token& token);

    WStringView source;
    std::size_t at = 0;
    int line = 1;
    WString complaints;
};

} // namespace varn
