#include "Progress.h"

#include <csignal>
#include <cstdio>
#include <unistd.h>

namespace varn::driver {

namespace {

volatile std::sig_atomic_t interrupted = 0;
void (*handlerBefore)(int) = SIG_DFL;

void interrupt(int signal)
{
    interrupted = 1;
    std::signal(signal, handlerBefore);
}

} // namespace

Progress::Progress(Output& output) : output(output), isTerminal(::isatty(STDERR_FILENO) != 0)
{
    interrupted = 0;
    handlerBefore = std::signal(SIGINT, interrupt);
}

Progress::~Progress()
{
    std::signal(SIGINT, handlerBefore);
    output.flush();
    if (interrupted)
        std::fputs("varn: interrupted\n", stderr);
}

ExportProgress Progress::callback()
{
    return [this](std::uint64_t done, std::uint64_t total, WStringView entry) {
        return report(done, total, entry);
    };
}

bool Progress::report(std::uint64_t done, std::uint64_t total, WStringView entry)
{
    const int percent = total == 0 ? 100 : static_cast<int>(done * 100 / total);
    if (isTerminal && percent != shown) {
        shown = percent;
        char text[16];
        std::snprintf(text, sizeof text, "%3d %% ", percent);
        output.progress(text + toUtf8(entry));
    }
    return !interrupted;
}

} // namespace varn::driver
