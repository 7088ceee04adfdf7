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

/// One fault of a source.
struct CompileError
{
    ErrorCode code;
    WString file; ///< as the source or the `#include` names it
    std::uint32_t line;
    std::string text; ///< what is wrong, in UTF-8

    /// `Error: E%d "%s"(%d): `, the text and a line feed.
    std::string format() const;
};

/// What a failed compilation throws: a std::string with all faults in UTF-8, a line each, and the
/// faults one by one for who marks them in a source.
class CompileFailure : public std::string
{
  public:
    explicit CompileFailure(std::vector<CompileError> faults);

    const std::vector<CompileError>& getErrors() const { return errors; }

  private:
    std::vector<CompileError> errors;
};

/// The faults of one compilation, in the order in which they were found.
class CompileErrors
{
  public:
    explicit CompileErrors(const std::vector<WString>& files) : files(files) {}

    /// Records a fault; the compilation goes on. The code's sentence follows the name it concerns.
    void add(ErrorCode code, SourcePlace place, std::string_view name);
    /// Ends the compilation: throws CompileFailure with this fault alone.
    [[noreturn]] void fail(SourcePlace place, std::string_view text) const;
    bool any() const { return !errors.empty(); }
    /// Throws CompileFailure with what was recorded, if anything was.
    void throwIfAny() const;

  private:
    CompileError made(ErrorCode code, SourcePlace place, std::string text) const;

    const std::vector<WString>& files;
    std::vector<CompileError> errors;
};

} // namespace varn
