#include "Context.h"
#include "Game/Compiler/Interpreter.h"
#include "Game/Compiler/Listing.h"
#include "Game/Compiler/classes/Classes.h"
#include "Game/GameResourceFile.h"

#include <cstdio>

namespace varn::driver {

namespace {

/// Reads and compiles a script file; the faults go to standard error as they stand.
bool compile(Context& context, Interpreter& script, const WString& file)
{
    auto text = readTextOrResource(file, file);
    if (!text) {
        context.complainUnread(file);
        return false;
    }
    try {
        script.compile(file, std::move(*text));
        return true;
    } catch (const std::string& errors) {
        context.out().flush();
        std::fputs(toUtf8(widen(errors)).c_str(), stderr);
        return false;
    }
}

Status check(Context& context, const Arguments& arguments)
{
    registerStandardClasses();
    Status status = Status::Done;
    for (const WString& file : arguments.texts("FILE")) {
        Interpreter script;
        if (!compile(context, script, file))
            status = Status::Failed;
    }
    return status;
}

Status run(Context& context, const Arguments& arguments)
{
    registerStandardClasses();
    Interpreter script;
    script.setServices({.settings = &context.session().getSettings()});
    script.setTraceListener([&context](WStringView text) { context.out().line(text); });
    if (!compile(context, script, arguments.text("FILE")))
        return Status::Failed;
    script.execute();
    return Status::Done;
}

Status list(Context& context, const Arguments& arguments)
{
    registerStandardClasses();
    Interpreter script;
    if (!compile(context, script, arguments.text("FILE")))
        return Status::Failed;
    for (const std::string& line : listInstructions(*script.getProgram()))
        context.out().line(line);
    return Status::Done;
}

constexpr Argument kFile[] = {{"FILE", "the script", Takes::File}};
constexpr Argument kFiles[] = {{"FILE", "the scripts", Takes::File, Occurs::Repeated}};

constexpr Command kCommands[] = {
    {.words = "script check",
     .summary = "compile scripts and tell their errors",
     .arguments = kFiles,
     .run = check,
     .details = "Scripts/Global.txt is read in front of each. Errors go to standard error, a line "
                "each, with their code, file and line.",
     .examples = "script check Scripts/*.txt"},
    {.words = "script run",
     .summary = "compile a script and run it; each trace prints a line",
     .arguments = kFile,
     .run = run,
     .details = "What ends the run before its time makes the status 1.",
     .examples = "script run Scripts/Opening.txt"},
    {.words = "script list",
     .summary = "print the instructions of a script",
     .arguments = kFile,
     .run = list,
     .examples = "script list Scripts/Opening.txt"},
};

} // namespace

std::span<const Command> scriptCommands()
{
    return kCommands;
}

} // namespace varn::driver
