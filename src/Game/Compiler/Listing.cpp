#include "Game/Compiler/Listing.h"

#include "Game/Compiler/Objects.h"

namespace varn {
namespace {

std::string registerText(int bytes)
{
    return "r" + std::to_string(bytes / kRegisterStep);
}

std::string jumpText(std::size_t address, int distance)
{
    return "->" + std::to_string(static_cast<std::int64_t>(address) + 1 + distance);
}

/// What a 32-bit index names.
std::string indexText(const Program& program, std::size_t address)
{
    const Instruction& instruction = program.code[address];
    const auto index = static_cast<std::size_t>(instruction.wide());
    switch (instruction.opcode) {
    case Opcode::LoadNumber:
        return std::to_string(program.numbers[index]);
    case Opcode::LoadString:
        return "\"" + toUtf8(program.strings[index].asText()) + "\"";
    case Opcode::LoadFunction:
        return program.functions[index]->name;
    case Opcode::LoadSelector:
        return program.names[index];
    case Opcode::MethodResult:
        return program.names[program.sites[index].method];
    case Opcode::Extra:
        return program.code[address - 1].opcode == Opcode::New ? program.classes[index].name
                                                               : program.natives[index].name;
    default:
        return std::to_string(index);
    }
}

std::string operandText(const Program& program, std::size_t address)
{
    const Instruction& i = program.code[address];
    const std::string a = registerText(i.a);
    const std::string ab = a + "," + registerText(i.b);
    switch (opcodeRow(i.opcode).operands) {
    case Operands::None:
        return "";
    case Operands::A:
        return a;
    case Operands::AB:
        return ab;
    case Operands::ABC:
        return ab + "," + registerText(i.c);
    case Operands::AInt:
        return a + "," + std::to_string(i.wide());
    case Operands::AIndex:
        return a + "," + indexText(program, address);
    case Operands::Index:
        return indexText(program, address);
    case Operands::ABInt:
        return ab + "," + std::to_string(i.signedC());
    case Operands::ABNumber:
        return ab + "," + std::to_string(program.numbers[i.c]);
    case Operands::ABName:
        return ab + "," + (i.opcode == Opcode::Is ? program.classes[i.c].name : program.names[i.c]);
    case Operands::ABCount:
    case Operands::Call:
        return ab + "," + std::to_string(i.c);
    case Operands::Jump:
        return jumpText(address, i.wide());
    case Operands::AJump:
        return a + "," + jumpText(address, i.signedC());
    case Operands::ABJump:
        return ab + "," + jumpText(address, i.signedC());
    case Operands::AIntJump:
        return a + "," + std::to_string(i.signedB()) + "," + jumpText(address, i.signedC());
    case Operands::ANumberJump:
        return a + "," + std::to_string(program.numbers[i.b]) + "," +
               jumpText(address, i.signedC());
    }
    return "";
}

} // namespace

std::vector<ListedInstruction> listInstructions(const Program& program)
{
    std::vector<ListedInstruction> list;
    for (std::size_t address = 0; address < program.code.size(); ++address)
        list.push_back({address, opcodeRow(program.code[address].opcode).mnemonic,
                        operandText(program, address)});
    return list;
}

} // namespace varn
