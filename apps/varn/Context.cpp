#include "Context.h"

#include "Help.h"
#include "Signals.h"
#include "Util/Exception.h"
#include "Util/ProjectPath.h"
#include "Util/Random.h"

#include <new>

namespace varn::driver {

ProjectSession& Context::session()
{
    if (!project)
        project = std::make_unique<ProjectSession>(
            globals.settingsFile.empty() ? defaultSettingsPath()
                                         : std::filesystem::path(globals.settingsFile),
            ProjectSession::Presence::Headless);
    return *project;
}

CommandTarget& Context::frame()
{
    if (!target)
        target = std::make_unique<CommandTarget>(session());
    return *target;
}

void Context::keepEditor(std::unique_ptr<WizMapEditor> next)
{
    session().setEditor(next.get());
    mapEditor = std::move(next);
}

void Context::printRecords(const Json& list)
{
    json() ? output.json(list) : output.records(list);
}

void Context::printRecord(const Json& fields)
{
    json() ? output.json(fields) : output.record(fields);
}

void Context::complainUnread(const WString& path)
{
    const char* const why = !pathExists(path) ? ": there is no such file"
                            : isFolder(path)  ? ": this is a folder"
                                              : ": the file cannot be read";
    complain(toUtf8(path) + why);
}

Status Context::run(const std::vector<std::string>& words)
{
    const GlobalOptions before = globals;
    Status status = Status::Usage;
    try {
        status = runCall(parseCall(words, globals));
    } catch (const UsageError& fault) {
        complain(fault.what());
        printUsage(fault);
    }
    globals = before;
    driverHost.setAnswer(globals.yes ? Answer::Yes : Answer::No);
    return status;
}

Status Context::runCall(const Call& call)
{
    if (call.version) {
        output.line(versionLine());
        return Status::Done;
    }
    if (call.help) {
        output.line(
            std::string_view(call.command ? commandHelp(*call.command) : driverHelp(call.group)));
        return Status::Done;
    }
    adopt(call);
    return perform(call);
}

void Context::adopt(const Call& call)
{
    if (call.command->where == Where::BatchOnly && !inBatch)
        throw UsageError("'" + std::string(call.command->words) + "' works in a batch only",
                         call.command);
    if (project && call.globals.settingsFile != globals.settingsFile)
        throw UsageError("--settings cannot change within a session", call.command);
    globals = call.globals;
    driverHost.setAnswer(globals.yes ? Answer::Yes : Answer::No);
    if (call.arguments.has("--seed"))
        programRandom().seed(*globals.seed);
}

// The boundary that the person knows: below it a fault is an exception, here it is its sentence.
Status Context::perform(const Call& call)
{
    try {
        if (!startAsFarAs(call.command->needs))
            return Status::Done;
        const Status status = call.command->run(*this, call.arguments);
        ended |= target && target->isClosed();
        return status;
    } catch (UsageError& fault) {
        if (!fault.command && fault.group.empty())
            fault.command = call.command;
        throw;
    } catch (const Exception& fault) {
        host().showMessage(fault.getMessage());
    } catch (const std::bad_alloc&) {
        complain("not enough memory");
    } catch (const std::exception& fault) {
        complain(fault.what());
    }
    return Status::Failed;
}

bool Context::startAsFarAs(Needs needs)
{
    if (needs == Needs::Nothing)
        return true;
    if (needs == Needs::Whole) {
        ended = !session().start();
        if (!ended)
            removeOnSignals(session().getTempFolder());
        return !ended;
    }
    session().openProject();
    if (needs == Needs::Texts)
        session().loadTexts();
    return true;
}

} // namespace varn::driver
