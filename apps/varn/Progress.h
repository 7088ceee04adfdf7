#pragma once

#include "Game/GameResourceFile.h"
#include "Output.h"

#include <cstdint>

namespace varn::driver {

/// Long work on a terminal: a line of percents on standard error that is wiped at the end. While it
/// lives, an interrupt asks the work to stop; a second one ends the process.
class Progress
{
  public:
    explicit Progress(Output& output);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    ExportProgress callback();

  private:
    bool report(std::uint64_t done, std::uint64_t total, WStringView entry);

    Output& output;
    bool isTerminal;
    int shown = -1; // percent
};

} // namespace varn::driver
