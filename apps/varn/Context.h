#pragma once

#include "Command.h"
#include "MapEditor3D/ProjectSession.h"
#include "Output.h"

#include <memory>
#include <optional>

namespace varn::driver {

/// The global options of a call. A line of a batch starts from those of the batch's own call.
struct GlobalOptions
{
    std::string settingsFile; ///< UTF-8; empty: the program's own
    bool yes = false;
    bool json = false;
    std::optional<std::uint32_t> seed;
};

/// What a command runs in: the output, and one session for all commands of a process.
class Context
{
  public:
    explicit Context(Output& output) : output(output) {}

    Output& out() { return output; }
    bool json() const { return options.json; }
    /// The session, which came as far as the command's row asks. Settings are always there.
    ProjectSession& session();

    /// Parses one call without the program's name and runs it; everything that a call can end with
    /// becomes a status, and what the person must know has been said.
    Status run(const std::vector<std::string>& words);

    bool isBatch() const { return batchDepth > 0; }
    /// `command exit` met: the rest of a batch is not run.
    bool isEnded() const { return ended; }
    void end() { ended = true; }

    /// Makes commands of batches known and keeps the globals of the call while it lives.
    class BatchScope;

  private:
    Status perform(const Command& command, const Arguments& arguments);

    Output& output;
    GlobalOptions options;
    std::unique_ptr<ProjectSession> project;
    int batchDepth = 0;
    bool ended = false;
};

class Context::BatchScope
{
  public:
    explicit BatchScope(Context& context) : context(context) { ++context.batchDepth; }
    ~BatchScope() { --context.batchDepth; }
    BatchScope(const BatchScope&) = delete;
    BatchScope& operator=(const BatchScope&) = delete;

  private:
    Context& context;
};

} // namespace varn::driver
