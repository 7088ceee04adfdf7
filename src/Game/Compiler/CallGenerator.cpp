#include "Game/Compiler/CodeGenerator.h"
#include <utility>

// Elements, members and calls of CodeGenerator.

namespace varn {

/// Compiles the selectors of a list.
CodeGenerator::Selection CodeGenerator::selection(AST* list)
{
    Selection made;
    made.head = list->left->left;
    const Variable& base = *made.head->variable;
    made.isGlobal = !isRegister(base);
    made.base = static_cast<std::int32_t>(base.slot);
    made.count = lengthOf(list->right);
    AST* only = list->right->left;
    if (made.count == 1 && only->isIdentifier() && nameIndex(*only->symbol) <= 0xFFFF) {
        made.member = only;
        return made;
    }
    if (made.count == 1 && !only->isIdentifier()) {
        made.first = registerOf(only->left);
        return made;
    }
    made.first = newTemporary(made.count);
    std::int32_t selector = made.first;
    for (AST* each : elementsOf(list->right)) {
        if (each->isIdentifier())
            emitWide(Opcode::LoadSelector, selector,
                     static_cast<std::int32_t>(nameIndex(*each->symbol)));
        else
            into(each->left, selector);
        ++selector;
    }
    return made;
}

void CodeGenerator::load(const Selection& from, std::int32_t target, Symbol& head)
{
    nameSelected(head);
    if (from.member) {
        emit(from.isGlobal ? Opcode::GetMemberG : Opcode::GetMember, target, from.base,
             static_cast<std::int32_t>(nameIndex(*from.member->symbol)));
        emit(Opcode::MemberHint);
    } else if (from.count == 1) {
        emit(from.isGlobal ? Opcode::GetElementG : Opcode::GetElement, target, from.base,
             from.first);
    } else {
        emit(Opcode::GetChain, target, from.base, from.count);
        emit(Opcode::ChainExtra, from.first, 0, from.isGlobal ? 1 : 0);
    }
}

void CodeGenerator::store(const Selection& place, std::int32_t value)
{
    nameSelected(*place.head->symbol);
    if (place.member) {
        emit(place.isGlobal ? Opcode::SetMemberG : Opcode::SetMember, place.base, value,
             static_cast<std::int32_t>(nameIndex(*place.member->symbol)));
        emit(Opcode::MemberHint);
    } else if (place.count == 1) {
        emit(place.isGlobal ? Opcode::SetElementG : Opcode::SetElement, place.base, place.first,
             value);
    } else {
        emit(Opcode::SetChain, value, place.base, place.count);
        emit(Opcode::ChainExtra, place.first, 0, place.isGlobal ? 1 : 0);
    }
}

/// `a[i] = constant` in one instruction, for small ints and booleans.
bool CodeGenerator::storeConstant(AST* list, const AST& value)
{
    AST* index = list->right->left;
    const bool isShort = (value.kind == kTokenInteger || value.kind == kTokenBoolean) &&
                         value.value == static_cast<std::int16_t>(value.value);
    if (!isShort || list->right->right || index->kind != kNodeIndex ||
        !isRegister(*list->left->left->variable))
        return false;
    const std::int32_t at = registerOf(index->left);
    nameSelected(*list->left->left->symbol);
    emit(value.kind == kTokenBoolean ? Opcode::SetElementBoolean : Opcode::SetElementInt,
         registerOf(*list->left->left->variable), at, value.value);
    return true;
}

/// One selector of a base in a register; a constant index stands in the instruction.
void CodeGenerator::selectOne(AST* selector, std::int32_t base, std::int32_t target, Symbol& head)
{
    const AST* index = selector->isIdentifier() ? nullptr : selector->left;
    if (index && index->kind == kTokenInteger && index->value >= 0 && index->value <= 0x7FFF) {
        nameSelected(head);
        emit(Opcode::GetElementC, target, base, index->value);
        return;
    }
    Selection from;
    from.head = selector;
    from.base = base;
    from.count = 1;
    if (index)
        from.first = registerOf(selector->left);
    else
        from.member = selector;
    load(from, target, head);
}

/// Reads what selectors reach. Those that do nothing else are followed one by one; others run
/// before the first is followed.
void CodeGenerator::select(AST* list, std::int32_t target)
{
    AST* head = list->left->left;
    const bool inTurn =
        !list->has(AST::kAssigns) && !list->has(AST::kCalls) && program.names.size() < 0xF000;
    if (!inTurn || (!isRegister(*head->variable) && !list->right->right))
        return load(selection(list), target, *head->symbol);
    std::int32_t base = registerOf(head);
    const std::int32_t between = target < firstTemporary ? newTemporary() : target;
    const std::int32_t outer = top;
    for (AST* cell = list->right; cell; cell = cell->right) {
        const std::int32_t reached = cell->right ? between : target;
        selectOne(cell->left, base, reached, *head->symbol);
        base = reached;
        top = outer;
    }
}

/// Evaluates arguments into registers that follow each other; gives the first.
std::int32_t CodeGenerator::arguments(AST* list, int& count)
{
    const std::int32_t first = top;
    count = 0;
    for (AST* each : elementsOf(list)) {
        into(each, newTemporary());
        ++count;
    }
    return first;
}

/// A call of a script function; gives the register of the result, the newest temporary.
std::int32_t CodeGenerator::call(AST* node)
{
    const Variable& callee = *node->left->variable;
    const std::int32_t header = newTemporary();
    int count = 0;
    arguments(node->right, count);
    position = {node->line, node->fileIndex};
    emit(isRegister(callee) && !topLevel ? Opcode::CallValue : Opcode::Call, header,
         static_cast<std::int32_t>(callee.slot), count);
    top = header + 1;
    return header;
}

/// `_getArgs(0)`, as the text of every formula begins.
static bool isFormulaArgument(const AST& call)
{
    const AST* list = call.right;
    return call.left->symbol->name == "_getArgs" && list && !list->right &&
           list->left->kind == kTokenInteger && list->left->value >= 0;
}

void CodeGenerator::callNative(AST* node, std::int32_t target)
{
    int count = 0;
    if (isFormulaArgument(*node))
        emitWide(Opcode::LoadArgument, target, node->right->left->value);
    const std::int32_t first = arguments(node->right, count);
    position = {node->line, node->fileIndex};
    emit(Opcode::CallNative, first, target, count);
    emitExtra(Opcode::Extra, 0, static_cast<std::int32_t>(program.natives.size()));
    program.natives.push_back(
        {std::string(node->left->symbol->name), node->left->symbol->nativeFunction()});
}

std::uint32_t CodeGenerator::addSite(Symbol& method, int count, ClassInterface* declared,
                                     bool isStatic)
{
    CallSite site;
    site.method = nameIndex(method);
    site.count = static_cast<std::uint32_t>(count);
    site.declared = declared;
    site.isStatic = isStatic;
    program.sites.push_back(site);
    return static_cast<std::uint32_t>(program.sites.size() - 1);
}

/// A member of a class: with arguments a call, without a list a constant.
void CodeGenerator::staticCall(AST* list, AST* given, std::int32_t target)
{
    int count = 0;
    const std::int32_t first = arguments(given, count);
    Symbol& method = *lastCell(list)->left->symbol;
    emit(Opcode::CallStatic, newTemporary(), 0, first);
    emitExtra(Opcode::MethodResult, target,
              static_cast<std::int32_t>(
                  addSite(method, count, list->left->left->symbol->nativeClass(), true)));
}

/// Loads what a method is called on: the text, the variable, or what the selectors before the
/// method reach.
std::int32_t CodeGenerator::receiver(AST* list)
{
    AST* first = list->left;
    if (first->kind == kTokenString)
        return registerOf(first);
    if (!list->right->right)
        return registerOf(first->left);
    AST* beforeLast = list; // the list without its method, for the time of the load
    while (beforeLast->right->right)
        beforeLast = beforeLast->right;
    AST* method = std::exchange(beforeLast->right, nullptr);
    const std::int32_t target = newTemporary();
    select(list, target);
    beforeLast->right = method;
    return target;
}

void CodeGenerator::methodCall(AST* node, std::int32_t target)
{
    if (node->has(AST::kStatic))
        return staticCall(node->left, node->right, target);
    AST* only = node->right && !node->right->right ? node->right->left : nullptr;
    const bool inPlace =
        only && only->isIdentifier() && isRegister(*only->variable) && !hazard(node->left);
    int count = 1;
    const std::int32_t first =
        inPlace ? registerOf(*only->variable) : arguments(node->right, count);
    const std::int32_t from = receiver(node->left);
    Symbol& method = *lastCell(node->left)->left->symbol;
    position = {node->line, node->fileIndex};
    emit(Opcode::CallMethod, newTemporary(), from, first);
    ClassInterface* declared = resolved.receiverClasses[static_cast<std::size_t>(node->value)];
    emitExtra(Opcode::MethodResult, target,
              static_cast<std::int32_t>(addSite(method, count, declared, false)));
}

void CodeGenerator::newObject(AST* node, std::int32_t target)
{
    int count = 0;
    const std::int32_t first = arguments(node->right, count);
    position = {node->line, node->fileIndex};
    emit(Opcode::New, target, first, count);
    emitExtra(Opcode::Extra, 0, static_cast<std::int32_t>(classIndex(*node->left->symbol)));
}

} // namespace varn
