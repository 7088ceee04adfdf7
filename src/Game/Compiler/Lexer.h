#pragma once

#include "Game/Compiler/CompileErrors.h"
#include "Game/Compiler/ConstantTable.h"
#include "Game/Compiler/IncludeStack.h"
#include "Game/Compiler/Symbols.h"
#include "Game/Compiler/Token.h"

namespace varn {

/// Turns the sources into tokens, following `#include` on the way. Names are interned and literals
/// enter the constant table as they are met.
class Lexer
{
  public:
    Lexer(IncludeStack& sources, SymbolTable& symbols, ConstantTable& constants,
          const CompileErrors& errors);

    /// Reads the next token; kTokenEnd behind the last source. Throws std::string on a character
    /// that begins none and on a file that cannot be included. The token is written where it stays:
    /// a copy right behind its narrow fields would wait for the processor's store queue.
    void next(Token& token);

  private:
    void enterSource();
    bool skipBlanksAndComments();
    bool skipComment();
    bool scan(Token& token);
    void scanPlain(Token& token);
    void scanWord(Token& token);
    void scanNumber(Token& token);
    void scanReal(Token& token, std::uint32_t digits);
    void scanString(Token& token);
    void scanCharacter(Token& token);
    bool scanColour(Token& token);
    bool include(const Token& token);
    void skipBlanks();
    bool take(char16_t expected);
    void set(Token& token, TokenKind kind, int value = 0);
    [[noreturn]] void badCharacter(const Token& token, char16_t unit) const;

    IncludeStack& sources;
    SymbolTable& symbols;
    ConstantTable& constants;
    const CompileErrors& errors;
    const char16_t* at = nullptr; // into the current source, which ends with a zero
    std::uint32_t line = 1;
    bool ended = false;
    WString literal; // the string being read
};

} // namespace varn
