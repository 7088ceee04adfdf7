#pragma once

#include "Game/Compiler/Program.h"

#include <string>
#include <vector>

namespace varn {

/// The code of a program for people, a line an instruction: address, mnemonic, operand. Registers
/// are `r0`, as are the slots of the top level; jumps tell their target.
std::vector<std::string> listInstructions(const Program& program);

} // namespace varn
