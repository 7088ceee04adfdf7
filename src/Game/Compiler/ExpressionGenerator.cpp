#include "Game/Compiler/CodeGenerator.h"
#include "Game/Compiler/KindInference.h"

#include <algorithm>
#include <utility>

// The expressions of CodeGenerator: values, operators, assignments and conditions.

namespace varn {
namespace {

/// `first` and the opcodes that stand behind it.
Opcode behind(Opcode first, int distance)
{
    return static_cast<Opcode>(static_cast<int>(first) + distance);
}

bool isArithmetic(const AST& node)
{
    switch (node.kind) {
    case kNodeAdd:
    case kNodeSubtract:
        return node.right != nullptr;
    case kNodeMultiply:
    case kNodeDivide:
    case kNodeRemainder:
    case kTokenBitAnd:
    case kTokenBitOr:
    case kTokenBitXor:
    case kTokenLeftShift:
    case kTokenRightShift:
        return true;
    default:
        return false;
    }
}

bool isNegativeLiteral(const AST& node)
{
    return node.kind == kNodeSubtract && !node.right &&
           (node.left->kind == kTokenInteger || node.left->kind == kTokenReal);
}

bool isComparison(int kind)
{
    return kind >= kNodeLess && kind <= kNodeGreater;
}

/// Place of a relation among the branch forms; NotEqual is Equal with the outcome turned.
int relationIndex(int kind)
{
    switch (kind) {
    case kNodeLess:
        return 0;
    case kNodeLessOrEqual:
        return 1;
    case kNodeGreater:
        return 2;
    case kNodeGreaterOrEqual:
        return 3;
    default:
        return 4;
    }
}

/// The relation with its sides changed.
int mirrored(int kind)
{
    switch (kind) {
    case kNodeLess:
        return kNodeGreater;
    case kNodeLessOrEqual:
        return kNodeGreaterOrEqual;
    case kNodeGreater:
        return kNodeLess;
    case kNodeGreaterOrEqual:
        return kNodeLessOrEqual;
    default:
        return kind;
    }
}

/// Column of a kind in the forms of `-`, `*`: I, N, X.
int column(KnownKind kind)
{
    return kind == KnownKind::Int ? 0 : kind == KnownKind::Number ? 1 : 2;
}

} // namespace

/// A sign before a literal: a number, like every change of sign.
std::int32_t CodeGenerator::negativeLiteral(const AST& node)
{
    const AST& literal = *node.left;
    const double value = literal.kind == kTokenInteger
                             ? literal.value
                             : constants.number(static_cast<std::uint32_t>(literal.value));
    return static_cast<std::int32_t>(constants.addNumber(-value));
}

/// A global of the program is a register to the top level alone.
bool CodeGenerator::isRegister(const Variable& variable) const
{
    return topLevel || variable.storage != Storage::Global;
}

std::int32_t CodeGenerator::registerOf(const Variable& variable) const
{
    return static_cast<std::int32_t>(variable.slot);
}

/// May evaluating `later` write a variable that an operand still names by its register?
bool CodeGenerator::hazard(const AST* later) const
{
    if (!later)
        return false;
    return later->has(AST::kAssigns) ||
           (later->has(AST::kCalls) && (topLevel || resolved.defaultsAssign));
}

CodeGenerator::Operand CodeGenerator::operand(AST* node)
{
    Operand made;
    made.value = node->value;
    switch (node->kind) {
    case kTokenInteger:
    case kTokenNull:
        made.mode = Operand::Mode::Integer;
        made.kind = KnownKind::Int;
        return made;
    case kTokenReal:
        made.mode = Operand::Mode::Real;
        made.kind = KnownKind::Number;
        return made;
    case kTokenIdentifier:
        if (!isRegister(*node->variable))
            break;
        made.kind = node->variable->kind;
        made.isVariable = true;
        made.value = registerOf(*node->variable);
        return made;
    case kNodeAssign:
        return assignment(node, Result::Wanted);
    case kTokenIncrement:
    case kTokenDecrement:
        return step(node, Result::Wanted);
    case kNodeSubtract:
        if (!isNegativeLiteral(*node))
            break;
        made.mode = Operand::Mode::Real;
        made.kind = KnownKind::Number;
        made.value = negativeLiteral(*node);
        return made;
    case kNodeCall:
        if (node->left->variable && node->left->symbol->name != "exit") {
            made.value = call(node);
            return made;
        }
        break;
    default:
        break;
    }
    made.value = newTemporary();
    into(node, made.value);
    made.kind = kindOf(node);
    return made;
}

/// An operand that is read after `right` was evaluated: a variable that may change meanwhile is
/// copied.
CodeGenerator::Operand CodeGenerator::leftOperand(AST* node, const AST* right)
{
    Operand made = operand(node);
    if (made.isVariable && hazard(right)) {
        const std::int32_t copy = newTemporary();
        move(copy, made.value);
        made.value = copy;
        made.isVariable = false;
    }
    return made;
}

std::int32_t CodeGenerator::inRegister(const Operand& operand)
{
    if (!operand.isConstant())
        return operand.value;
    const std::int32_t made = newTemporary();
    emitWide(operand.mode == Operand::Mode::Integer ? Opcode::LoadInt : Opcode::LoadNumber, made,
             operand.value);
    return made;
}

/// Compiles so that the value ends in `target`, which is written last.
void CodeGenerator::into(AST* node, std::int32_t target)
{
    const std::int32_t outer = top;
    if (!nesting.enter(1, [&] { intoHere(node, target); }))
        tooComplex();
    top = outer;
}

void CodeGenerator::intoHere(AST* node, std::int32_t target)
{
    position = {node->line, node->fileIndex};
    if (isArithmetic(*node))
        return arithmetic(node, target);
    if (isComparison(node->kind))
        return comparison(node, target);
    switch (node->kind) {
    case kTokenInteger:
    case kTokenNull:
        emitWide(Opcode::LoadInt, target, node->value);
        return;
    case kTokenReal:
        emitWide(Opcode::LoadNumber, target, node->value);
        return;
    case kTokenString:
        emitWide(Opcode::LoadString, target, node->value);
        return;
    case kTokenBoolean:
        emitWide(Opcode::LoadBoolean, target, node->value);
        return;
    case kTokenIdentifier:
        if (isRegister(*node->variable))
            move(target, registerOf(*node->variable));
        else
            emit(Opcode::LoadGlobal, target, static_cast<std::int32_t>(node->variable->slot));
        return;
    case kNodeCell:
        if (node->has(AST::kStatic))
            return staticCall(node, nullptr, target);
        return select(node, target);
    case kNodeAdd:
        return into(node->left, target); // the plus sign
    case kNodeSubtract:
    case kNodeNot:
    case kTokenTypeof:
    case kTokenIs:
        return unary(node, target);
    case kNodeAnd:
    case kNodeOr:
        return logical(node, target);
    case kNodeConditional:
        return conditional(node, target);
    case kNodeArray:
        return array(node, target);
    case kNodeNew:
        return newObject(node, target);
    case kNodeMethodCall:
        return methodCall(node, target);
    case kNodeCall:
        if (node->left->symbol->name == "exit") {
            emit(Opcode::Halt);
            return;
        }
        if (!node->left->variable)
            return callNative(node, target);
        return move(target, call(node));
    default: {
        const Operand made = operand(node);
        if (made.isConstant())
            emitWide(made.mode == Operand::Mode::Integer ? Opcode::LoadInt : Opcode::LoadNumber,
                     target, made.value);
        else
            move(target, made.value);
    }
    }
}

/// Chains of operators hang to the left and may be as long as the source: walked without recursion.
void CodeGenerator::arithmetic(AST* node, std::int32_t target)
{
    if (!isArithmetic(*node->left)) {
        const Operand left = leftOperand(node->left, node->right);
        emitArithmetic(node, target, left, operand(node->right));
        return;
    }
    std::vector<AST*> chain;
    AST* innermost = node;
    for (; isArithmetic(*innermost); innermost = innermost->left)
        chain.push_back(innermost);
    const std::int32_t accumulator = newTemporary();
    Operand left = leftOperand(innermost, chain.back()->right);
    for (std::size_t i = chain.size(); i-- > 0;) {
        const std::int32_t result = i == 0 ? target : accumulator;
        const KnownKind kind = emitArithmetic(chain[i], result, left, operand(chain[i]->right));
        left = Operand();
        left.value = result;
        left.kind = kind;
        top = accumulator + 1;
    }
}

KnownKind CodeGenerator::emitArithmetic(AST* node, std::int32_t target, Operand left, Operand right)
{
    position = {node->line, node->fileIndex};
    switch (node->kind) {
    case kNodeAdd:
        emitAdd(target, left, right);
        break;
    case kNodeSubtract:
        emitNumeric(kNodeSubtract, target, left, right);
        break;
    case kNodeMultiply:
        if (left.isConstant() && !right.isConstant())
            std::swap(left, right);
        emitNumeric(kNodeMultiply, target, left, right);
        break;
    case kNodeDivide:
        emitDivide(target, left, right);
        break;
    default:
        emitIntegral(node->kind, target, left, right);
    }
    return kindOfOperation(node->kind, left.kind, right.kind);
}

void CodeGenerator::emitAdd(std::int32_t target, Operand left, Operand right)
{
    const bool bothSame = left.kind == right.kind && left.kind != KnownKind::Any;
    if (left.isConstant() && !right.isConstant() && bothSame)
        std::swap(left, right); // the sum of two ints or two numbers has no order
    if (left.kind == KnownKind::Number && right.isConstant()) {
        const std::int32_t constant = numberConstant(right);
        if (constant >= 0) {
            emit(Opcode::AddNK, target, inRegister(left), constant);
            return;
        }
    }
    if (left.kind != KnownKind::Number && right.fitsShort()) {
        emit(left.kind == KnownKind::Int ? Opcode::AddIC : Opcode::AddXC, target, inRegister(left),
             right.value);
        return;
    }
    static constexpr Opcode kForms[3][3] = {
        {Opcode::AddII, Opcode::AddIX, Opcode::AddIX},
        {Opcode::AddNI, Opcode::AddNN, Opcode::AddNX},
        {Opcode::AddXX, Opcode::AddXX, Opcode::AddXX},
    };
    const std::int32_t a = inRegister(left);
    emit(kForms[column(left.kind)][column(right.kind)], target, a, inRegister(right));
}

/// `-` and `*`: every pair of kinds has its form.
void CodeGenerator::emitNumeric(int op, std::int32_t target, const Operand& left, Operand right)
{
    const Opcode first = op == kNodeSubtract ? Opcode::SubII : Opcode::MulII;
    const std::int32_t a = inRegister(left);
    const std::int32_t constant = right.isConstant() ? numberConstant(right) : -1;
    if (constant >= 0)
        emit(behind(first, 9 + column(left.kind)), target, a, constant);
    else
        emit(behind(first, 3 * column(left.kind) + column(right.kind)), target, a,
             inRegister(right));
}

void CodeGenerator::emitDivide(std::int32_t target, const Operand& left, const Operand& right)
{
    const std::int32_t a = inRegister(left);
    const bool byShort = right.fitsShort() && right.value != 0;
    if (byShort && left.kind != KnownKind::Number) {
        emit(left.kind == KnownKind::Int ? Opcode::DivIC : Opcode::DivXC, target, a, right.value);
        return;
    }
    const bool asNumbers =
        right.mode == Operand::Mode::Real || (right.isConstant() && left.kind == KnownKind::Number);
    const std::int32_t constant = asNumbers ? numberConstant(right) : -1;
    if (constant >= 0) {
        emit(behind(Opcode::DivIK, column(left.kind)), target, a, constant);
        return;
    }
    static constexpr Opcode kForms[3][3] = {
        {Opcode::DivII, Opcode::DivIN, Opcode::DivXX},
        {Opcode::DivNI, Opcode::DivNN, Opcode::DivNX},
        {Opcode::DivXX, Opcode::DivXX, Opcode::DivXX},
    };
    emit(kForms[column(left.kind)][column(right.kind)], target, a, inRegister(right));
}

/// `%`, the bit operators and shifts: ints whatever they get.
void CodeGenerator::emitIntegral(int op, std::int32_t target, Operand left, Operand right)
{
    const bool commutes = op == kTokenBitAnd || op == kTokenBitOr || op == kTokenBitXor;
    if (commutes && left.isConstant() && !right.isConstant())
        std::swap(left, right);
    const std::int32_t a = inRegister(left);
    const bool isInt = left.kind == KnownKind::Int;
    if (op == kNodeRemainder) {
        if (right.fitsShort() && right.value != 0)
            emit(isInt ? Opcode::ModIC : Opcode::ModXC, target, a, right.value);
        else
            emit(isInt && right.kind == KnownKind::Int ? Opcode::ModII : Opcode::ModXX, target, a,
                 inRegister(right));
        return;
    }
    const Opcode first = op == kTokenBitAnd      ? Opcode::AndII
                         : op == kTokenBitOr     ? Opcode::OrII
                         : op == kTokenBitXor    ? Opcode::XorII
                         : op == kTokenLeftShift ? Opcode::LShiftII
                                                 : Opcode::RShiftII;
    if (isInt && right.fitsShort())
        emit(behind(first, 1), target, a, right.value);
    else
        emit(behind(first, isInt && right.kind == KnownKind::Int ? 0 : 2), target, a,
             inRegister(right));
}

/// Index of a constant as a number, if the instruction has room for it; else -1.
std::int32_t CodeGenerator::numberConstant(const Operand& constant)
{
    const std::uint32_t index = constant.mode == Operand::Mode::Real
                                    ? static_cast<std::uint32_t>(constant.value)
                                    : constants.addNumber(constant.value);
    return index <= 0xFFFF ? static_cast<std::int32_t>(index) : -1;
}

void CodeGenerator::comparison(AST* node, std::int32_t target)
{
    const Operand left = leftOperand(node->left, node->right);
    const std::int32_t a = inRegister(left);
    const std::int32_t b = registerOf(node->right);
    static constexpr Opcode kRelations[] = {Opcode::RelLess, Opcode::RelLessOrEqual,
                                            Opcode::RelGreater, Opcode::RelGreaterOrEqual,
                                            Opcode::RelEqual};
    position = {node->line, node->fileIndex};
    emit(node->kind == kNodeNotEqual ? Opcode::RelNotEqual : kRelations[relationIndex(node->kind)],
         target, a, b);
}

/// `&&` and `||` give the operand that decides.
void CodeGenerator::logical(AST* node, std::int32_t target)
{
    const bool isVariable = target < firstTemporary;
    const std::int32_t result = isVariable ? newTemporary() : target;
    into(node->left, result);
    const std::size_t decided =
        emitBranch(node->kind == kNodeAnd ? Opcode::IfFalse : Opcode::IfTrue, result, 0);
    into(node->right, result);
    patch(decided, here());
    move(target, result);
}

void CodeGenerator::conditional(AST* node, std::int32_t target)
{
    JumpList toSecond;
    branch(node->left, false, toSecond);
    into(node->right->left, target);
    const std::size_t toEnd = emitJump();
    patchHere(toSecond);
    into(node->right->right, target);
    patch(toEnd, here());
}

void CodeGenerator::unary(AST* node, std::int32_t target)
{
    if (isNegativeLiteral(*node)) {
        emitWide(Opcode::LoadNumber, target, negativeLiteral(*node));
        return;
    }
    const bool isPlain = node->left->isIdentifier() && isRegister(*node->left->variable);
    std::int32_t source = target;
    if (isPlain || target < firstTemporary)
        source = registerOf(node->left);
    else
        into(node->left, target); // chains of signs take no registers
    position = {node->line, node->fileIndex};
    if (node->kind == kTokenIs)
        emit(Opcode::Is, target, source,
             static_cast<std::int32_t>(classIndex(*node->right->symbol)));
    else
        emit(node->kind == kNodeNot       ? Opcode::Not
             : node->kind == kTokenTypeof ? Opcode::TypeOf
                                          : Opcode::Negate,
             target, source);
}

/// Long literals are appended in pieces, so that their length takes no registers.
void CodeGenerator::array(AST* node, std::int32_t target)
{
    constexpr int kPiece = 32;
    const std::int32_t made = newTemporary();
    const std::int32_t first = top;
    int count = 0;
    bool begun = false;
    const auto flush = [&](std::int32_t into) {
        emit(begun ? Opcode::AppendArray : Opcode::NewArray, into, first, count);
        begun = true;
        count = 0;
        top = first;
    };
    for (AST* cell = node->left; cell; cell = cell->right) {
        into(cell->left, newTemporary());
        if (++count == kPiece && cell->right)
            flush(made);
    }
    if (!begun)
        return flush(target);
    flush(made);
    move(target, made);
}

CodeGenerator::Operand CodeGenerator::assignment(AST* node, Result result)
{
    AST* target = node->left;
    if (target->isIdentifier() && isRegister(*target->variable)) {
        Operand made;
        made.kind = kindOf(node->right);
        made.isVariable = true;
        made.value = registerOf(*target->variable);
        into(node->right, made.value);
        return made;
    }
    if (target->isIdentifier()) {
        Operand value = operand(node->right);
        value.value = inRegister(value);
        value.mode = Operand::Mode::Register;
        emit(Opcode::StoreGlobal, static_cast<std::int32_t>(target->variable->slot), value.value);
        return value;
    }
    if (result == Result::Dropped && storeConstant(target, *node->right))
        return {};
    Operand value = leftOperand(node->right, target);
    value.value = inRegister(value);
    value.mode = Operand::Mode::Register;
    const std::int32_t outer = top;
    position = {node->line, node->fileIndex};
    store(selection(target), value.value);
    top = result == Result::Wanted ? outer : top;
    return value;
}

void CodeGenerator::steppedBy(AST* node, std::int32_t target, KnownKind kind)
{
    const bool up = node->kind == kTokenIncrement;
    if (kind == KnownKind::Int)
        emit(up ? Opcode::IncrementI : Opcode::DecrementI, target);
    else
        emit(up ? Opcode::Increment : Opcode::Decrement, target);
}

/// `++` and `--`: a target on the left is the postfix form, whose value is the old one.
CodeGenerator::Operand CodeGenerator::step(AST* node, Result result)
{
    const bool postfix = node->left != nullptr;
    AST* target = postfix ? node->left : node->right;
    if (!target->isIdentifier())
        return stepElement(node, target, result);
    const Variable& variable = *target->variable;
    const bool keepsOld = postfix && result == Result::Wanted;
    Operand made;
    made.kind = variable.kind;
    if (isRegister(variable)) {
        made.value = registerOf(variable);
        if (keepsOld) {
            made.value = newTemporary();
            move(made.value, registerOf(variable));
        }
        made.isVariable = !keepsOld;
        steppedBy(node, registerOf(variable), variable.kind);
        return made;
    }
    made.value = newTemporary();
    const std::int32_t changed = keepsOld ? newTemporary() : made.value;
    emit(Opcode::LoadGlobal, made.value, static_cast<std::int32_t>(variable.slot));
    move(changed, made.value);
    steppedBy(node, changed, KnownKind::Any);
    emit(Opcode::StoreGlobal, static_cast<std::int32_t>(variable.slot), changed);
    return made;
}

/// The selectors run once for the value and once for the change, as far as that can be seen.
CodeGenerator::Operand CodeGenerator::stepElement(AST* node, AST* target, Result result)
{
    const bool postfix = node->left != nullptr;
    const bool runsTwice = target->has(AST::kAssigns) || target->has(AST::kCalls);
    Operand made;
    made.value = newTemporary();
    if (postfix && (runsTwice || result == Result::Wanted))
        select(target, made.value);
    const std::int32_t outer = top;
    const std::int32_t changed = newTemporary();
    const Selection place = selection(target);
    load(place, changed, *place.head->symbol);
    steppedBy(node, changed, KnownKind::Any);
    store(place, changed);
    if (!postfix)
        move(made.value, changed);
    top = outer;
    if (!postfix && runsTwice)
        select(target, made.value);
    return made;
}

/// Jumps to `jumps` when the truth of the condition is `sense`, and goes on otherwise.
void CodeGenerator::branch(AST* node, bool sense, JumpList& jumps)
{
    const std::int32_t outer = top;
    if (!nesting.enter(1, [&] { branchHere(node, sense, jumps); }))
        tooComplex();
    top = outer;
}

void CodeGenerator::branchHere(AST* node, bool sense, JumpList& jumps)
{
    switch (node->kind) {
    case kNodeNot:
        return branch(node->left, !sense, jumps);
    case kNodeAnd:
    case kNodeOr:
        return branchChain(node, sense, jumps);
    case kTokenInteger:
    case kTokenBoolean:
        if ((node->value != 0) == sense)
            jumps.push_back(emitJump());
        return;
    default:
        break;
    }
    if (isComparison(node->kind))
        return branchComparison(node, sense, jumps);
    const std::int32_t value = registerOf(node);
    jumps.push_back(emitBranch(sense ? Opcode::IfTrue : Opcode::IfFalse, value, 0));
}

/// `a && b && ...`: any false term decides for false; `||` likewise for true.
void CodeGenerator::branchChain(AST* node, bool sense, JumpList& jumps)
{
    const bool deciding = node->kind == kNodeOr;
    JumpList decided;
    JumpList& early = sense == deciding ? jumps : decided;
    if (node->left->kind != node->kind) {
        branch(node->left, deciding, early);
    } else {
        std::vector<AST*> terms;
        AST* first = node->left;
        for (; first->kind == node->kind; first = first->left)
            terms.push_back(first->right);
        branch(first, deciding, early);
        for (std::size_t i = terms.size(); i-- > 0;)
            branch(terms[i], deciding, early);
    }
    branch(node->right, sense, jumps);
    patchHere(decided);
}

void CodeGenerator::branchComparison(AST* node, bool sense, JumpList& jumps)
{
    int relation = node->kind;
    Operand left = leftOperand(node->left, node->right);
    Operand right = operand(node->right);
    const bool isEquality = relation == kNodeEqual || relation == kNodeNotEqual;
    if (left.isConstant() && !right.isConstant() && (!isEquality || right.kind != KnownKind::Any)) {
        std::swap(left, right);
        relation = mirrored(relation);
    }
    if (relation == kNodeNotEqual)
        sense = !sense;
    position = {node->line, node->fileIndex};
    const int offset = relationIndex(relation) * 2 + (sense ? 0 : 1);
    const std::int32_t a = inRegister(left);
    const auto jump = [&](Opcode form, std::int32_t b) {
        jumps.push_back(emitBranch(behind(form, offset), a, b));
    };
    if (left.kind == KnownKind::Number && right.isConstant()) {
        const std::int32_t constant = numberConstant(right);
        if (constant >= 0)
            return jump(Opcode::IfLessNK, constant);
    }
    if (left.kind != KnownKind::Number && right.fitsShort())
        return jump(left.kind == KnownKind::Int ? Opcode::IfLessIC : Opcode::IfLessXC, right.value);
    const std::int32_t b = inRegister(right);
    if (left.kind == KnownKind::Int && right.kind == KnownKind::Int)
        return jump(Opcode::IfLessII, b);
    if (left.kind == KnownKind::Int)
        return jump(Opcode::IfLessIX, b);
    const bool numbers = left.kind == KnownKind::Number && right.kind == KnownKind::Number;
    jump(numbers ? Opcode::IfLessNN : Opcode::IfLessXX, b);
}

} // namespace varn
