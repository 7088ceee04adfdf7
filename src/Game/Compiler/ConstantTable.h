#pragma once

#include "Game/Compiler/Program.h"

#include <unordered_map>

namespace varn {

/// Fills the constants of a program; equal constants share one entry.
class ConstantTable
{
  public:
    explicit ConstantTable(Program& program) : program(program) {}

    std::uint32_t addNumber(double value);
    std::uint32_t addText(WStringView text);
    double number(std::uint32_t index) const { return program.numbers[index]; }

  private:
    Program& program;
    std::unordered_map<std::uint64_t, std::uint32_t> numbers; // by bit pattern
    std::unordered_map<WStringView, std::uint32_t> texts;     // views into the program's arena
};

} // namespace varn
