#pragma once

#include "Command.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace varn::driver {

/// The global options of a call. A line of a batch starts from those of the batch's own call.
struct GlobalOptions
{
    std::string settingsFile; ///< UTF-8; empty: the program's own
    bool yes = false;
    bool json = false;
    std::optional<std::uint32_t> seed;
};

/// A call as it was typed.
struct Call
{
    const Command* command = nullptr; ///< null: only with `help` or `version`
    std::string group;                ///< what help is asked of, where the command is unfinished
    Arguments arguments;
    GlobalOptions globals;
    bool help = false;
    bool version = false;
};

/// The words of a call are wrong. `what()` says how; the usage to show is that of `command`, or of
/// every command of `group`, or of the driver.
class UsageError : public std::runtime_error
{
  public:
    explicit UsageError(const std::string& sentence, const Command* command = nullptr,
                        std::string group = {})
        : std::runtime_error(sentence), command(command), group(std::move(group))
    {}

    const Command* command;
    std::string group;
};

/// Reads the words of a call, without the program's name, against the tables. Only the options of
/// the command that is called are looked at.
/// @param globals  what holds where the call says nothing
/// @throws UsageError
Call parseCall(const std::vector<std::string>& words, const GlobalOptions& globals = {});

/// The command of exactly these words ("map wall"), or null.
const Command* findDriverCommand(std::string_view words);

} // namespace varn::driver
