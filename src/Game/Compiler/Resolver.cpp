#include "Game/Compiler/Resolver.h"

#include <algorithm>
#include <utility>

namespace varn {
namespace {

constexpr std::string_view kUndefinedOperation = "compileExpr(): undefined operation";
constexpr std::string_view kExit = "exit";

bool isBinary(const AST& node)
{
    switch (node.kind) {
    case kNodeAdd:
    case kNodeSubtract:
    case kNodeMultiply:
    case kNodeDivide:
    case kNodeRemainder:
    case kNodeAnd:
    case kNodeOr:
    case kNodeLess:
    case kNodeLessOrEqual:
    case kNodeEqual:
    case kNodeNotEqual:
    case kNodeGreaterOrEqual:
    case kNodeGreater:
    case kTokenBitAnd:
    case kTokenBitOr:
    case kTokenBitXor:
    case kTokenRightShift:
    case kTokenLeftShift:
        return node.right != nullptr;
    default:
        return false;
    }
}

} // namespace

AST* lastCell(AST* list)
{
    while (list->right)
        list = list->right;
    return list;
}

Resolver::Resolver(SymbolTable& symbols, Arena& arena, CompileErrors& errors)
    : symbols(symbols), arena(arena), errors(errors), textType(symbols.intern("String")),
      arrayType(symbols.intern("Array"))
{}

void Resolver::report(ErrorCode code, const AST* at, std::string_view name)
{
    errors.add(code, {at->fileIndex, at->line}, name);
}

void Resolver::resolve(const SyntaxTree& tree,
                       const std::function<void(std::uint32_t)>& functionReady)
{
    AST* result = arena.make<AST>();
    result->kind = kTokenIdentifier;
    result->line = 1;
    result->symbol = symbols.intern("_ret");
    assignUnknown(*declare(result, Storage::Global, nullptr)); // natives write it
    for (AST* function : tree.functions)
        declareFunction(function);
    program.defaultsAssign = tree.defaultsAssign;
    program.items = tree.items;
    for (AST* item : tree.items) {
        resolveItem(item);
        if (item->kind == kNodeFunction)
            if (const Variable* variable = functionVariable(item->left->symbol))
                functionReady(variable->functionNumber);
    }
}

Variable* Resolver::declare(AST* name, Storage storage, Symbol* typeName)
{
    if (declared.size() >= kMaxDeclarations && !tooMany) {
        tooMany = true;
        report(ErrorCode::Internal, name,
               std::string(name->symbol->name) + ": too many declarations");
    }
    Variable* made = arena.make<Variable>();
    made->symbol = name->symbol;
    made->hidden = name->symbol->variable;
    made->storage = storage;
    made->slot = nextSlot++;
    name->symbol->variable = made;
    name->symbol->typeName = typeName;
    name->variable = made;
    declared.push_back(made);
    if (inFunction()) {
        currentFunction->slots = std::max(currentFunction->slots, nextSlot);
        currentFunction->variables.push_back(made);
    } else {
        program.slots = std::max(program.slots, nextSlot);
        program.variables.push_back(made);
    }
    return made;
}

void Resolver::closeScope(const Scope& scope)
{
    while (declared.size() > scope.declared) {
        declared.back()->symbol->variable = declared.back()->hidden;
        declared.pop_back();
    }
    nextSlot = scope.nextSlot;
}

void Resolver::assign(Variable& variable, AST* value)
{
    variable.assigned = arena.make<Variable::Assigned>(value, variable.assigned);
}

void Resolver::declareFunction(AST* function)
{
    Variable* made = declare(function->left, Storage::Global, nullptr);
    made->function = function;
    made->functionNumber = static_cast<std::uint32_t>(program.functions.size());
    assignUnknown(*made);
    ResolvedFunction resolved;
    resolved.name = function->left->symbol;
    resolved.parameters = static_cast<std::uint32_t>(lengthOf(function->right->left));
    program.functions.push_back(std::move(resolved));
    program.definitions.push_back(made);
}

void Resolver::resolveItem(AST* item)
{
    if (item->kind == kNodeFunction)
        resolveFunction(item);
    else if (item->kind == kNodeClass)
        declareClass(item);
    else
        statement(item);
}

/// A class of the source is a type name and nothing more: its body makes no code.
void Resolver::declareClass(AST* item)
{
    Symbol* name = item->left->symbol;
    if (name->isClass())
        report(ErrorCode::ClassExists, item->left, name->name);
    name->isScriptClass = true;
}

/// The newest function of the name; several definitions of one name fill the newest in turn.
Variable* Resolver::functionVariable(Symbol* name) const
{
    Variable* found = name->variable;
    while (found && !found->function)
        found = found->hidden;
    return found;
}

void Resolver::resolveFunction(AST* function)
{
    Variable* variable = functionVariable(function->left->symbol);
    if (!variable)
        return report(ErrorCode::Internal, function, "compileFunction()");
    ResolvedFunction& resolved = program.functions[variable->functionNumber];
    resolved.body = function;
    resolved.slots = 0;
    resolved.variables.clear();
    resolved.parameters = static_cast<std::uint32_t>(lengthOf(function->right->left));
    const Scope outer = openScope();
    const int outerLoops = std::exchange(loops, 0);
    nextSlot = 0;
    currentFunction = &resolved;
    if (declareParameters(function->right->left))
        statements(function->right->right->left);
    currentFunction = nullptr;
    loops = outerLoops;
    closeScope(outer);
}

bool Resolver::declareParameters(AST* parameters)
{
    for (AST* parameter : elementsOf(parameters)) {
        AST* type = parameter->left->right;
        if (type && !type->symbol->isClass()) {
            report(ErrorCode::NotDefined, type, type->symbol->name);
            return false;
        }
        assignUnknown(
            *declare(parameter->left->left, Storage::Argument, type ? type->symbol : nullptr));
    }
    return true;
}

void Resolver::statements(AST* list)
{
    const Scope scope = openScope();
    for (AST* each : elementsOf(list))
        statement(each);
    closeScope(scope);
}

/// A statement that is part of another is a scope of its own.
void Resolver::body(AST* node)
{
    const Scope scope = openScope();
    statement(node);
    closeScope(scope);
}

void Resolver::statement(AST* node)
{
    const auto resolveHere = [&] {
        switch (node->kind) {
        case kNodeEmpty:
            return;
        case kNodeBlock:
            return statements(node->left);
        case kNodeVar:
            return declarators(node->left);
        case kTokenReturn:
            if (node->left)
                expression(node->left);
            return;
        case kTokenIf:
            expression(node->left);
            for (AST* branch : elementsOf(node->right))
                body(branch);
            return;
        case kTokenWhile:
            return loop(node);
        case kTokenFor:
            return forLoop(node);
        case kTokenBreak:
        case kTokenContinue:
            if (loops == 0)
                report(ErrorCode::LabelNotFound, node, "");
            return;
        case kTokenSwitch:
            return report(ErrorCode::NotSupported, node, "switch");
        default:
            return expression(node);
        }
    };
    if (!nesting.enter(1, resolveHere))
        errors.fail({node->fileIndex, node->line}, "memory exhausted");
}

void Resolver::loop(AST* node)
{
    ++loops;
    expression(node->left);
    body(node->right);
    --loops;
}

void Resolver::forLoop(AST* node)
{
    const Scope scope = openScope();
    AST* parts = node->left;
    forPart(parts->left);
    ++loops;
    AST* condition = parts->right->left;
    AST* step = parts->right->right->left;
    if (condition->kind != kNodeEmpty)
        expression(condition);
    body(node->right);
    if (step->kind == kNodeVar)
        report(ErrorCode::Internal, step, kUndefinedOperation);
    else if (step->kind != kNodeEmpty)
        expression(step);
    --loops;
    closeScope(scope);
}

void Resolver::forPart(AST* node)
{
    if (node->kind == kNodeVar)
        declarators(node->left);
    else if (node->kind != kNodeEmpty)
        expression(node);
}

void Resolver::declarators(AST* list)
{
    for (AST* each : elementsOf(list))
        declarator(each);
}

/// The class that an initial value shows, or null.
Symbol* Resolver::inferredType(AST* value)
{
    if (!value)
        return nullptr;
    if (value->kind == kTokenString)
        return textType;
    if (value->kind == kNodeArray)
        return arrayType;
    if (value->kind != kNodeNew)
        return nullptr;
    Symbol* name = value->left->symbol;
    if (!name->isClass())
        report(ErrorCode::NotDefined, value->left, name->name);
    return name;
}

void Resolver::declarator(AST* node)
{
    AST* name = node->left->left;
    AST* annotation = node->left->right;
    Symbol* type = inferredType(node->right);
    if (annotation) {
        Symbol* wanted = annotation->symbol;
        if (type && type != wanted)
            report(ErrorCode::DifferentType, annotation,
                   std::string(wanted->name) + " and " + std::string(type->name));
        type = wanted;
        if (!type->isClass())
            report(ErrorCode::NotDefined, annotation, type->name);
    }
    Variable* made = declare(name, inFunction() ? Storage::Local : Storage::Global, type);
    const Variable* outer = std::exchange(initialised, made);
    if (node->right)
        expression(node->right);
    initialised = outer;
    const bool isInt = type && type->name == "int";
    if (isInt || (type && type->name == "Number")) {
        AST* known = arena.make<AST>(); // what the cast makes of any value
        known->kind = isInt ? kTokenInteger : kTokenReal;
        node->value = isInt ? kTokenInteger : kTokenReal;
        assign(*made, known);
    } else if (node->right) {
        assign(*made, node->right);
    } else {
        assignZero(*made);
    }
}

void Resolver::assignZero(Variable& variable)
{
    AST* zero = arena.make<AST>();
    zero->kind = kTokenInteger;
    assign(variable, zero);
}

/// `var a = a;` reads the new variable, which is 0 until then.
void Resolver::readItself(Variable& variable)
{
    variable.readsItself = true;
    assignZero(variable);
}

void Resolver::expressions(AST* list)
{
    for (AST* each : elementsOf(list))
        expression(each);
}

void Resolver::expression(AST* node)
{
    if (node->isIdentifier())
        return identifier(node);
    if (isBinary(*node))
        return leftChain(node);
    if (!nesting.enter(1, [&] { visit(node); }))
        errors.fail({node->fileIndex, node->line}, "memory exhausted");
}

/// Chains of operators hang to the left and may be as long as the source: walked without recursion.
void Resolver::leftChain(AST* node)
{
    if (!isBinary(*node->left)) {
        expression(node->left);
        return expression(node->right);
    }
    std::vector<AST*> chain;
    for (; isBinary(*node); node = node->left)
        chain.push_back(node);
    expression(node);
    for (std::size_t i = chain.size(); i-- > 0;)
        expression(chain[i]->right);
}

void Resolver::visit(AST* node)
{
    switch (node->kind) {
    case kNodeAdd:
    case kNodeSubtract:
    case kNodeNot:
    case kTokenTypeof:
        return expression(node->left);
    case kTokenIs:
        expression(node->left);
        return className(node->right);
    case kNodeConditional:
        expression(node->left);
        expression(node->right->left);
        return expression(node->right->right);
    case kNodeArray:
        return expressions(node->left);
    case kNodeTable:
        for (AST* pair : elementsOf(node->left))
            report(ErrorCode::Internal, pair, kUndefinedOperation);
        return;
    case kNodeAssign:
        return assignment(node);
    case kTokenIncrement:
    case kTokenDecrement:
        return step(node);
    case kNodeCell:
        return selectorList(node, false);
    case kNodeNew:
        className(node->left);
        return expressions(node->right);
    case kNodeCall:
        return call(node);
    case kNodeMethodCall:
        return methodCall(node);
    default:
        return; // a literal
    }
}

void Resolver::className(AST* name)
{
    if (!name->symbol->isClass())
        report(ErrorCode::ClassNotDeclared, name, name->symbol->name);
}

void Resolver::identifier(AST* node)
{
    Variable* found = node->symbol->variable;
    node->variable = found;
    if (!found)
        report(ErrorCode::UndefinedVariable, node, node->symbol->name);
    else if (inFunction() && found->storage == Storage::Global)
        found->usedInFunction = true;
    if (found && found == initialised)
        readItself(*node->variable);
}

void Resolver::assignment(AST* node)
{
    expression(node->right);
    if (!node->left->isIdentifier())
        return selectorList(node->left, true);
    identifier(node->left);
    if (node->left->variable)
        assign(*node->left->variable, node->right);
}

void Resolver::step(AST* node)
{
    AST* target = node->left ? node->left : node->right;
    if (target->isIdentifier())
        identifier(target);
    else
        selectorList(target, true);
}

void Resolver::selectors(AST* list)
{
    for (AST* each : elementsOf(list))
        if (each->kind == kNodeIndex)
            expression(each->left);
}

/// Elements and members of a variable. A read whose head is a class is a static member.
void Resolver::selectorList(AST* node, bool stores)
{
    AST* head = node->left->left;
    if (!stores && head->symbol->isClass()) {
        AST* method = lastCell(node)->left;
        node->flags |= AST::kStatic;
        if (!method->isIdentifier())
            return report(ErrorCode::Internal, method, "compileExpr(): undefined operation");
        return staticCall(head->symbol, method);
    }
    selectors(node->right);
    identifier(head);
    if (stores && head->variable)
        assignUnknown(*head->variable); // where no selector applies, the variable itself is written
}

void Resolver::call(AST* node)
{
    AST* name = node->left;
    if (name->symbol->name == kExit)
        return;
    Variable* variable = name->symbol->variable;
    if (!variable && !name->symbol->nativeFunction())
        report(ErrorCode::FunctionNotDeclared, name, name->symbol->name);
    expressions(node->right);
    if (!variable)
        return;
    identifier(name);
    if (variable->function)
        fillArguments(node, *variable);
}

/// Missing arguments take the default of their parameter, evaluated where the call stands, or 0.
void Resolver::fillArguments(AST* node, const Variable& function)
{
    AST* parameters = function.function->right->left;
    AST* last = nullptr;
    int given = 0;
    for (AST* cell = node->right; cell; cell = cell->right, ++given) {
        last = cell;
        if (parameters)
            parameters = parameters->right;
    }
    if (given > lengthOf(function.function->right->left))
        return report(ErrorCode::WrongArgumentCount, node->left, node->left->symbol->name);
    for (; parameters; parameters = parameters->right) {
        AST* value = parameters->left->right ? copy(parameters->left->right) : arena.make<AST>();
        if (!parameters->left->right) {
            value->kind = kTokenInteger;
            value->line = node->line;
            value->fileIndex = node->fileIndex;
        }
        expression(value);
        AST* cell = arena.make<AST>();
        cell->kind = kNodeCell;
        cell->left = value;
        (last ? last->right : node->right) = cell;
        last = cell;
    }
}

/// Defaults that call functions with defaults multiply; beyond this many nodes the source is
/// refused.
constexpr std::size_t kMaxCopies = 1000000;

/// A copy of an expression, so that its names may mean something else where it stands.
AST* Resolver::copy(const AST* node)
{
    if (!node)
        return nullptr;
    if (++copies > kMaxCopies)
        errors.fail({node->fileIndex, node->line}, "memory exhausted");
    AST* made = arena.make<AST>(*node);
    const auto copyChildren = [&] {
        if (node->isIdentifier())
            return;
        made->left = copy(node->left);
        made->right = copy(node->right);
    };
    if (!nesting.enter(1, copyChildren))
        errors.fail({node->fileIndex, node->line}, "memory exhausted");
    return made;
}

void Resolver::methodCall(AST* node)
{
    expressions(node->right);
    AST* first = node->left->left;
    AST* method = lastCell(node->left)->left;
    const bool onText = first->kind == kTokenString;
    Symbol* head = onText ? nullptr : first->left->symbol;
    if (head && head->nativeClass()) {
        node->flags |= AST::kStatic;
        return staticCall(head, method);
    }
    Symbol* type = onText ? textType : head->typeName;
    if (type && type->name != "Object" && type->name != "Event") {
        const ClassInterface* declaring = type->nativeClass();
        if (!declaring || !declaring->hasMethod(method->symbol->name))
            report(ErrorCode::MethodNotDeclared, method,
                   std::string(type->name) + "." + std::string(method->symbol->name));
    }
    if (!onText) {
        selectors(node->left->right);
        identifier(first->left);
    }
    node->value = static_cast<std::int32_t>(program.receiverClasses.size());
    program.receiverClasses.push_back(type && type->name != "Object" ? type->nativeClass()
                                                                     : nullptr);
}

void Resolver::staticCall(Symbol* head, const AST* method)
{
    const ClassInterface* declaring = head->nativeClass();
    if (!declaring || !declaring->isStatic(method->symbol->name))
        report(ErrorCode::MethodNotDeclared, method, method->symbol->name);
}

} // namespace varn
