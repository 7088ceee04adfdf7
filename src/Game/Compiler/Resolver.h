#pragma once

#include "Game/Compiler/AST.h"
#include "Game/Compiler/CompileErrors.h"
#include "Game/Compiler/Nesting.h"
#include "Game/Compiler/Parser.h"
#include "Game/Compiler/Symbols.h"

#include <functional>
#include <vector>

namespace varn {

/// Most declarations that may be in force at once, `_ret` and functions counted.
inline constexpr std::size_t kMaxDeclarations = 512;

/// A function as the code generator finds it.
struct ResolvedFunction
{
    Symbol* name = nullptr;
    AST* body = nullptr; ///< null: no item defines it, as in a class body
    std::uint32_t parameters = 0;
    std::uint32_t slots = 0;          ///< registers of its parameters and variables
    std::vector<Variable*> variables; ///< those whose kind is worth knowing
};

/// What the resolver hands on: the tree, with variables at its identifiers.
struct ResolvedProgram
{
    std::vector<AST*> items;
    std::vector<ResolvedFunction> functions; ///< by Variable::functionNumber
    std::vector<Variable*> definitions;      ///< the variable of each function, in step with it
    std::vector<Variable*> variables;        ///< of the top level
    std::uint32_t slots = 0;                 ///< registers of those variables
    /// Class of the receiver by declaration, by the `value` of a method call; null: by its value.
    std::vector<ClassInterface*> receiverClasses;
    bool defaultsAssign = false;
};

/// Gives every name its meaning, in the order in which code is made: scopes and slots, classes and
/// methods, the number of arguments. Reports every fault of that kind; where there is none, the
/// tree is ready for the code generator: identifiers carry their variable, calls their missing
/// arguments, class members the mark that they are static.
class Resolver
{
  public:
    Resolver(SymbolTable& symbols, Arena& arena, CompileErrors& errors);

    /// @param functionReady  gets the number of each function whose names all have their meaning,
    ///                       at once: its tree is still in the processor's caches
    void resolve(const SyntaxTree& tree, const std::function<void(std::uint32_t)>& functionReady);
    const ResolvedProgram& getProgram() const { return program; }

  private:
    /// Declarations in force, to be taken back at the end of a scope.
    struct Scope
    {
        std::size_t declared;
        std::uint32_t nextSlot;
    };

    Variable* declare(AST* name, Storage storage, Symbol* typeName);
    void declareFunction(AST* function);
    Scope openScope() const { return {declared.size(), nextSlot}; }
    void closeScope(const Scope& scope);
    Variable* functionVariable(Symbol* name) const;
    void assign(Variable& variable, AST* value);
    void assignUnknown(Variable& variable) { assign(variable, nullptr); }

    void resolveItem(AST* item);
    void declareClass(AST* item);
    void resolveFunction(AST* function);
    bool declareParameters(AST* parameters);
    void statement(AST* node);
    void statements(AST* list);
    void body(AST* node);
    void loop(AST* node);
    void forLoop(AST* node);
    void forPart(AST* node);
    void declarators(AST* list);
    void declarator(AST* node);
    Symbol* inferredType(AST* value);
    void assignZero(Variable& variable);
    void readItself(Variable& variable);

    void expression(AST* node);
    void visit(AST* node);
    void leftChain(AST* node);
    void expressions(AST* list);
    void identifier(AST* node);
    void assignment(AST* node);
    void step(AST* node);
    void selectorList(AST* node, bool stores);
    void selectors(AST* list);
    void call(AST* node);
    void fillArguments(AST* node, const Variable& function);
    void methodCall(AST* node);
    void staticCall(Symbol* head, const AST* method);
    void className(AST* name);
    AST* copy(const AST* node);

    void report(ErrorCode code, const AST* at, std::string_view name);
    bool inFunction() const { return currentFunction != nullptr; }

    SymbolTable& symbols;
    Arena& arena;
    CompileErrors& errors;
    Symbol* const textType;
    Symbol* const arrayType;
    Nesting nesting;
    ResolvedProgram program;
    std::vector<Variable*> declared;
    ResolvedFunction* currentFunction = nullptr;
    const Variable* initialised = nullptr; // whose initial value is being walked
    std::uint32_t nextSlot = 0;
    std::size_t copies = 0;
    int loops = 0;
    bool tooMany = false; // reported already
};

/// The last cell of a selector list: the method of a call, the last member or index.
AST* lastCell(AST* list);

} // namespace varn
