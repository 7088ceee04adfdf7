#pragma once

#include "Util/Exception.h"

namespace varn::interpreter {

/// What natives throw at the script that called them, and what ends a run that cannot go on. The
/// first is shown and the run continues; the second leaves `Interpreter::execute`.
class InterpreterException : public Exception
{
  public:
    enum class Severity
    {
        Call,
        Fatal
    };

    /// @param function  qualified name of what failed: "Math::acos"
    /// @param line      line of the script, 0 where the raiser does not know it
    explicit InterpreterException(WString message, WString function = {}, int line = 0,
                                  Severity severity = Severity::Call)
        : Exception(std::move(message), std::move(function)), line(line), severity(severity)
    {}

    const WString& getFunction() const { return getLocation(); }
    int getLine() const { return line; }
    bool isFatal() const { return severity == Severity::Fatal; }

  private:
    int line;
    Severity severity;
};

/// The sentence of a native that was given too few or too many arguments.
inline constexpr WStringView kInvalidArgumentCount = u"The number of arguments is invalid.";

} // namespace varn::interpreter
