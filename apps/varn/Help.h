#pragma once

#include "Call.h"

namespace varn::driver {

/// "varn 1.2.3".
std::string_view versionLine();

/// The synopsis of a command as one line: "map wall NAME KIND DIRECTION X Y [--json]".
std::string synopsis(const Command& command);

/// What stands in front of a call of the command where it is typed: "varn ", in a batch nothing.
std::string_view callPrefix(const Command& command);

/// Summary and details as sentences.
std::string sentenceOf(const Command& command);

/// An argument's name, marked up or not, with the signs of how often it stands: "[NAME]",
/// "NAME...".
std::string withOccurrence(const Argument& argument, const std::string& name);

/// What a row takes, with its choices or its range.
std::string explanationOf(const Argument& argument);
std::string explanationOf(const Option& option);

/// What `--help` prints, without the last line end: of one command; of the driver, all commands or
/// those of one group ("map"); empty: no command begins so.
std::string commandHelp(const Command& command);
std::string driverHelp(std::string_view group);

/// The usage that belongs to a fault, on standard error.
void printUsage(const UsageError& fault);

/// docs/varn.1: the manual page in man(7)'s macros.
std::string manPage();

/// The completion script of a shell; empty for one that is not known.
std::string bashCompletion();
std::string zshCompletion();
std::string fishCompletion();

} // namespace varn::driver
