#include "Game/Compiler/KindInference.h"

namespace varn {
namespace {

/// Expressions nested beyond this are taken for Any: the answer is a hint, not worth the stack.
constexpr int kDepth = 40;

KnownKind join(KnownKind a, KnownKind b)
{
    if (a == KnownKind::Nothing || a == b)
        return b;
    return b == KnownKind::Nothing ? a : KnownKind::Any;
}

KnownKind kindWithin(const AST* node, int depth);

KnownKind kindOfTarget(const AST* target)
{
    // A global that functions use may be anything; of others all assignments are known by now.
    return target->isIdentifier() && target->variable && !target->variable->usedInFunction
               ? target->variable->kind
               : KnownKind::Any;
}

KnownKind kindWithin(const AST* node, int depth)
{
    while (node->kind == kNodeAdd || node->kind == kNodeAssign)
        node = node->kind == kNodeAdd ? node->left : node->right;
    if (depth == 0)
        return KnownKind::Any;
    switch (node->kind) {
    case kTokenIdentifier:
        return kindOfTarget(node);
    case kTokenIncrement:
    case kTokenDecrement:
        return kindOfTarget(node->left ? node->left : node->right);
    case kTokenInteger:
    case kTokenNull:
    case kNodeRemainder:
    case kTokenBitAnd:
    case kTokenBitOr:
    case kTokenBitXor:
    case kTokenLeftShift:
    case kTokenRightShift:
        return KnownKind::Int;
    case kTokenReal:
    case kNodeSubtract:
    case kNodeMultiply:
        return KnownKind::Number;
    case kNodeDivide:
        return kindOfOperation(kNodeDivide, kindWithin(node->left, depth - 1),
                               kindWithin(node->right, depth - 1));
    case kNodeConditional:
        return join(kindWithin(node->right->left, depth - 1),
                    kindWithin(node->right->right, depth - 1));
    case kNodeAnd:
    case kNodeOr:
        return join(kindWithin(node->left, depth - 1), kindWithin(node->right, depth - 1));
    default:
        return KnownKind::Any;
    }
}

} // namespace

KnownKind kindOf(const AST* expression)
{
    return kindWithin(expression, kDepth);
}

KnownKind kindOfOperation(int op, KnownKind left, KnownKind right)
{
    switch (op) {
    case kNodeAdd:
        return left;
    case kNodeSubtract:
    case kNodeMultiply:
        return KnownKind::Number;
    case kNodeDivide:
        if (left == KnownKind::Nothing || right == KnownKind::Nothing)
            return KnownKind::Nothing;
        if (left == KnownKind::Int && right == KnownKind::Int)
            return KnownKind::Int;
        return left == KnownKind::Number || right == KnownKind::Number ? KnownKind::Number
                                                                       : KnownKind::Any;
    case kNodeRemainder:
    case kTokenBitAnd:
    case kTokenBitOr:
    case kTokenBitXor:
    case kTokenLeftShift:
    case kTokenRightShift:
        return KnownKind::Int;
    default:
        return KnownKind::Any;
    }
}

void inferKinds(const std::vector<Variable*>& variables)
{
    constexpr int kRounds = 16; // what is not settled by then is not worth knowing
    bool changed = true;
    for (int round = 0; changed; ++round) {
        changed = false;
        if (round == kRounds)
            for (Variable* variable : variables)
                variable->kind = KnownKind::Any;
        for (Variable* variable : variables) {
            KnownKind kind = variable->usedInFunction ? KnownKind::Any : variable->kind;
            for (auto* each = variable->assigned; each && kind != KnownKind::Any; each = each->next)
                kind = join(kind, each->value ? kindOf(each->value) : KnownKind::Any);
            changed |= kind != variable->kind;
            variable->kind = kind;
        }
    }
}

} // namespace varn
