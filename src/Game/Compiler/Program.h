#pragma once

#include "Game/Compiler/Arena.h"
#include "Game/Compiler/ClassInterface.h"
#include "Game/Compiler/Instruction.h"
#include "Game/Compiler/OperandData.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace varn {

/// A script function as the machine calls it.
struct FunctionCode
{
    std::string name;
    const Instruction* start = nullptr; ///< into the program's code

    /// The function as the first word of a frame's header: no kind of value that means something.
    std::uint64_t headerWord() const { return reinterpret_cast<std::uint64_t>(this) << 8; }
    static const FunctionCode& ofHeader(std::uint64_t word)
    {
        return *reinterpret_cast<const FunctionCode*>(word >> 8);
    }
    std::uint32_t number = 0; ///< counted from 1; what the function is as a number
    std::uint32_t parameters =
        0; ///< arguments it sees: what is missing is 0, what is too much is dropped
    std::uint32_t frameBytes = 0; ///< of its registers
};

/// A place in the sources of a program.
struct SourcePosition
{
    std::uint32_t line = 0; ///< from 1
    std::uint32_t file = 0; ///< index into `Program::files`
};

/// A class that `new` and `is` name; one that the source declares has no native side.
struct ClassReference
{
    std::string name;
    ClassInterface* native;
    ValueKind makes; ///< kind of the values `new` gives
};

/// One method call of the source, with what the machine found out about it the last time.
struct CallSite
{
    std::uint32_t method = 0;           ///< index into `Program::names`
    std::uint32_t count = 0;            ///< arguments
    ClassInterface* declared = nullptr; ///< class of the receiver by declaration; null: by value
    bool isStatic = false;

    static constexpr std::uint64_t kNothing = ~std::uint64_t{0};
    std::uint64_t cachedKey = kNothing; ///< class or kind of the last receiver
    const NativeFunction* cached = nullptr;
};

/// A global native function of the table "global".
struct NativeReference
{
    std::string name;
    GlobalFunction function;
};

/// What the compiler makes of a script: lives as long as the interpreter that runs it.
struct Program
{
    std::vector<Instruction> code;
    std::vector<SourcePosition> positions; ///< one an instruction
    /// Name of the variable whose element an instruction selects, by instruction; for messages.
    std::vector<std::pair<std::uint32_t, std::uint32_t>>
        selectedNames;                                    ///< (instruction, name), ascending
    std::vector<std::unique_ptr<FunctionCode>> functions; ///< the first is the top level
    std::vector<double> numbers;                          ///< constants
    std::vector<OperandData> strings;                     ///< likewise
    std::vector<std::string> names; ///< identifiers, members and classes that instructions name
    std::vector<NativeReference> natives;
    std::vector<ClassReference> classes;
    std::vector<CallSite> sites;
    std::vector<WString> files; ///< names of the sources, as they were given
    Arena texts;                ///< holds the text constants
};

} // namespace varn
