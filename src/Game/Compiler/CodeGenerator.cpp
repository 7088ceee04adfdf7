#include "Game/Compiler/CodeGenerator.h"

#include "Game/Compiler/KindInference.h"

#include <algorithm>

namespace varn {
namespace {

bool isBranch(Opcode opcode)
{
    return opcode >= Opcode::IfTrue && opcode < Opcode::CountLessII;
}

/// The branch on the opposite outcome; If and Unless forms stand in pairs.
Opcode opposite(Opcode opcode)
{
    const auto offset = static_cast<int>(opcode) - static_cast<int>(Opcode::IfTrue);
    return static_cast<Opcode>(static_cast<int>(Opcode::IfTrue) + (offset ^ 1));
}

} // namespace

CodeGenerator::CodeGenerator(Program& program, ConstantTable& constants,
                             const CompileErrors& errors, const ResolvedProgram& resolved)
    : program(program), constants(constants), errors(errors), resolved(resolved)
{}

/// A top level without a name stands first among the functions.
void CodeGenerator::declareFunctions()
{
    if (!starts.empty())
        return;
    program.functions.push_back(std::make_unique<FunctionCode>());
    for (const ResolvedFunction& function : resolved.functions) {
        auto& code = *program.functions.emplace_back(std::make_unique<FunctionCode>());
        code.name = function.name->name;
        code.number = static_cast<std::uint32_t>(program.functions.size()) - 1;
        code.parameters = function.parameters;
    }
    starts.resize(program.functions.size());
}

void CodeGenerator::addFunction(std::uint32_t number)
{
    declareFunctions();
    starts[number + 1] = here();
    generateFunction(resolved.functions[number], *program.functions[number + 1]);
}

void CodeGenerator::finish()
{
    declareFunctions();
    starts[0] = here();
    generateTopLevel();
    for (std::size_t i = 0; i < resolved.functions.size(); ++i)
        if (!resolved.functions[i].body)
            starts[i + 1] = here() - 1; // calling a function without a body ends the run
    for (std::size_t i = 0; i < starts.size(); ++i)
        program.functions[i]->start = program.code.data() + starts[i];
}

/// Makes a body's code; once more with long jumps when a distance did not fit.
template <class Body>
void CodeGenerator::withShortJumps(Body&& body)
{
    const std::size_t start = here();
    const std::size_t named = program.selectedNames.size();
    for (longJumps = false;; longJumps = true) {
        jumpTooFar = false;
        top = highest = firstTemporary;
        body();
        if (!jumpTooFar)
            return;
        program.code.resize(start);
        program.positions.resize(start);
        program.selectedNames.resize(named);
    }
}

void CodeGenerator::generateTopLevel()
{
    inferKinds(resolved.variables);
    position = {};
    topLevel = true;
    firstTemporary = static_cast<std::int32_t>(resolved.slots);
    withShortJumps([&] {
        emitWide(Opcode::LoadInt, 0, 0); // _ret
        for (std::size_t i = 0; i < resolved.definitions.size(); ++i)
            emitWide(Opcode::LoadFunction, static_cast<std::int32_t>(resolved.definitions[i]->slot),
                     static_cast<std::int32_t>(i + 1));
        for (AST* item : resolved.items)
            if (item->kind != kNodeFunction && item->kind != kNodeClass)
                statement(item);
        emit(Opcode::Halt);
    });
    program.functions.front()->frameBytes = static_cast<std::uint32_t>(highest * kRegisterStep);
}

void CodeGenerator::generateFunction(const ResolvedFunction& function, FunctionCode& code)
{
    inferKinds(function.variables);
    topLevel = false;
    firstTemporary = static_cast<std::int32_t>(std::max(function.slots, function.parameters));
    code.parameters = function.parameters;
    position = {function.body->line, function.body->fileIndex};
    withShortJumps([&] {
        statements(function.body->right->right->left);
        const std::int32_t zero = newTemporary();
        emitWide(Opcode::LoadInt, zero, 0);
        emit(Opcode::Return, zero);
    });
    code.frameBytes = static_cast<std::uint32_t>(highest * kRegisterStep);
}

void CodeGenerator::statements(AST* list)
{
    for (AST* each : elementsOf(list))
        statement(each);
}

void CodeGenerator::statement(AST* node)
{
    if (!nesting.enter(1, [&] { statementHere(node); }))
        tooComplex();
}

void CodeGenerator::statementHere(AST* node)
{
    const std::int32_t outer = top;
    position = {node->line, node->fileIndex};
    switch (node->kind) {
    case kNodeEmpty:
        break;
    case kNodeBlock:
        statements(node->left);
        break;
    case kNodeVar:
        for (AST* each : elementsOf(node->left))
            declarator(each);
        break;
    case kTokenReturn:
        returnStatement(node);
        break;
    case kTokenIf:
        ifStatement(node);
        break;
    case kTokenWhile:
        whileLoop(node);
        break;
    case kTokenFor:
        forLoop(node);
        break;
    case kTokenBreak:
        loops.back()->breaks.push_back(emitJump());
        break;
    case kTokenContinue:
        loops.back()->continues.push_back(emitJump());
        break;
    default:
        effect(node);
    }
    top = outer;
}

void CodeGenerator::declarator(AST* node)
{
    const Variable& variable = *node->left->left->variable;
    const std::int32_t target = registerOf(variable);
    const std::int32_t outer = top;
    KnownKind kind = KnownKind::Int;
    if (variable.readsItself || !node->right)
        emitWide(Opcode::LoadInt, target, 0);
    if (node->right) {
        into(node->right, target);
        kind = kindOf(node->right);
    }
    top = outer;
    if (node->value == kTokenInteger && kind != KnownKind::Int)
        emit(Opcode::CastInt, target, target);
    else if (node->value == kTokenReal && kind != KnownKind::Number)
        emit(Opcode::CastNumber, target, target);
}

void CodeGenerator::returnStatement(AST* node)
{
    if (topLevel) {
        if (node->left)
            effect(node->left);
        emit(Opcode::Halt);
        return;
    }
    Operand value;
    value.mode = Operand::Mode::Integer;
    emit(Opcode::Return, inRegister(node->left ? operand(node->left) : value));
}

void CodeGenerator::ifStatement(AST* node)
{
    JumpList toElse;
    branch(node->left, false, toElse);
    AST* branches = node->right;
    statement(branches->left);
    if (!branches->right)
        return patchHere(toElse);
    const std::size_t toEnd = emitJump();
    patchHere(toElse);
    statement(branches->right->left);
    patch(toEnd, here());
}

void CodeGenerator::loopBody(AST* body, Loop& loop)
{
    loops.push_back(&loop);
    statement(body);
    loops.pop_back();
}

void CodeGenerator::whileLoop(AST* node)
{
    Loop loop;
    const std::size_t toCondition = emitJump();
    const std::size_t start = here();
    loopBody(node->right, loop);
    patchHere(loop.continues);
    patch(toCondition, here());
    JumpList again;
    position = {node->line, node->fileIndex};
    branch(node->left, true, again);
    patchTo(again, start);
    patchHere(loop.breaks);
}

void CodeGenerator::forLoop(AST* node)
{
    AST* parts = node->left;
    AST* first = parts->left;
    AST* condition = parts->right->left;
    AST* next = parts->right->right->left;
    statement(first);
    if (countingLoop(node))
        return;
    Loop loop;
    const bool endless = condition->kind == kNodeEmpty;
    const std::size_t toCondition = endless ? 0 : emitJump();
    const std::size_t start = here();
    loopBody(node->right, loop);
    patchHere(loop.continues);
    statement(next);
    JumpList again;
    position = {node->line, node->fileIndex};
    if (endless) {
        again.push_back(emitJump());
    } else {
        patch(toCondition, here());
        branch(condition, true, again);
    }
    patchTo(again, start);
    patchHere(loop.breaks);
}

/// `for (...; i < limit; i++)` with an int in a register: step, test and jump are one instruction.
bool CodeGenerator::countingLoop(AST* node)
{
    AST* condition = node->left->right->left;
    AST* next = node->left->right->right->left;
    const bool less = condition->kind == kNodeLess;
    if (longJumps || (!less && condition->kind != kNodeLessOrEqual) ||
        next->kind != kTokenIncrement)
        return false;
    const AST* counter = next->left ? next->left : next->right;
    AST* limit = condition->right;
    if (!counter->isIdentifier() || !condition->left->isIdentifier() ||
        condition->left->variable != counter->variable || !isRegister(*counter->variable) ||
        counter->variable->kind != KnownKind::Int)
        return false;
    const bool limitInRegister = limit->isIdentifier() && isRegister(*limit->variable);
    const bool limitInside =
        limit->kind == kTokenInteger && limit->value == static_cast<std::int16_t>(limit->value);
    if (!limitInRegister && !limitInside)
        return false;
    Loop loop;
    branch(condition, false, loop.breaks);
    const std::size_t start = here();
    loopBody(node->right, loop);
    patchHere(loop.continues);
    position = {node->line, node->fileIndex};
    const bool limitIsInt = limitInRegister && limit->variable->kind == KnownKind::Int;
    const Opcode first = less ? Opcode::CountLessII : Opcode::CountLessOrEqualII;
    const int form = limitInside ? 1 : limitIsInt ? 0 : 2;
    const std::size_t jump = emitBranch(static_cast<Opcode>(static_cast<int>(first) + form),
                                        registerOf(*counter->variable),
                                        limitInside ? limit->value : registerOf(*limit->variable));
    patch(jump, start);
    patchHere(loop.breaks);
    return true;
}

/// An expression whose value nobody wants.
void CodeGenerator::effect(AST* node)
{
    if (node->kind == kNodeAssign)
        assignment(node, Result::Dropped);
    else if (node->kind == kTokenIncrement || node->kind == kTokenDecrement)
        step(node, Result::Dropped);
    else if (!node->isIdentifier())
        operand(node);
}

std::size_t CodeGenerator::emit(Opcode opcode, std::int32_t a, std::int32_t b, std::int32_t c)
{
    const int scaled = kRegisterOperands[static_cast<std::size_t>(opcode)];
    program.code.push_back({opcode, static_cast<std::uint16_t>(scaled & 1 ? a * kRegisterStep : a),
                            static_cast<std::uint16_t>(scaled & 2 ? b * kRegisterStep : b),
                            static_cast<std::uint16_t>(scaled & 4 ? c * kRegisterStep : c)});
    program.positions.push_back(position);
    return here() - 1;
}

std::size_t CodeGenerator::emitWide(Opcode opcode, std::int32_t a, std::int32_t wide)
{
    const std::size_t at = emit(opcode, a);
    program.code[at].setWide(wide);
    return at;
}

void CodeGenerator::emitExtra(Opcode opcode, std::int32_t a, std::int32_t wide)
{
    emitWide(opcode, a, wide);
}

void CodeGenerator::move(std::int32_t target, std::int32_t source)
{
    if (target != source)
        emit(Opcode::Move, target, source);
}

/// A branch to be patched. With long jumps the opposite branch skips a jump.
std::size_t CodeGenerator::emitBranch(Opcode opcode, std::int32_t a, std::int32_t b)
{
    if (!longJumps || !isBranch(opcode))
        return emit(opcode, a, b);
    emit(opposite(opcode), a, b, 1);
    return emitJump();
}

void CodeGenerator::patch(std::size_t at, std::size_t target)
{
    const auto distance = static_cast<std::int32_t>(static_cast<std::int64_t>(target) -
                                                    static_cast<std::int64_t>(at) - 1);
    Instruction& jump = program.code[at];
    if (jump.opcode == Opcode::Jump)
        return jump.setWide(distance);
    jump.c = static_cast<std::uint16_t>(distance);
    jumpTooFar |= jump.signedC() != distance;
}

void CodeGenerator::patchTo(const JumpList& jumps, std::size_t target)
{
    jumps.forEach([&](std::size_t jump) { patch(jump, target); });
}

void CodeGenerator::patchHere(const JumpList& jumps)
{
    patchTo(jumps, here());
}

std::int32_t CodeGenerator::newTemporary(std::int32_t count)
{
    const std::int32_t first = top;
    if (count >= kMaxRegisters - top)
        tooComplex();
    top += count;
    highest = std::max(highest, top);
    return first;
}

void CodeGenerator::tooComplex() const
{
    errors.fail({position.file, position.line}, "memory exhausted");
}

std::uint32_t CodeGenerator::nameIndex(Symbol& symbol)
{
    if (symbol.nameIndex == Symbol::kNoIndex) {
        symbol.nameIndex = static_cast<std::uint32_t>(program.names.size());
        program.names.emplace_back(symbol.name);
    }
    return symbol.nameIndex;
}

std::uint32_t CodeGenerator::classIndex(Symbol& symbol)
{
    if (symbol.classIndex != Symbol::kNoIndex)
        return symbol.classIndex;
    const ValueKind makes = symbol.name == "String"   ? ValueKind::String
                            : symbol.name == "Array"  ? ValueKind::Array
                            : symbol.name == "Object" ? ValueKind::Table
                                                      : ValueKind::Object;
    program.classes.push_back({std::string(symbol.name), symbol.nativeClass(), makes});
    if (program.classes.size() > 65535)
        tooComplex();
    symbol.classIndex = static_cast<std::uint32_t>(program.classes.size() - 1);
    return symbol.classIndex;
}

void CodeGenerator::nameSelected(Symbol& head)
{
    program.selectedNames.emplace_back(static_cast<std::uint32_t>(here()), nameIndex(head));
}

} // namespace varn
