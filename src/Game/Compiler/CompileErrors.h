#pragma once

#include "Util/Text.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace varn {

/// Codes of compile errors.
enum class ErrorCode : int
{
    Syntax = 101,
    UndefinedVariable = 201,
    AlreadyDefined = 202,
    NotDefined = 203,
    ClassExists = 204,
    FunctionNotDeclared = 205,
    MethodNotDeclared = 206,
    ClassNotDeclared = 207,
    LabelNotFound = 208,
    WrongArgumentCount = 209,
    DifferentType = 210,
    NotSupported = 211,
    Internal = 330,
};

/// A place in the sources: index of the file, line from 1.
struct SourcePlace
{
    std::uint32_t file = 0;
    std::uint32_t line = 1;
};

/// The faults of one compilation, in the order in which they were found.
class CompileErrors
{
  public:
    explicit CompileErrors(const std::vector<WString>& files) : files(files) {}

    /// Records a fault; the compilation goes on. The code's sentence follows the name it concerns.
    void add(ErrorCode code, SourcePlace place, std::string_view name);
    /// Ends the compilation: throws the one line of this fault as std::string.
    [[noreturn]] void fail(SourcePlace place, std::string_view text) const;

    bool any() const { return !lines.empty(); }
    /// All faults, each `Error: E%d "%s"(%d): ` with its text and a line feed.
    const std::string& text() const { return lines; }

  private:
    std::string format(ErrorCode code, SourcePlace place, std::string_view text) const;

    const std::vector<WString>& files;
    std::string lines;
};

} // namespace varn
