#pragma once

#include "Game/Compiler/ConstantTable.h"
#include "Game/Compiler/JumpList.h"
#include "Game/Compiler/Nesting.h"
#include "Game/Compiler/Program.h"
#include "Game/Compiler/Resolver.h"

#include <vector>

namespace varn {

/// Writes the code of a resolved tree, which has no faults left.
///
/// A function's registers are its parameters, its variables by slot, then temporaries in the manner
/// of a stack. The top level has the global slots for variables, so its code works on globals in
/// place. Loops test at their end. What is known of kinds (KindInference) chooses unguarded forms.
class CodeGenerator
{
  public:
    CodeGenerator(Program& program, ConstantTable& constants, const CompileErrors& errors,
                  const ResolvedProgram& resolved);

    /// Writes the code of a function as the resolver left it; a later definition of the same
    /// function takes its place. Every function is declared by then.
    void addFunction(std::uint32_t number);
    /// Writes the top level, behind the functions, and makes the program ready to run.
    void finish();

  private:
    /// A value that an instruction may take: a register, or a constant within the instruction.
    struct Operand
    {
        enum class Mode : std::uint8_t
        {
            Register,
            Integer,
            Real
        };
        Mode mode = Mode::Register;
        KnownKind kind = KnownKind::Any;
        bool isVariable = false; ///< the register of a variable, which later code may write
        std::int32_t value = 0;  ///< register, integer, or index of the constant

        bool isConstant() const { return mode != Mode::Register; }
        bool fitsShort() const
        {
            return mode == Mode::Integer && value == static_cast<std::int16_t>(value);
        }
    };
    struct Loop
    {
        JumpList breaks, continues;
    };
    enum class Result
    {
        Wanted,
        Dropped
    };

    // Functions and statements.
    void declareFunctions();
    void generateTopLevel();
    void generateFunction(const ResolvedFunction& function, FunctionCode& code);
    template <class Body>
    void withShortJumps(Body&& body);
    void statement(AST* node);
    void statementHere(AST* node);
    void statements(AST* list);
    void declarator(AST* node);
    void ifStatement(AST* node);
    void whileLoop(AST* node);
    void forLoop(AST* node);
    bool countingLoop(AST* node);
    void loopBody(AST* body, Loop& loop);
    void returnStatement(AST* node);
    void effect(AST* node);

    // Expressions.
    Operand operand(AST* node);
    Operand leftOperand(AST* node, const AST* right);
    std::int32_t negativeLiteral(const AST& node);
    std::int32_t inRegister(const Operand& operand);
    std::int32_t registerOf(AST* node) { return inRegister(operand(node)); }
    void into(AST* node, std::int32_t target);
    void intoHere(AST* node, std::int32_t target);
    void arithmetic(AST* node, std::int32_t target);
    KnownKind emitArithmetic(AST* node, std::int32_t target, Operand left, Operand right);
    void emitAdd(std::int32_t target, Operand left, Operand right);
    void emitNumeric(int op, std::int32_t target, const Operand& left, Operand right);
    void emitDivide(std::int32_t target, const Operand& left, const Operand& right);
    void emitIntegral(int op, std::int32_t target, Operand left, Operand right);
    void comparison(AST* node, std::int32_t target);
    void logical(AST* node, std::int32_t target);
    void conditional(AST* node, std::int32_t target);
    void unary(AST* node, std::int32_t target);
    void array(AST* node, std::int32_t target);
    Operand assignment(AST* node, Result result);
    Operand step(AST* node, Result result);
    Operand stepElement(AST* node, AST* target, Result result);
    void steppedBy(AST* node, std::int32_t target, KnownKind kind);
    bool hazard(const AST* later) const;
    bool isRegister(const Variable& variable) const;
    std::int32_t registerOf(const Variable& variable) const;

    // Conditions.
    void branch(AST* node, bool sense, JumpList& jumps);
    void branchHere(AST* node, bool sense, JumpList& jumps);
    void branchChain(AST* node, bool sense, JumpList& jumps);
    void branchComparison(AST* node, bool sense, JumpList& jumps);

    // Elements, members and calls.
    struct Selection
    {
        AST* head = nullptr;
        std::int32_t base = 0; ///< register or slot
        bool isGlobal = false;
        std::int32_t first = 0; ///< register of the first selector
        std::int32_t count = 0;
        AST* member = nullptr; ///< the one selector, when it is a name
    };
    Selection selection(AST* list);
    void load(const Selection& from, std::int32_t target, Symbol& head);
    void selectOne(AST* selector, std::int32_t base, std::int32_t target, Symbol& head);
    void store(const Selection& into, std::int32_t value);
    bool storeConstant(AST* list, const AST& value);
    void select(AST* list, std::int32_t target);
    std::int32_t arguments(AST* list, int& count);
    std::int32_t call(AST* node);
    void callNative(AST* node, std::int32_t target);
    void methodCall(AST* node, std::int32_t target);
    void staticCall(AST* list, AST* arguments, std::int32_t target);
    std::int32_t receiver(AST* list);
    void newObject(AST* node, std::int32_t target);
    std::uint32_t addSite(Symbol& method, int count, ClassInterface* declared, bool isStatic);

    // Instructions.
    std::size_t emit(Opcode opcode, std::int32_t a = 0, std::int32_t b = 0, std::int32_t c = 0);
    std::size_t emitWide(Opcode opcode, std::int32_t a, std::int32_t wide);
    void emitExtra(Opcode opcode, std::int32_t a, std::int32_t wide);
    void move(std::int32_t target, std::int32_t source);
    std::size_t emitBranch(Opcode opcode, std::int32_t a, std::int32_t b);
    std::size_t emitJump() { return emitWide(Opcode::Jump, 0, 0); }
    void patch(std::size_t at, std::size_t target);
    void patchHere(const JumpList& jumps);
    void patchTo(const JumpList& jumps, std::size_t target);
    std::size_t here() const { return program.code.size(); }
    std::int32_t newTemporary(std::int32_t count = 1);
    std::uint32_t nameIndex(Symbol& symbol);
    std::uint32_t classIndex(Symbol& symbol);
    std::int32_t numberConstant(const Operand& constant);
    void nameSelected(Symbol& head);
    [[noreturn]] void tooComplex() const;

    Program& program;
    ConstantTable& constants;
    const CompileErrors& errors;
    Nesting nesting;
    const ResolvedProgram& resolved;
    std::vector<std::size_t> starts; ///< of the functions; the top level's first
    std::vector<Loop*> loops;
    SourcePosition position;
    bool topLevel = true;
    std::int32_t firstTemporary = 0;
    std::int32_t top = 0;
    std::int32_t highest = 0;
    bool longJumps = false;  // this function needs jumps beyond 16 bits
    bool jumpTooFar = false; // found out while patching
};

} // namespace varn
