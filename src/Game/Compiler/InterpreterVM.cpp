#include "Game/Compiler/InterpreterVM.h"

#include "Game/Compiler/ClassInterface.h"
#include "Game/Compiler/Interpreter.h"

#include <cmath>

// The dispatch loop, long and flat. What an instruction does seldom stands in VMOperations.cpp.

// Computed goto gives every instruction its own prediction; both compilers that build us have it.
#pragma GCC diagnostic ignored "-Wpedantic"

namespace varn {
namespace {

// Cells are read and written as two words, never as one of sixteen bytes: a wide load right behind
// two narrow stores has to wait until they have left the processor's store queue.
inline void copy(OperandData& target, const OperandData& source)
{
    const std::uint64_t head = source.head;
    const std::uint64_t bits = source.bits;
    target.head = head;
    target.bits = bits;
}
inline void setInt(OperandData& target, std::int32_t value)
{
    target.head = static_cast<std::uint64_t>(ValueKind::Int);
    target.bits = static_cast<std::uint32_t>(value);
}
inline void setNumber(OperandData& target, double value)
{
    target.head = static_cast<std::uint64_t>(ValueKind::Number);
    target.bits = std::bit_cast<std::uint64_t>(value);
}
inline void setBoolean(OperandData& target, bool value)
{
    target.head = static_cast<std::uint64_t>(ValueKind::Boolean);
    target.bits = value ? 1 : 0;
}

/// The cell some bytes behind another.
inline OperandData& at(OperandData* base, std::size_t distance)
{
    return *reinterpret_cast<OperandData*>(reinterpret_cast<std::byte*>(base) + distance);
}

/// The cell some bytes before another.
inline OperandData* before(OperandData* base, std::size_t distance)
{
    return reinterpret_cast<OperandData*>(reinterpret_cast<std::byte*>(base) - distance);
}

// An operand as a number, by what its form knows of it.
inline double numberI(const OperandData& value)
{
    return value.asInt();
}
inline double numberN(const OperandData& value)
{
    return value.asNumber();
}
inline double numberX(const OperandData& value)
{
    if (value.is(ValueKind::Number)) [[likely]]
        return value.asNumber();
    return value.is(ValueKind::Int) ? value.asInt() : value.toNumber();
}
inline std::int32_t intX(const OperandData& value)
{
    if (value.is(ValueKind::Int))
        return value.asInt();
    return value.is(ValueKind::Number) ? truncateToInt(value.asNumber()) : value.toInt();
}
inline bool isNumeric(const OperandData& value)
{
    return value.is(ValueKind::Number) || value.is(ValueKind::Int);
}

inline std::int32_t wrapAdd(std::int32_t a, std::int32_t b)
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}
/// The remainder for a divisor that is not 0; that of -1 would overflow for the smallest int.
inline std::int32_t remainderBy(std::int32_t a, std::int32_t b)
{
    return b == -1 ? 0 : a % b;
}
inline std::int32_t divideBy(std::int32_t a, std::int32_t b)
{
    return b == -1 ? wrap(-std::int64_t{a}) : a / b;
}
inline std::int32_t shiftLeft(std::int32_t a, std::int32_t b)
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) << (b & 31));
}
inline std::int32_t shiftRight(std::int32_t a, std::int32_t b)
{
    return a >> (b & 31);
}

inline bool isTrue(const OperandData& value)
{
    if (value.is(ValueKind::Boolean))
        return value.asBoolean();
    return value.is(ValueKind::Int) ? value.asInt() != 0 : value.isTrue();
}

inline std::uint64_t siteKey(const OperandData& receiver)
{
    return receiver.isBoxed() ? reinterpret_cast<std::uint64_t>(receiver.asBox()->classInterface)
                              : static_cast<std::uint64_t>(receiver.getKind());
}

} // namespace

// clang-format off
#define CASE(name) label##name
#define SAVE() (this->pc = pc, this->frame = R)
// A native may have called script functions, and those have moved the stack.
#define RELOAD() (R = this->frame, G = stack.get() + kHeader)
#define DISPATCH()                                                                                 \
    do {                                                                                           \
        if constexpr (counted) {                                                                   \
            if (budget == 0) { SAVE(); return State::Running; }                                    \
            --budget;                                                                              \
        }                                                                                          \
        goto *kLabels[static_cast<std::size_t>(pc->opcode)];                                       \
    } while (false)
