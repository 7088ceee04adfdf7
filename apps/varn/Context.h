#pragma once

#include "Call.h"
#include "DriverHost.h"
#include "MapEditor3D/Commands.h"
#include "MapEditor3D/ProjectSession.h"
#include "MapEditor3D/WizMapEditor.h"

#include <memory>

namespace varn::driver {

/// What the commands of a process run in: the output, and one session for all of them.
class Context
{
  public:
    Context(Output& output, DriverHost& host) : output(output), driverHost(host) {}

    Output& out() { return output; }
    DriverHost& getHost() { return driverHost; }
    /// Records and lists are asked for as JSON.
    bool json() const { return globals.json; }
    /// A list of flat records, or one, in the form that is asked for: lines or JSON.
    void printRecords(const Json& list);
    void printRecord(const Json& fields);
    /// The session, come as far as the command's row asks. Its settings are always there.
    ProjectSession& session();
    /// The frame that commands by number act on.
    CommandTarget& frame();
    /// The editor of the map that a batch opened; null: none is open.
    WizMapEditor* editor() { return mapEditor.get(); }
    /// Keeps an editor, and hands it to the session.
    void keepEditor(std::unique_ptr<WizMapEditor> next);
    /// A line of the driver's own on standard error, "varn: " in front.
    void complain(std::string_view utf8) { driver::complain(output, utf8); }
    /// The same of a file of the call that could not be read: the path, and why not.
    void complainUnread(const WString& path);

    /// Reads one call, without the program's name, and runs it. Whatever a call can end with
    /// becomes a status, and what the person must know has been said.
    Status run(const std::vector<std::string>& words);

    /// While a batch is read: its own commands are known, and another batch is refused.
    void setInBatch(bool value) { inBatch = value; }
    bool isInBatch() const { return inBatch; }
    /// The session ended, by a command or at its start: nothing more is to be run.
    bool isEnded() const { return ended; }

  private:
    Status runCall(const Call& call);
    void adopt(const Call& call);
    Status perform(const Call& call);
    bool startAsFarAs(Needs needs);

    Output& output;
    DriverHost& driverHost;
    GlobalOptions globals;
    std::unique_ptr<ProjectSession> project;
    std::unique_ptr<WizMapEditor> mapEditor;
    std::unique_ptr<CommandTarget> target;
    bool inBatch = false;
    bool ended = false;
};

} // namespace varn::driver
