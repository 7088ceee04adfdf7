#pragma once

#include "Game/Compiler/AST.h"
#include "Game/Compiler/Symbols.h"

#include <vector>

namespace varn {

/// What is known of a value before the program runs. `-`, `*` give a number whatever they get, `%`
/// and the bit operators an int, and `+` goes by its left operand; variables by all their
/// assignments.
KnownKind kindOf(const AST* expression);

/// The kind of `left op right` for the operators of arithmetic.
KnownKind kindOfOperation(int op, KnownKind left, KnownKind right);

/// Finds the kinds of variables from their assignments, all assumed to agree until one does not.
void inferKinds(const std::vector<Variable*>& variables);

} // namespace varn
