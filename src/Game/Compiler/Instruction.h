#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace varn {

/// How an instruction reads its three 16-bit operands. `a` is the target unless told otherwise.
/// Registers count from the frame's first argument, slots are those of the top level; both stand in
/// the instruction as distances in bytes.
enum class Operands : std::uint8_t
{
    None,
    A,           ///< register
    AB,          ///< registers
    ABC,         ///< registers
    AInt,        ///< register, 32-bit integer in b and c
    AIndex,      ///< register, 32-bit index in b and c
    ABInt,       ///< registers, 16-bit integer
    ABNumber,    ///< registers, index of a number constant
    ABCount,     ///< registers, a count or index
    ABName,      ///< registers, name index
    Jump,        ///< 32-bit distance in b and c
    AJump,       ///< register a, distance in c
    ABJump,      ///< registers a and b, distance in c
    AIntJump,    ///< register a, 16-bit integer b, distance in c
    ANumberJump, ///< register a, index b of a number constant, distance in c
    Call,        ///< a: frame header, b: what is called, c: number of arguments
    Index,       ///< 32-bit index in b and c
};

// One row an instruction: X(name, mnemonic, operands). The letters behind an operation name what is
// known of its two operands when the code is made: I an int, N a number, X any value; C a 16-bit
// integer and K a number constant in the instruction. Forms with I and N do not look at the kind.
// clang-format off
#define VARN_NUMERIC_FORMS(X, Op, mnemonic)                                                        \
    X(Op##II, mnemonic, ABC) X(Op##IN, mnemonic, ABC) X(Op##IX, mnemonic, ABC)                     \
    X(Op##NI, mnemonic, ABC) X(Op##NN, mnemonic, ABC) X(Op##NX, mnemonic, ABC)                     \
    X(Op##XI, mnemonic, ABC) X(Op##XN, mnemonic, ABC) X(Op##XX, mnemonic, ABC)                     \
    X(Op##IK, mnemonic, ABNumber) X(Op##NK, mnemonic, ABNumber) X(Op##XK, mnemonic, ABNumber)
#define VARN_BIT_FORMS(X, Op, mnemonic)                                                            \
    X(Op##II, mnemonic, ABC) X(Op##IC, mnemonic, ABInt) X(Op##XX, mnemonic, ABC)
#define VARN_BRANCH_FORMS(X, Form, operands)                                                       \
    X(If##Less##Form, "BLT", operands) X(Unless##Less##Form, "BGE", operands)                      \
    X(If##LessOrEqual##Form, "BLE", operands) X(Unless##LessOrEqual##Form, "BGT", operands)        \
    X(If##Greater##Form, "BGT", operands) X(Unless##Greater##Form, "BLE", operands)                \
    X(If##GreaterOrEqual##Form, "BGE", operands) X(Unless##GreaterOrEqual##Form, "BLT", operands)  \
    X(If##Equal##Form, "BEQ", operands) X(Unless##Equal##Form, "BNE", operands)

#define VARN_INSTRUCTIONS(X)                                                                       \
    /* values: a = ... */                                                                          \
    X(Move, "LOADL", AB) X(LoadInt, "PUSHI", AInt) X(LoadBoolean, "PUSHB", AInt)                   \
    X(LoadNumber, "PUSHD", AIndex) X(LoadString, "PUSHS", AIndex)                                  \
    X(LoadFunction, "PUSHF", AIndex) X(LoadSelector, "DOT", AIndex)                                \
    X(LoadArgument, "LOADA", AInt) /* of a formula; then the call of `_getArgs` is skipped */      \
    X(LoadGlobal, "LOADG", AB)                                                                     \
    X(StoreGlobal, "STOREG", AB) /* slot a = register b */                                         \
    /* arithmetic: a = b op c */                                                                   \
    X(AddII, "ADD", ABC) X(AddIC, "ADD", ABInt) X(AddIX, "ADD", ABC)                               \
    X(AddNI, "ADD", ABC) X(AddNN, "ADD", ABC) X(AddNX, "ADD", ABC) X(AddNK, "ADD", ABNumber)     \
    X(AddXX, "ADD", ABC) X(AddXC, "ADD", ABInt)                                                    \
    VARN_NUMERIC_FORMS(X, Sub, "SUB") VARN_NUMERIC_FORMS(X, Mul, "MUL")                            \
    X(DivII, "DIV", ABC) X(DivIC, "DIV", ABInt) X(DivXC, "DIV", ABInt)                             \
    X(DivIN, "DIV", ABC) X(DivNI, "DIV", ABC) X(DivNN, "DIV", ABC) X(DivNX, "DIV", ABC)            \
    X(DivXX, "DIV", ABC)                                                                           \
    X(DivIK, "DIV", ABNumber) X(DivNK, "DIV", ABNumber) X(DivXK, "DIV", ABNumber)            \
    X(ModII, "MOD", ABC) X(ModIC, "MOD", ABInt) X(ModXC, "MOD", ABInt) X(ModXX, "MOD", ABC)        \
    VARN_BIT_FORMS(X, And, "AND") VARN_BIT_FORMS(X, Or, "OR") VARN_BIT_FORMS(X, Xor, "XOR")        \
    VARN_BIT_FORMS(X, LShift, "LSHIFT") VARN_BIT_FORMS(X, RShift, "RSHIFT")                        \
    X(Negate, "CSIGN", AB) X(Not, "NOT", AB) X(CastInt, "CAST", AB) X(CastNumber, "CAST", AB)      \
    X(TypeOf, "TYPEOF", AB) X(Is, "IS", ABName)                                                    \
    X(RelLess, "REL", ABC) X(RelLessOrEqual, "REL", ABC) X(RelGreater, "REL", ABC)                 \
    X(RelGreaterOrEqual, "REL", ABC) X(RelEqual, "REL", ABC) X(RelNotEqual, "REL", ABC)            \
    X(Increment, "INC", A) X(IncrementI, "INC", A) X(Decrement, "DEC", A) X(DecrementI, "DEC", A)  \
    /* jumps: to the next instruction plus the distance */                                         \
    X(Jump, "JUMP", Jump) X(IfTrue, "BNE", AJump) X(IfFalse, "BEQ0", AJump)                        \
    VARN_BRANCH_FORMS(X, II, ABJump) VARN_BRANCH_FORMS(X, IC, AIntJump)                            \
    VARN_BRANCH_FORMS(X, NN, ABJump) VARN_BRANCH_FORMS(X, NK, ANumberJump)                       \
    VARN_BRANCH_FORMS(X, IX, ABJump)                                                               \
    VARN_BRANCH_FORMS(X, XX, ABJump) VARN_BRANCH_FORMS(X, XC, AIntJump)                            \
    /* the end of a counting loop: a += 1, then jump while a < b, a <= b */                        \
    X(CountLessII, "INC", ABJump) X(CountLessIC, "INC", AIntJump) X(CountLessIX, "INC", ABJump)    \
    X(CountLessOrEqualII, "INC", ABJump) X(CountLessOrEqualIC, "INC", AIntJump)                    \
    X(CountLessOrEqualIX, "INC", ABJump)                                                           \
    /* elements and members; the base of the G forms is a slot */                                  \
    X(GetElement, "ARRAYD", ABC) X(GetElementC, "ARRAYD", ABCount)                                   \
    X(GetElementG, "ARRAYD", ABC)                                                                  \
    X(SetElement, "ARRAYD", ABC) X(SetElementG, "ARRAYD", ABC) /* a[b] = c */                      \
    X(SetElementInt, "ARRAYD", ABInt) X(SetElementBoolean, "ARRAYD", ABInt)                        \
    X(GetMember, "ARRAYD", ABName) X(GetMemberG, "ARRAYD", ABName)                                 \
    X(SetMember, "ARRAYD", ABName) X(SetMemberG, "ARRAYD", ABName) /* a.name(c) = b */             \
    X(MemberHint, "NOP", Index) /* behind them: where the member was the last time */              \
    X(GetChain, "ARRAYD", ABCount) /* a = b, then c selectors from the register of the extra */        \
    X(SetChain, "ARRAYD", ABCount) /* b, then c selectors from the register of the extra, = a */       \
    X(ChainExtra, "NOP", ABCount) /* a: first selector, c: 1 where the base is a slot */           \
    X(NewArray, "PUSHARY", ABCount)    /* a = the c registers from b */                            \
    X(AppendArray, "PUSHARY", ABCount) /* the c registers from b behind those of a */              \
    /* calls */                                                                                    \
    X(Call, "CALL", Call)         /* b: slot. Arguments behind the header; the result replaces it */ \
    X(CallValue, "CALL", Call)    /* b: register */                                                \
    X(CallNative, "CALL", Call)   /* a: first argument, b: target; the extra has the function */   \
    X(CallMethod, "CCALL", ABC)   /* a: free register, b: receiver, c: first argument */           \
    X(CallStatic, "CCALL", ABC)                                                                    \
    X(Extra, "NOP", Index)        /* second half of the instruction before it */                   \
    X(MethodResult, "NOP", AIndex) /* a: target of the call before it, b and c: call site */        \
    X(New, "NEW", ABCount)            /* b: first argument, c: their number; the extra has the class */ \
    X(Return, "RET", A) X(Halt, "HALT", None)
// clang-format on

enum class Opcode : std::uint16_t
{
#define VARN_NAME(name, mnemonic, operands) name,
    VARN_INSTRUCTIONS(VARN_NAME)
#undef VARN_NAME
        Count
};

/// Instructions behind LoadArgument that make the call it stands for.
inline constexpr int kLoadArgumentSkips = 3;

/// Distance between two registers in an instruction.
inline constexpr int kRegisterStep = 16;
/// Number of registers that instructions can name.
inline constexpr int kMaxRegisters = 65536 / kRegisterStep;

/// The operands that are registers or slots: 1 for a, 2 for b, 4 for c.
constexpr std::uint8_t registersAmong(Operands operands)
{
    switch (operands) {
    case Operands::None:
    case Operands::Jump:
    case Operands::Index:
        return 0;
    case Operands::A:
    case Operands::AInt:
    case Operands::AIndex:
    case Operands::AJump:
    case Operands::AIntJump:
    case Operands::ANumberJump:
        return 1;
    case Operands::ABC:
        return 7;
    default:
        return 3;
    }
}

struct OpcodeRow
{
    std::string_view name;
    std::string_view mnemonic;
    Operands operands;
};

/// `registersAmong` by opcode.
constexpr std::array<std::uint8_t, static_cast<std::size_t>(Opcode::Count)> kRegisterOperands = {
#define VARN_MASK(name, mnemonic, operands) registersAmong(Operands::operands),
    VARN_INSTRUCTIONS(VARN_MASK)
#undef VARN_MASK
};

/// What is known of an instruction, for listings and checks.
const OpcodeRow& opcodeRow(Opcode opcode);

/// One instruction of the register machine.
struct Instruction
{
    Opcode opcode = Opcode::Halt;
    std::uint16_t a = 0;
    std::uint16_t b = 0;
    std::uint16_t c = 0;

    /// b and c as one 32-bit operand.
    std::int32_t wide() const
    {
        return static_cast<std::int32_t>(static_cast<std::uint32_t>(c) << 16 | b);
    }
    void setWide(std::int32_t value)
    {
        b = static_cast<std::uint16_t>(value);
        c = static_cast<std::uint16_t>(static_cast<std::uint32_t>(value) >> 16);
    }
    std::int16_t signedB() const { return static_cast<std::int16_t>(b); }
    std::int16_t signedC() const { return static_cast<std::int16_t>(c); }
};
static_assert(sizeof(Instruction) == 8);

} // namespace varn
