#pragma once

#include "Game/Compiler/InterpreterException.h"
#include "Game/Compiler/Script.h"
#include "Game/Compiler/Stage.h"
#include "Game/Compiler/classes/Classes.h"
#include "Input/InputState.h"
#include "Support/RecordingHost.h"

#include <string>
#include <vector>

namespace varn::test {

/// What one script did: its traces, the boxes it showed, and what stopped it.
struct ScriptRun
{
    std::vector<std::string> traces;
    std::vector<std::string> messages;
    std::string compileErrors;
    std::string fatal;
    int result = 0; ///< `_ret` as an int
};

/// Compiles and runs a source on the caller's thread, under the name that messages tell.
inline ScriptRun runScript(std::string_view utf8, Interpreter& vm, WStringView name = u"test")
{
    RecordingHost host;
    registerEngineClasses();
    ScriptRun run;
    vm.setTraceListener([&run](WStringView text) { run.traces.push_back(toUtf8(text)); });
    try {
        vm.compile(name, fromUtf8(utf8));
        vm.execute();
        run.result = vm.getReturn().toInt();
    } catch (const std::string& errors) {
        run.compileErrors = errors;
    } catch (const interpreter::InterpreterException& fault) {
        run.fatal = toUtf8(fault.getMessage());
    }
    for (const WString& message : host.messages)
        run.messages.push_back(toUtf8(message));
    return run;
}

/// The same before a stage, with keys that nobody presses.
inline ScriptRun runScript(std::string_view utf8)
{
    Stage stage;
    InputState input;
    Script vm;
    vm.setServices({.input = &input, .stage = &stage});
    return runScript(utf8, vm);
}

} // namespace varn::test
