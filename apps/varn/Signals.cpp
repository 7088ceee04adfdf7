#include "Signals.h"

#include <csignal>
#include <cstring>
#include <unistd.h>

namespace varn::driver {

namespace {

const char* folderToRemove = nullptr; // a process has one, and a handler may be reading it

void removeAndEnd(int signal)
{
    ::rmdir(folderToRemove);
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

} // namespace

void removeOnSignals(const std::filesystem::path& folder)
{
    if (folderToRemove)
        return;
    folderToRemove = ::strdup(folder.c_str());
    for (const int signal : {SIGHUP, SIGINT, SIGPIPE, SIGTERM})
        std::signal(signal, removeAndEnd);
}

} // namespace varn::driver
