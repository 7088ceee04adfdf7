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

constexpr const char* kWipeLine = "\r\033[K";

} // namespace

Progress::Progress(Output& output) : output(output), isTerminal(::isatty(STDERR_FILENO) != 0)
{
    interrupted = 0;
    handlerBefore = std::signal(SIGINT, interrupt);
}

Progress::~Progress()
{
    std::signal(SIGINT, handlerBefore);
    if (shown >= 0)
        std::fputs(kWipeLine, stderr);
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
        output.flush();
        std::fprintf(stderr, "%s%3d %% %s", kWipeLine, percent, toUtf8(entry).c_str());
    }
    return !interrupted;
}

} // namespace varn::driver
