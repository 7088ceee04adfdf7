#pragma once

#include "Game/Compiler/AST.h"
#include "Game/Compiler/CompileErrors.h"
#include "Game/Compiler/Lexer.h"
#include "Game/Compiler/Nesting.h"

#include <vector>

namespace varn {

/// The tree of one program.
struct SyntaxTree
{
    std::vector<AST*> items;     ///< top-level items in order
    std::vector<AST*> functions; ///< every function definition in order, those in class bodies too
    bool defaultsAssign = false; ///< some parameter default writes a variable
};

/// Builds the tree of the language's grammar by recursive descent; operators climb by precedence.
/// The first fault ends the parse: std::string with "syntax error", or "memory exhausted" for text
/// nested beyond what the grammar's automaton held.
///
/// Precedence, tightest first: `is`; unary `+ - ! typeof`; `* / %`; `+ -`; `<< >>`; `& | ^`;
/// comparisons;
/// `&& ||` (one level); `?:`; assignments. An assignment may stand wherever an operand may: its
/// target is taken by the operator before it, its value reaches as far as it can.
class Parser
{
  public:
    Parser(Lexer& lexer, Arena& arena, const CompileErrors& errors);

    SyntaxTree parseProgram();

  private:
    AST* parseItem();
    AST* parseFunction();
    AST* parseClass();
    AST* parseDeclarators();
    AST* parseDeclarator();

    AST* parseStatement();
    AST* parseBlockOrTable();
    AST* parseStatements();
    AST* parseVar();
    AST* parseReturn();
    AST* parseWhile();
    AST* parseIf();
    AST* parseFor();
    AST* parseForPart();
    AST* parseSwitch();
    AST* parseCase();
    AST* parseBody();
    AST* endStatement(AST* statement);
    AST* parseKeyword();

    AST* parseExpression() { return parseOperators(kLowest); }
    AST* parseOperators(int lowest);
    AST* climb(AST* left, int lowest);
    AST* parseConditional(AST* condition);
    AST* parseUnary();
    AST* parseIs(AST* operand);
    AST* parsePrimary();
    AST* parseParenthesis();
    AST* parseArrayLiteral();
    AST* parsePairs(const Token& open);
    AST* parseText();
    AST* parseNew();
    AST* parseStep();
    AST* parseName(const Token& name);
    AST* parseBehindTarget(AST* target);
    enum class Calls
    {
        No,
        Yes
    };
    AST* parseSelectors(AST* head, Calls calls);
    AST* parseMethodCall(ListBuilder& selectors, const Token& method);
    AST* parseArguments();
    AST* leaf();

    static constexpr int kLowest = 0;

    AST* node(int kind, const Token& at, AST* left = nullptr, AST* right = nullptr);
    AST* identifier(const Token& name);
    AST* literal(const Token& token);
    template <class Body>
    AST* nested(int entries, Body&& body);

    const Token& peek();
    void advance();
    Token expect(int kind);
    Token expectIdentifier() { return expect(kTokenIdentifier); }
    bool accept(int kind);
    bool at(int kind) const { return token.kind == kind; }
    [[noreturn]] void syntaxError() const;

    Lexer& lexer;
    Arena& arena;
    const CompileErrors& errors;
    Nesting nesting;
    SyntaxTree tree;
    Token token; // the one to be taken next
    Token ahead; // the one behind it, once it was asked for
    bool hasAhead = false;
};

} // namespace varn
