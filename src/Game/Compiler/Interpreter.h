#pragma once

#include "Game/Compiler/ClassInterface.h"
#include "Game/Compiler/Heap.h"
#include "Game/Compiler/InterpreterException.h"
#include "Game/Compiler/ScriptServices.h"
#include "Game/Compiler/ScriptThread.h"

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace varn {

class Compiler;
class InterpreterVM;
struct Program;

/// Compiles one script and runs it: on a thread of its own (`start`), or on the caller's
/// (`execute`). Owns the values the run makes.
///
/// Messages of a run that goes on (a native that throws, a call no overload takes) are shown
/// through the host. What ends a run leaves `execute` as a fatal InterpreterException that names
/// script and line; on the own thread it is shown instead.
class Interpreter : public ScriptThread
{
  public:
    Interpreter();
    ~Interpreter() override;

    /// Compiles `text` under the name that messages tell, with `Scripts/Global.txt` in front when
    /// `loadGlobalScript` is set and the file exists. Throws std::string with all errors, a line
    /// each; then there is no code.
    void compile(WStringView name, WString text);
    const Program* getProgram() const;
    /// Back to the start: no values, no frames.
    virtual void reset();

    /// One instruction; false when the run has ended.
    bool step();
    /// Runs to the end, or for `budget` instructions; false when the budget ended it.
    bool execute();
    bool execute(std::uint64_t budget);
    /// The value of `_ret`; without code the int 0.
    const OperandData& getReturn() const;

    /// What a run on the own thread came to.
    enum class RunResult
    {
        Ended = 0,
        Stopped = 1,
        NoCode = 2,
        Failed = 3
    };
    RunResult runResult() const { return static_cast<RunResult>(result()); }

    void setMemoryLimit(std::size_t bytes) { values.setLimit(bytes); }
    /// Gets the text of every `trace`; called on the script's thread.
    using TraceListener = std::function<void(WStringView)>;
    void setTraceListener(TraceListener listener) { traceListener = std::move(listener); }
    void trace(WStringView text) const;
    /// Before the run; what they point to outlives it.
    void setServices(const ScriptServices& next) { services = next; }
    const ScriptServices& getServices() const { return services; }
    const WString& getScriptName() const { return scriptName; }

    bool loadGlobalScript = true;
    /// Handed to formulas; kept alive by the machine.
    std::vector<OperandData> globalValues;

    // What natives see of the call they serve. Those that block use `park`, `sleepFor` and
    // `isStopRequested` of the thread.

    /// Number of arguments.
    int getTop() const { return call ? call->count : 0; }
    /// The arguments by index from 0; one that was not given throws the argument-count sentence.
    const OperandData& getOperand(int index) const;
    ValueKind get_type(int index) const { return getOperand(index).getKind(); }
    int getInt(int index) const { return getOperand(index).toInt(); }
    WString getString(int index) const { return getOperand(index).toString(); }
    /// Result of a global function: writes `_ret`.
    void setReturn(const OperandData& value);
    /// Result of a method.
    void push(const OperandData& value) { call->push(value); }
    OperandData pop();
    Heap& heap() { return values; }
    /// Waits for the next frame; false at once where nobody signals frames. What happened meanwhile
    /// is told to those who listen before it returns.
    virtual bool nextFrame() { return park(); }

  protected:
    int run() override;
    /// Calls a function of the script from within a native, with 0 for what is missing.
    OperandData callFunction(const OperandData& function, std::span<const OperandData> arguments);
    /// Sets a member of a table; one that the script names nowhere is left out.
    void setMember(MemberTable& table, std::string_view name, const OperandData& value);
    /// Values beyond stack and globals that must stay alive.
    virtual void markRoots(Marker& marker);

  private:
    friend class InterpreterVM;
    friend class NativeFrame;

    std::unique_ptr<Compiler> compiler;
    WString scriptName;
    Heap values;
    std::unique_ptr<InterpreterVM> machine;
    NativeCall* call = nullptr;
    TraceListener traceListener;
    ScriptServices services;
};

} // namespace varn