#define NEXT() do { ++pc; DISPATCH(); } while (false)
#define CHECK_STOP() do { if (stop.load(std::memory_order_relaxed)) goto stopped; } while (false)
// Distances count from the next instruction.
#define BRANCH(condition)                                                                          \
    do { if (condition) { pc += pc->signedC(); CHECK_STOP(); } NEXT(); } while (false)
#define A at(R, pc->a)
#define B at(R, pc->b)
#define C at(R, pc->c)

#define NUMERIC_FORM(Op, form, left, right, expression)                                            \
    CASE(Op##form): {                                                                              \
        const double x = number##left(B); const double y = number##right(C);                       \
        setNumber(A, expression); NEXT(); }
#define NUMERIC_CONSTANT_FORM(Op, left, expression)                                                \
    CASE(Op##left##K): {                                                                           \
        const double x = number##left(B); const double y = K[pc->c];                    \
        setNumber(A, expression); NEXT(); }
#define NUMERIC_FORMS(Op, expression)                                                              \
    NUMERIC_FORM(Op, II, I, I, expression) NUMERIC_FORM(Op, IN, I, N, expression)                  \
    NUMERIC_FORM(Op, IX, I, X, expression) NUMERIC_FORM(Op, NI, N, I, expression)                  \
    NUMERIC_FORM(Op, NN, N, N, expression) NUMERIC_FORM(Op, NX, N, X, expression)                  \
    NUMERIC_FORM(Op, XI, X, I, expression) NUMERIC_FORM(Op, XN, X, N, expression)                  \
    NUMERIC_FORM(Op, XX, X, X, expression)                                                         \
    NUMERIC_CONSTANT_FORM(Op, I, expression) NUMERIC_CONSTANT_FORM(Op, N, expression)              \
    NUMERIC_CONSTANT_FORM(Op, X, expression)

#define BIT_FORMS(Op, expression)                                                                  \
    CASE(Op##II): { const std::int32_t x = B.asInt(); const std::int32_t y = C.asInt();            \
        setInt(A, expression); NEXT(); }                                                           \
    CASE(Op##IC): { const std::int32_t x = B.asInt(); const std::int32_t y = pc->signedC();        \
        setInt(A, expression); NEXT(); }                                                           \
    CASE(Op##XX): { const std::int32_t x = intX(B); const std::int32_t y = intX(C);                \
        setInt(A, expression); NEXT(); }

