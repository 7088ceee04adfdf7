#include "Game/Compiler/Parser.h"

namespace varn {
namespace {

/// How tightly an operator binds its operands; 0 for what is no binary operator.
constexpr int kConditional = 1;
int precedenceOf(TokenKind kind)
{
    switch (kind) {
    case kTokenMultiplicative:
        return 7;
    case kTokenAdditive:
        return 6;
    case kTokenLeftShift:
    case kTokenRightShift:
        return 5;
    case kTokenBitAnd:
    case kTokenBitOr:
    case kTokenBitXor:
        return 4;
    case kTokenComparison:
        return 3;
    case kTokenAnd:
    case kTokenOr:
        return 2;
    default:
        return 0;
    }
}

void inheritFlags(AST& into, const AST* from)
{
    if (from)
        into.flags |= from->flags & (AST::kAssigns | AST::kCalls);
}

} // namespace

Parser::Parser(Lexer& lexer, Arena& arena, const CompileErrors& errors)
    : lexer(lexer), arena(arena), errors(errors)
{
    lexer.next(token);
}

void Parser::syntaxError() const
{
    errors.fail({token.file, token.line}, "syntax error");
}

const Token& Parser::peek()
{
    if (!hasAhead) {
        lexer.next(ahead);
        hasAhead = true;
    }
    return ahead;
}

void Parser::advance()
{
    if (!hasAhead)
        return lexer.next(token);
    token = ahead;
    hasAhead = false;
}

bool Parser::accept(int kind)
{
    if (!at(kind))
        return false;
    advance();
    return true;
}

Token Parser::expect(int kind)
{
    if (!at(kind))
        syntaxError();
    const Token taken = token;
    advance();
    return taken;
}

/// Goes one level deeper; `entries` is what the construct keeps on the automaton's stack meanwhile.
template <class Body>
AST* Parser::nested(int entries, Body&& body)
{
    AST* made = nullptr;
    if (!nesting.enter(entries, [&] { made = body(); }))
        errors.fail({token.file, token.line}, "memory exhausted");
    return made;
}

AST* Parser::node(int kind, const Token& at, AST* left, AST* right)
{
    AST* made = arena.make<AST>();
    made->kind = static_cast<std::int16_t>(kind);
    made->fileIndex = at.file;
    made->line = at.line;
    made->left = left;
    made->right = right;
    inheritFlags(*made, left);
    inheritFlags(*made, right);
    return made;
}

AST* Parser::identifier(const Token& name)
{
    AST* made = node(kTokenIdentifier, name);
    made->symbol = name.symbol;
    return made;
}

AST* Parser::literal(const Token& token)
{
    AST* made = node(token.kind, token);
    made->value = token.value;
    return made;
}

SyntaxTree Parser::parseProgram()
{
    while (!at(kTokenEnd))
        tree.items.push_back(parseItem());
    return std::move(tree);
}

AST* Parser::parseItem()
{
    if (at(kTokenFunction))
        return parseFunction();
    return at(kTokenClass) ? parseClass() : parseStatement();
}

AST* Parser::parseFunction()
{
    advance();
    const Token name = expectIdentifier();
    expect('(');
    AST* parameters = at(')') ? nullptr : parseDeclarators();
    expect(')');
    tree.defaultsAssign |= parameters && parameters->has(AST::kAssigns);
    if (accept(':'))
        expect(kTokenVoid);
    if (!at('{'))
        syntaxError();
    AST* body = nested(4, [this] { return parseBlockOrTable(); });
    if (body->kind != kNodeBlock)
        syntaxError();
    AST* made =
        node(kNodeFunction, name, identifier(name), node(kNodePair, name, parameters, body));
    tree.functions.push_back(made);
    return made;
}

AST* Parser::parseClass()
{
    advance();
    const Token name = expectIdentifier();
    expect('{');
    AST* body = nested(3, [this] { return parseItem(); });
    expect('}');
    return node(kNodeClass, name, identifier(name), body);
}

AST* Parser::parseDeclarators()
{
    ListBuilder declarators;
    do
        declarators.append(arena, parseDeclarator());
    while (accept(','));
    return declarators.first;
}

AST* Parser::parseDeclarator()
{
    const Token name = expectIdentifier();
    AST* type = accept(':') ? identifier(expectIdentifier()) : nullptr;
    AST* typed = node(kNodeTypedName, name, identifier(name), type);
    AST* value = accept('=') ? nested(3, [this] { return parseExpression(); }) : nullptr;
    return node(kNodeDeclarator, name, typed, value);
}

AST* Parser::endStatement(AST* statement)
{
    expect(';');
    return statement;
}

AST* Parser::parseStatement()
{
    switch (int{token.kind}) {
    case ';': {
        const Token empty = token;
        advance();
        return node(kNodeEmpty, empty);
    }
    case '{':
        return nested(2, [this] { return parseBlockOrTable(); });
    case kTokenVar:
        return endStatement(parseVar());
    case kTokenReturn:
        return parseReturn();
    case kTokenWhile:
        return parseWhile();
    case kTokenIf:
        return parseIf();
    case kTokenFor:
        return parseFor();
    case kTokenSwitch:
        return parseSwitch();
    case kTokenBreak:
    case kTokenContinue:
        return endStatement(parseKeyword());
    default:
        return endStatement(parseExpression());
    }
}

AST* Parser::parseKeyword()
{
    AST* made = node(token.kind, token);
    advance();
    return made;
}

/// A statement that is part of another: `entries` of the grammar stand before it.
AST* Parser::parseBody()
{
    return nested(5, [this] { return parseStatement(); });
}

/// `{` begins a block, or, where a name and a colon follow, the expression statement of a table.
AST* Parser::parseBlockOrTable()
{
    const Token open = token;
    advance();
    if (at(kTokenIdentifier) && peek().kind == ':') {
        return endStatement(climb(parseIs(parsePairs(open)), kLowest));
    }
    AST* statements = at('}') ? nullptr : parseStatements();
    expect('}');
    return node(kNodeBlock, open, statements);
}

/// One or more statements, up to what ends a block or a case.
AST* Parser::parseStatements()
{
    ListBuilder statements;
    do
        statements.append(arena, parseStatement());
    while (!at('}') && !at(kTokenCase) && !at(kTokenDefault));
    return statements.first;
}

AST* Parser::parseVar()
{
    const Token keyword = token;
    advance();
    return node(kNodeVar, keyword, parseDeclarators());
}

AST* Parser::parseReturn()
{
    const Token keyword = token;
    advance();
    AST* value = at(';') ? nullptr : parseExpression();
    return endStatement(node(kTokenReturn, keyword, value));
}

AST* Parser::parseWhile()
{
    const Token keyword = token;
    advance();
    expect('(');
    AST* condition = parseExpression();
    expect(')');
    return node(kTokenWhile, keyword, condition, parseBody());
}

AST* Parser::parseIf()
{
    const Token keyword = token;
    advance();
    expect('(');
    AST* condition = parseExpression();
    expect(')');
    ListBuilder branches;
    branches.append(arena, parseBody());
    if (accept(kTokenElse))
        branches.append(arena, nested(1, [this] { return parseBody(); }));
    return node(kTokenIf, keyword, condition, branches.first);
}

AST* Parser::parseForPart()
{
    if (at(';') || at(')'))
        return node(kNodeEmpty, token);
    return at(kTokenVar) ? parseVar() : parseExpression();
}

AST* Parser::parseFor()
{
    const Token keyword = token;
    advance();
    expect('(');
    ListBuilder parts;
    parts.append(arena, parseForPart());
    expect(';');
    parts.append(arena, at(';') ? node(kNodeEmpty, token) : parseExpression());
    expect(';');
    parts.append(arena, parseForPart());
    expect(')');
    return node(kTokenFor, keyword, parts.first, nested(3, [this] { return parseBody(); }));
}

AST* Parser::parseSwitch()
{
    AST* made = node(kTokenSwitch, token);
    advance();
    expect('(');
    made->left = parseExpression();
    expect(')');
    expect('{');
    ListBuilder cases;
    do
        cases.append(arena, nested(6, [this] { return parseCase(); }));
    while (!at('}'));
    expect('}');
    made->right = cases.first;
    return made;
}

AST* Parser::parseCase()
{
    const Token keyword = token;
    AST* constant = nullptr;
    if (accept(kTokenCase)) {
        if (!at(kTokenInteger) && !at(kTokenString))
            syntaxError();
        constant = leaf();
    } else {
        expect(kTokenDefault);
    }
    expect(':');
    if (at('}'))
        syntaxError();
    AST* statements = parseStatements();
    return constant ? node(kTokenCase, keyword, constant, statements)
                    : node(kTokenDefault, keyword, statements);
}

AST* Parser::parseOperators(int lowest)
{
    return climb(parseUnary(), lowest);
}

/// Operators behind an operand, as long as they bind at least as tightly as `lowest`. Left-grouping
/// chains grow in this loop, so their length is not nesting.
AST* Parser::climb(AST* left, int lowest)
{
    for (;;) {
        const Token op = token;
        const int precedence = precedenceOf(op.kind);
        if (precedence > 0 && precedence >= lowest) {
            advance();
            AST* right = nested(2, [this, precedence] { return parseOperators(precedence + 1); });
            left = node(op.value, op, left, right);
        } else if (op.kind == '?' && lowest <= kConditional) {
            left = parseConditional(left);
        } else {
            return left;
        }
    }
}

AST* Parser::parseConditional(AST* condition)
{
    const Token mark = token;
    advance();
    AST* first = nested(2, [this] { return parseExpression(); });
    expect(':');
    AST* second = nested(4, [this] { return parseOperators(kConditional); });
    return node(kNodeConditional, mark, condition, node(kNodePair, mark, first, second));
}

AST* Parser::parseUnary()
{
    const Token op = token;
    if (!at(kTokenAdditive) && !at('!') && !at(kTokenTypeof))
        return parseIs(parsePrimary());
    advance();
    AST* operand = nested(1, [this] { return parseUnary(); });
    const int kind = op.kind == '!'            ? static_cast<int>(kNodeNot)
                     : op.kind == kTokenTypeof ? static_cast<int>(kTokenTypeof)
                                               : op.value;
    return node(kind, op, operand);
}

AST* Parser::parseIs(AST* operand)
{
    while (at(kTokenIs)) {
        const Token op = token;
        advance();
        operand = node(kTokenIs, op, operand, identifier(expectIdentifier()));
    }
    return operand;
}

AST* Parser::parsePrimary()
{
    switch (int{token.kind}) {
    case '(':
        return parseParenthesis();
    case '[':
        return parseArrayLiteral();
    case '{': {
        const Token open = token;
        advance();
        return parsePairs(open);
    }
    case kTokenInteger:
    case kTokenReal:
    case kTokenBoolean:
    case kTokenNull:
        return leaf();
    case kTokenString:
        return parseText();
    case kTokenNew:
        return parseNew();
    case kTokenIncrement:
    case kTokenDecrement:
        return parseStep();
    case kTokenIdentifier: {
        const Token name = token;
        advance();
        return parseName(name);
    }
    default:
        syntaxError();
    }
}

AST* Parser::leaf()
{
    AST* made = literal(token);
    advance();
    return made;
}

AST* Parser::parseParenthesis()
{
    advance();
    AST* inner = nested(1, [this] { return parseExpression(); });
    expect(')');
    return inner;
}

AST* Parser::parseArrayLiteral()
{
    const Token open = token;
    advance();
    ListBuilder elements;
    do
        elements.append(arena,
                        nested(elements.first ? 3 : 1, [this] { return parseExpression(); }));
    while (accept(','));
    expect(']');
    return node(kNodeArray, open, elements.first);
}

/// The pairs of a table literal, behind its brace.
AST* Parser::parsePairs(const Token& open)
{
    ListBuilder pairs;
    do {
        const Token name = expectIdentifier();
        expect(':');
        AST* typed = node(kNodeTypedName, name, identifier(name));
        AST* value = nested(5, [this] { return parseExpression(); });
        pairs.append(arena, node(kNodeDeclarator, name, typed, value));
    } while (accept(','));
    expect('}');
    return node(kNodeTable, open, pairs.first);
}

/// A text literal, alone or as the receiver of a method.
AST* Parser::parseText()
{
    AST* text = leaf();
    if (!accept('.'))
        return text;
    ListBuilder selectors;
    selectors.append(arena, text);
    return parseMethodCall(selectors, expectIdentifier());
}

AST* Parser::parseNew()
{
    const Token keyword = token;
    advance();
    AST* name = identifier(expectIdentifier());
    AST* made = node(kNodeNew, keyword, name, parseArguments());
    made->flags |= AST::kCalls;
    return made;
}

/// `++` and `--` before their target.
AST* Parser::parseStep()
{
    const Token op = token;
    advance();
    const Token name = expectIdentifier();
    AST* target = parseSelectors(identifier(name), Calls::No);
    AST* made = node(op.kind, op, nullptr, target);
    made->flags |= AST::kAssigns;
    return made;
}

AST* Parser::parseName(const Token& name)
{
    if (at('(')) {
        AST* made = node(kNodeCall, name, identifier(name), parseArguments());
        made->flags |= AST::kCalls;
        return made;
    }
    AST* target = parseSelectors(identifier(name), Calls::Yes);
    return target->kind == kNodeMethodCall ? target : parseBehindTarget(target);
}

/// What may follow a variable, an element or a member: a step, an assignment, or nothing.
AST* Parser::parseBehindTarget(AST* target)
{
    const Token op = token;
    AST* made = nullptr;
    if (op.kind == kTokenIncrement || op.kind == kTokenDecrement) {
        advance();
        made = node(op.kind, op, target);
    } else if (op.kind == '=') {
        advance();
        made = node(kNodeAssign, op, target, nested(2, [this] { return parseExpression(); }));
    } else if (op.kind == kTokenCompoundAssignment) {
        advance();
        AST* value = nested(2, [this] { return parseExpression(); });
        made = node(kNodeAssign, op, target, node(op.value, op, target, value));
    } else {
        return target;
    }
    made->flags |= AST::kAssigns;
    return made;
}

/// Selectors behind a name. The name alone stays an identifier; with selectors it becomes a list
/// that begins with its head; with arguments behind a member name the list is that of a method
/// call.
AST* Parser::parseSelectors(AST* head, Calls calls)
{
    ListBuilder selectors;
    const auto begin = [&](const Token& at) {
        if (!selectors.first)
            selectors.append(arena, node(kNodeHead, at, head));
    };
    const Token first = token;
    for (;;) {
        if (accept('[')) {
            begin(first);
            const Token open = token;
            AST* index = nested(2, [this] { return parseExpression(); });
            expect(']');
            selectors.append(arena, node(kNodeIndex, open, index));
        } else if (accept('.')) {
            begin(first);
            const Token name = expectIdentifier();
            if (calls == Calls::Yes && at('('))
                return parseMethodCall(selectors, name);
            selectors.append(arena, identifier(name));
        } else {
            return selectors.first ? selectors.first : head;
        }
    }
}

AST* Parser::parseMethodCall(ListBuilder& selectors, const Token& method)
{
    selectors.append(arena, identifier(method));
    AST* made = node(kNodeMethodCall, method, selectors.first, parseArguments());
    made->flags |= AST::kCalls;
    return made;
}

/// The head of a list of arguments may be missing before its first comma.
AST* Parser::parseArguments()
{
    ListBuilder arguments;
    expect('(');
    if (!at(')')) {
        if (!at(','))
            arguments.append(arena, nested(4, [this] { return parseExpression(); }));
        while (accept(','))
            arguments.append(arena, nested(4, [this] { return parseExpression(); }));
    }
    expect(')');
    return arguments.first;
}

} // namespace varn
