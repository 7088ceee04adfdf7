#pragma once

#include "Game/Compiler/IncludeStack.h"
#include "Game/Compiler/Program.h"
#include "Util/Text.h"

#include <memory>

namespace varn {

/// The script read in front of every program that wants it.
inline constexpr WStringView kGlobalScript = u"Scripts/Global.txt";

/// From text to program: sources with their includes, tree, names, code.
class Compiler
{
  public:
    enum class GlobalScript
    {
        Included,
        LeftOut
    };

    /// @param name  what messages call the main text
    /// Throws CompileFailure, a std::string: all faults, a line each, in the form
    /// `Error: E%d "%s"(%d): ` and the sentence. Nothing of the program before is kept then.
    void compile(WStringView name, WString text, GlobalScript global);
    void reset() { program.reset(); }

    /// The program of the last compilation, or null.
    Program* getProgram() const { return program.get(); }

  private:
    std::unique_ptr<Program> program;
};

} // namespace varn
