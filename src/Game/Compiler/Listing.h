#pragma once

#include "Game/Compiler/Program.h"

#include <string>
#include <string_view>
#include <vector>

namespace varn {

/// An instruction as people read it.
struct ListedInstruction
{
    std::size_t address;
    std::string_view mnemonic;
    std::string operand; ///< empty for none
};

/// The code of a program for people. Registers are `r0`, as are the slots of the top level; jumps
/// tell their target.
std::vector<ListedInstruction> listInstructions(const Program& program);

} // namespace varn
