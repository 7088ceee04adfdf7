#include "Game/Compiler/Instruction.h"

namespace varn {

const OpcodeRow& opcodeRow(Opcode opcode)
{
    static constexpr OpcodeRow kRows[] = {
#define VARN_ROW(name, mnemonic, operands) {#name, mnemonic, Operands::operands},
        VARN_INSTRUCTIONS(VARN_ROW)
#undef VARN_ROW
    };
    return kRows[static_cast<std::size_t>(opcode)];
}

} // namespace varn
