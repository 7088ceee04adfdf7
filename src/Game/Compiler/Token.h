#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace varn {

struct Symbol;

/// Kinds of tokens; those below 256 are the character itself. Nodes of the tree use the same
/// numbers.
enum TokenKind : std::int16_t
{
    kTokenEnd = -1,
    kTokenInclude = 258,
    kTokenImport = 259,
    kTokenClass = 261,
    kTokenFunction = 262,
    kTokenVar = 264,
    kTokenIf = 266,
    kTokenElse = 267,
    kTokenReturn = 268,
    kTokenWith = 270,
    kTokenFor = 271,
    kTokenWhile = 272,
    kTokenDo = 273,
    kTokenSwitch = 274,
    kTokenCase = 275,
    kTokenDefault = 276,
    kTokenBreak = 277,
    kTokenContinue = 278,
    kTokenThrow = 279,
    kTokenTry = 280,
    kTokenCatch = 281,
    kTokenFinally = 282,
    kTokenInstanceof = 283,
    kTokenTypeof = 284,
    kTokenIs = 285,
    kTokenPrivate = 287,
    kTokenProtected = 288,
    kTokenPublic = 289,
    kTokenVirtual = 290,
    kTokenAbstract = 291,
    kTokenInterface = 292,
    kTokenIn = 293,
    kTokenDelete = 294,
    kTokenThis = 295,
    kTokenNew = 296,
    kTokenTrue = 297,  ///< delivered as kTokenBoolean
    kTokenFalse = 298, ///< likewise
    kTokenIdentifier = 299,
    kTokenInteger = 300,
    kTokenReal = 301,
    kTokenBoolean = 302,
    kTokenString = 303,
    kTokenIdent = 305, ///< the reserved word IDENT
    kTokenNull = 306,
    kTokenComparison = 307,
    kTokenAdditive = 308,
    kTokenMultiplicative = 309,
    kTokenCompoundAssignment = 310,
    kTokenBitAnd = 311,
    kTokenBitOr = 312,
    kTokenAnd = 313,
    kTokenOr = 314,
    kTokenBitXor = 315,
    kTokenRightShift = 316,
    kTokenLeftShift = 317,
    kTokenVoid = 318,
    kTokenDecrement = 329,
    kTokenIncrement = 330,
};

/// One token with its meaning.
struct Token
{
    TokenKind kind = kTokenEnd;
    std::uint16_t file = 0;   ///< index of the source it stands in
    std::uint32_t line = 1;   ///< on which it begins, from 1
    std::int32_t value = 0;   ///< literal, constant index, or the node kind of an operator
    Symbol* symbol = nullptr; ///< of an identifier
};

struct Keyword
{
    std::string_view spelling;
    TokenKind kind;
};

/// The reserved words, in the order in which the editor lists them.
inline constexpr std::array<Keyword, 40> kKeywords = {{
    {"break", kTokenBreak},
    {"case", kTokenCase},
    {"catch", kTokenCatch},
    {"continue", kTokenContinue},
    {"default", kTokenDefault},
    {"delete", kTokenDelete},
    {"do", kTokenDo},
    {"else", kTokenElse},
    {"finally", kTokenFinally},
    {"for", kTokenFor},
    {"function", kTokenFunction},
    {"class", kTokenClass},
    {"if", kTokenIf},
    {"in", kTokenIn},
    {"instanceof", kTokenInstanceof},
    {"is", kTokenIs},
    {"new", kTokenNew},
    {"return", kTokenReturn},
    {"switch", kTokenSwitch},
    {"this", kTokenThis},
    {"throw", kTokenThrow},
    {"try", kTokenTry},
    {"typeof", kTokenTypeof},
    {"var", kTokenVar},
    {"void", kTokenVoid},
    {"while", kTokenWhile},
    {"with", kTokenWith},
    {"import", kTokenImport},
    {"include", kTokenInclude},
    {"virtual", kTokenVirtual},
    {"private", kTokenPrivate},
    {"protected", kTokenProtected},
    {"public", kTokenPublic},
    {"abstract", kTokenAbstract},
    {"interface", kTokenInterface},
    {"true", kTokenTrue},
    {"false", kTokenFalse},
    {"null", kTokenNull},
    {"EOF", kTokenEnd},
    {"IDENT", kTokenIdent},
}};

} // namespace varn