// Both outcomes of a comparison: the comparison of NaN is false, so Unless is not its opposite relation.
#define BRANCH_PAIR(relation, form, condition)                                                     \
    CASE(If##relation##form): BRANCH(condition);                                                   \
    CASE(Unless##relation##form): BRANCH(!(condition));
#define BRANCH_FORMS(form, x, y)                                                                   \
    BRANCH_PAIR(Less, form, x < y) BRANCH_PAIR(LessOrEqual, form, x <= y)                          \
    BRANCH_PAIR(Greater, form, x > y) BRANCH_PAIR(GreaterOrEqual, form, x >= y)                    \
    BRANCH_PAIR(Equal, form, x == y)

// Any two values: two ints, two numerics, the rest.
#define COMPARE(name, op)                                                                          \
    (A.is(ValueKind::Int) && B.is(ValueKind::Int)     ? A.asInt() op B.asInt()                               \
     : isNumeric(A) && isNumeric(B)         ? numberX(A) op numberX(B)                             \
                                            : (SAVE(), relate(Relation::name, A, B)))
#define COMPARE_SHORT(name, op)                                                                    \
    (A.is(ValueKind::Int)      ? A.asInt() op pc->signedB()                                             \
     : A.is(ValueKind::Number) ? A.asNumber() op pc->signedB()                                          \
                          : (SAVE(), relate(Relation::name, A, OperandData::integer(pc->signedB()))))
// An int decides for a comparison of numbers; only a function is never equal to one.
#define INT_BRANCH_PAIR(name, op)                                                                  \
    BRANCH_PAIR(name, IX, B.is(ValueKind::Int) ? A.asInt() op B.asInt() : (SAVE(), relate(Relation::name, A, B)))
#define ANY_BRANCH_PAIR(name, op)                                                                  \
    BRANCH_PAIR(name, XX, COMPARE(name, op)) BRANCH_PAIR(name, XC, COMPARE_SHORT(name, op))
#define RELATION(opcode, name)                                                                     \
    CASE(opcode): { SAVE(); setBoolean(A, relate(Relation::name, B, C)); NEXT(); }

#define COUNT_FORM(opcode, limit, op)                                                              \
    CASE(opcode): {                                                                                \
        const std::int32_t counter = wrapAdd(A.asInt(), 1); setInt(A, counter);                    \
        BRANCH(counter op limit); }
#define COUNT_ANY_FORM(opcode, name, op)                                                           \
    CASE(opcode): {                                                                                \
        const std::int32_t counter = wrapAdd(A.asInt(), 1); setInt(A, counter);                    \
        BRANCH(B.is(ValueKind::Int) ? counter op B.asInt() : counter op numberX(B)); }

/// Goes on in a script function whose arguments stand behind the header.
#define ENTER(function, header, given, returnTo)                                                   \
    do {                                                                                           \
        const FunctionCode* const entered = (function);                                            \
        OperandData* base = &at(R, (header) + kRegisterStep);                                      \
        if (&at(base, entered->frameBytes) > usable) [[unlikely]] {                                \
            SAVE(); base = makeRoom(base, *entered); G = stack.get() + kHeader;                    \
        }                                                                                          \
        for (std::uint32_t missing = (given); missing < entered->parameters; ++missing)            \
            setInt(base[missing], 0);                                                              \
        base[-1].head = entered->headerWord();                                                     \
        base[-1].bits = reinterpret_cast<std::uint64_t>(returnTo);                                 \
        R = base;                                                                                  \
        pc = entered->start;                                                                       \
        CHECK_STOP();                                                                              \
        DISPATCH();                                                                                \
    } while (false)
#define CALL_VALUE(value)                                                                          \
    do {                                                                                           \
        const OperandData& callee = (value);                                                       \
        if (!callee.is(ValueKind::Function)) [[unlikely]] { SAVE(); fail(u"what is called is no function"); } \
        ENTER(callee.asFunction(), pc->a, pc->c, pc + 1);                                          \
    } while (false)

#define GET_ELEMENT(base)                                                                          \
    do {                                                                                           \
        const OperandData& from = (base); const OperandData& index = C;                            \
        if (from.is(ValueKind::Array) && index.is(ValueKind::Int) &&                                         \
            static_cast<std::uint32_t>(index.asInt()) < from.asArray()->size()) [[likely]] {       \
            copy(A, (*from.asArray())[static_cast<std::uint32_t>(index.asInt())]);                 \
        } else { SAVE(); copy(A, *elementPlace(const_cast<OperandData&>(from), index)); }          \
        NEXT();                                                                                    \
    } while (false)
// A member is looked for where a table had it the last time.
#define MEMBER(base, name)                                                                         \
    (base.is(ValueKind::Table) ? base.asTable()->at(static_cast<std::uint32_t>(pc[1].wide()), name) : nullptr)
#define GET_MEMBER(base)                                                                           \
    do {                                                                                           \
        OperandData& from = (base);                                                                \
        const OperandData* member = MEMBER(from, pc->c);                                           \
        if (!member) [[unlikely]] { SAVE(); member = memberAt(from, pc->c); }                      \
        copy(A, *member);                                                                          \
        ++pc; NEXT();                                                                              \
    } while (false)
#define SET_MEMBER(base)                                                                           \
    do {                                                                                           \
        OperandData& in = (base);                                                                  \
        OperandData* member = MEMBER(in, pc->c);                                                   \
        if (!member) [[unlikely]] { SAVE(); member = memberAt(in, pc->c); }                        \
        copy(*member, B);                                                                          \
        ++pc; NEXT();                                                                              \
    } while (false)
#define SET_ELEMENT(base, value)                                                                          \
    do {                                                                                           \
        OperandData& in = (base); const OperandData& index = B;                                    \
        if (in.is(ValueKind::Array) && index.is(ValueKind::Int) &&                                           \
            static_cast<std::uint32_t>(index.asInt()) < in.asArray()->size()) [[likely]] {         \
            copy((*in.asArray())[static_cast<std::uint32_t>(index.asInt())], value);                   \
        } else { SAVE(); copy(*elementPlace(in, index), value); }                                      \
        NEXT();                                                                                    \
    } while (false)
// clang-format on

template <bool counted>
InterpreterVM::State InterpreterVM::interpret(std::uint64_t& budget)
{
    static const void* const kLabels[] = {
#define VARN_LABEL(name, mnemonic, operands) &&label##name,
        VARN_INSTRUCTIONS(VARN_LABEL)
#undef VARN_LABEL
    };
    const double* const K = program.numbers.data();
    const std::atomic<bool>& stop = stopRequested;
    const Instruction* pc = this->pc;
    OperandData* R = frame;
    OperandData* G = stack.get() + kHeader;
    DISPATCH();

    // clang-format off
    CASE(Move): copy(A, B); NEXT();
    CASE(LoadInt): setInt(A, pc->wide()); NEXT();
    CASE(LoadBoolean): setBoolean(A, pc->wide() != 0); NEXT();
    CASE(LoadNumber): setNumber(A, K[pc->wide()]); NEXT();
    CASE(LoadString): copy(A, program.strings[static_cast<std::size_t>(pc->wide())]); NEXT();
    CASE(LoadFunction): A = OperandData::function(program.functions[static_cast<std::size_t>(pc->wide())].get()); NEXT();
    CASE(LoadSelector): A = OperandData::selector(static_cast<std::uint32_t>(pc->wide())); NEXT();
    CASE(LoadArgument): {
        const auto index = static_cast<std::size_t>(pc->wide());
        if (index < owner.globalValues.size()) {
            copy(A, owner.globalValues[index]);
            copy(*G, A);
            pc += kLoadArgumentSkips;
        }
        NEXT();
    }
    CASE(LoadGlobal): copy(A, at(G, pc->b)); NEXT();
    CASE(StoreGlobal): copy(at(G, pc->a), B); NEXT();

    CASE(AddII): setInt(A, wrapAdd(B.asInt(), C.asInt())); NEXT();
    CASE(AddIC): setInt(A, wrapAdd(B.asInt(), pc->signedC())); NEXT();
    CASE(AddIX): setInt(A, wrapAdd(B.asInt(), intX(C))); NEXT();
    CASE(AddNI): setNumber(A, B.asNumber() + C.asInt()); NEXT();
    CASE(AddNN): setNumber(A, B.asNumber() + C.asNumber()); NEXT();
    CASE(AddNX): setNumber(A, B.asNumber() + numberX(C)); NEXT();
    CASE(AddNK): setNumber(A, B.asNumber() + K[pc->c]); NEXT();
    CASE(AddXX): {
        const OperandData& left = B;
        const OperandData& right = C;
        if (left.is(ValueKind::Number) && right.is(ValueKind::Number)) {
            setNumber(A, left.asNumber() + right.asNumber());
        } else if (left.is(ValueKind::Int) && right.is(ValueKind::Int)) {
            setInt(A, wrapAdd(left.asInt(), right.asInt()));
        } else {
            SAVE();
            copy(A, add(left, right));
        }
        NEXT();
    }
    CASE(AddXC): {
        const OperandData& left = B;
        if (left.is(ValueKind::Int)) {
            setInt(A, wrapAdd(left.asInt(), pc->signedC()));
        } else if (left.is(ValueKind::Number)) {
            setNumber(A, left.asNumber() + pc->signedC());
        } else {
            SAVE();
            copy(A, add(left, OperandData::integer(pc->signedC())));
        }
        NEXT();
    }
    NUMERIC_FORMS(Sub, x - y)
    NUMERIC_FORMS(Mul, x * y)
    CASE(DivII): {
        if (C.asInt() == 0) [[unlikely]] {
            SAVE();
            fail(u"division by zero");
        }
        setInt(A, divideBy(B.asInt(), C.asInt()));
        NEXT();
    }
    CASE(DivIC): setInt(A, divideBy(B.asInt(), pc->signedC())); NEXT();
    CASE(DivXC): {
        const OperandData& left = B;
        if (left.is(ValueKind::Int))
            setInt(A, divideBy(left.asInt(), pc->signedC()));
        else
            setNumber(A, numberX(left) / pc->signedC());
        NEXT();
    }
    NUMERIC_FORM(Div, IN, I, N, x / y)
    NUMERIC_FORM(Div, NI, N, I, x / y)
    NUMERIC_FORM(Div, NN, N, N, x / y)
    NUMERIC_FORM(Div, NX, N, X, x / y)
    NUMERIC_CONSTANT_FORM(Div, I, x / y)
    NUMERIC_CONSTANT_FORM(Div, N, x / y)
    NUMERIC_CONSTANT_FORM(Div, X, x / y)
    CASE(DivXX): {
        const OperandData& left = B;
        const OperandData& right = C;
        if (left.is(ValueKind::Number)) {
            setNumber(A, left.asNumber() / numberX(right));
        } else {
            SAVE();
            copy(A, divide(left, right));
        }
        NEXT();
    }
    CASE(ModII): {
        if (C.asInt() == 0) [[unlikely]] {
            SAVE();
            fail(u"remainder by zero");
        }
        setInt(A, remainderBy(B.asInt(), C.asInt()));
        NEXT();
    }
    CASE(ModIC): setInt(A, remainderBy(B.asInt(), pc->signedC())); NEXT();
    CASE(ModXC): setInt(A, remainderBy(intX(B), pc->signedC())); NEXT();
    CASE(ModXX): {
        const std::int32_t divisor = intX(C);
        if (divisor == 0) [[unlikely]] {
            SAVE();
            fail(u"remainder by zero");
        }
        setInt(A, remainderBy(intX(B), divisor));
        NEXT();
    }
    BIT_FORMS(And, x & y)
    BIT_FORMS(Or, x | y)
    BIT_FORMS(Xor, x ^ y)
    BIT_FORMS(LShift, shiftLeft(x, y))
    BIT_FORMS(RShift, shiftRight(x, y))
    CASE(Negate): setNumber(A, -numberX(B)); NEXT();
    CASE(Not): setBoolean(A, !isTrue(B)); NEXT();
    CASE(CastInt): setInt(A, intX(B)); NEXT();
    CASE(CastNumber): setNumber(A, numberX(B)); NEXT();
    CASE(TypeOf): {
        SAVE();
        copy(A, kindNameOf(B));
        NEXT();
    }
    CASE(Is): setBoolean(A, isOfClass(B, program.classes[pc->c])); NEXT();
    RELATION(RelLess, Less)
    RELATION(RelLessOrEqual, LessOrEqual)
    RELATION(RelGreater, Greater)
    RELATION(RelGreaterOrEqual, GreaterOrEqual)
    RELATION(RelEqual, Equal)
    RELATION(RelNotEqual, NotEqual)

    CASE(IncrementI): setInt(A, wrapAdd(A.asInt(), 1)); NEXT();
    CASE(DecrementI): setInt(A, wrapAdd(A.asInt(), -1)); NEXT();
    CASE(Increment): {
        if (A.is(ValueKind::Int))
            setInt(A, wrapAdd(A.asInt(), 1));
        else if (A.is(ValueKind::Number))
            setNumber(A, A.asNumber() + 1);
        NEXT();
    }
    CASE(Decrement): {
        if (A.is(ValueKind::Int))
            setInt(A, wrapAdd(A.asInt(), -1));
        else if (A.is(ValueKind::Number))
            setNumber(A, A.asNumber() - 1);
        NEXT();
    }

    CASE(Jump): pc += pc->wide(); CHECK_STOP(); NEXT();
    CASE(IfTrue): BRANCH(isTrue(A));
    CASE(IfFalse): BRANCH(!isTrue(A));
    BRANCH_FORMS(II, A.asInt(), B.asInt())
    BRANCH_FORMS(IC, A.asInt(), pc->signedB())
    BRANCH_FORMS(NN, A.asNumber(), B.asNumber())
    BRANCH_FORMS(NK, A.asNumber(), K[pc->b])
    INT_BRANCH_PAIR(Less, <)
    INT_BRANCH_PAIR(LessOrEqual, <=)
    INT_BRANCH_PAIR(Greater, >)
    INT_BRANCH_PAIR(GreaterOrEqual, >=)
    INT_BRANCH_PAIR(Equal, ==)
    ANY_BRANCH_PAIR(Less, <)
    ANY_BRANCH_PAIR(LessOrEqual, <=)
    ANY_BRANCH_PAIR(Greater, >)
    ANY_BRANCH_PAIR(GreaterOrEqual, >=)
    ANY_BRANCH_PAIR(Equal, ==)
    COUNT_FORM(CountLessII, B.asInt(), <)
    COUNT_FORM(CountLessIC, pc->signedB(), <)
    COUNT_ANY_FORM(CountLessIX, Less, <)
    COUNT_FORM(CountLessOrEqualII, B.asInt(), <=)
    COUNT_FORM(CountLessOrEqualIC, pc->signedB(), <=)
    COUNT_ANY_FORM(CountLessOrEqualIX, LessOrEqual, <=)

    CASE(GetElement): GET_ELEMENT(B);
    CASE(GetElementG): GET_ELEMENT(at(G, pc->b));
    CASE(GetElementC): {
        OperandData& from = B;
        if (from.is(ValueKind::Array) && pc->c < from.asArray()->size()) [[likely]] {
            copy(A, (*from.asArray())[pc->c]);
        } else {
            SAVE();
            copy(A, *elementPlace(from, OperandData::integer(pc->c)));
        }
        NEXT();
    }
    CASE(SetElement): SET_ELEMENT(A, C);
    CASE(SetElementG): SET_ELEMENT(at(G, pc->a), C);
    CASE(SetElementInt): {
        OperandData value;
        setInt(value, pc->signedC());
        SET_ELEMENT(A, value);
    }
    CASE(SetElementBoolean): {
        OperandData value;
        setBoolean(value, pc->c != 0);
        SET_ELEMENT(A, value);
    }
    CASE(GetMember): GET_MEMBER(B);
    CASE(GetMemberG): GET_MEMBER(at(G, pc->b));
    CASE(SetMember): SET_MEMBER(A);
    CASE(SetMemberG): SET_MEMBER(at(G, pc->a));
    CASE(MemberHint): NEXT();
    CASE(GetChain): {
        SAVE();
        copy(A, *chainPlace(pc[1].c ? at(G, pc->b) : B, &at(R, pc[1].a), pc->c));
        ++pc;
        NEXT();
    }
    CASE(SetChain): {
        SAVE();
        copy(*chainPlace(pc[1].c ? at(G, pc->b) : B, &at(R, pc[1].a), pc->c), A);
        ++pc;
        NEXT();
    }
    CASE(ChainExtra): CASE(Extra): NEXT();
    CASE(NewArray): {
        SAVE();
        newArray(A, &at(R, pc->b), pc->c);
        NEXT();
    }
    CASE(AppendArray): {
        SAVE();
        appendArray(A, &at(R, pc->b), pc->c);
        NEXT();
    }

    CASE(Call): CALL_VALUE(at(G, pc->b));
    CASE(CallValue): CALL_VALUE(B);
    CASE(CallNative): {
        SAVE();
        callNative(program.natives[static_cast<std::size_t>(pc[1].wide())], &at(R, pc->a), pc->c);
        RELOAD();
        copy(B, *G);
        ++pc;
        NEXT();
    }
    CASE(CallMethod): CASE(CallStatic): {
        CallSite& site = program.sites[static_cast<std::size_t>(pc[1].wide())];
        const OperandData& receiver = B;
        const std::uint64_t key = site.isStatic ? 0 : siteKey(receiver);
        SAVE();
        if (key != site.cachedKey && !findMethod(site, receiver)) [[unlikely]] {
            if (const FunctionCode* member = memberFunction(site, receiver))
                ENTER(member, pc->a, 0, pc + 1);
            copy(at(R, pc[1].a), refuse(site, receiver));
            ++pc;
            NEXT();
        }
        NativeCall call{owner, heap, receiver, &at(R, pc->c), static_cast<int>(site.count)};
        site.cached->thunk(call);
        RELOAD();
        copy(at(R, pc[1].a), call.pushed ? call.result : fallbackResult());
        if (heap.wantsCollection()) [[unlikely]]
            collect();
        ++pc;
        NEXT();
    }
    CASE(MethodResult): copy(A, at(R, pc[-1].a)); NEXT();
    CASE(New): {
        SAVE();
        newObject(A, &at(R, pc->b), pc->c, program.classes[static_cast<std::size_t>(pc[1].wide())]);
        ++pc;
        NEXT();
    }
    CASE(Return): {
        const std::uint64_t head = A.head;
        const std::uint64_t bits = A.bits;
        OperandData* const header = R - 1;
        pc = reinterpret_cast<const Instruction*>(header->bits);
        header->head = head;
        header->bits = bits;
        R = before(header, pc[-1].a);
        DISPATCH();
    }
    CASE(Halt): goto ended;
    // clang-format on

ended:
    SAVE();
    return State::Ended;
stopped:
    SAVE();
    return State::Stopped;
}

template InterpreterVM::State InterpreterVM::interpret<false>(std::uint64_t&);
template InterpreterVM::State InterpreterVM::interpret<true>(std::uint64_t&);

} // namespace varn
