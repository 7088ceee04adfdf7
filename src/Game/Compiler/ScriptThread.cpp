#include "Game/Compiler/ScriptThread.h"

#include <chrono>

namespace varn {

ScriptThread::~ScriptThread()
{
    stop();
}

void ScriptThread::start()
{
    thread.join();
    stopRequested = false;
    running = true;
    thread = Thread("script", [this](const std::stop_token&) {
        self = std::this_thread::get_id();
        lastResult = run();
        const std::lock_guard lock(meeting);
        running = false;
        changed.notify_all();
    });
}

void ScriptThread::stop()
{
    requestStop();
    thread.join();
}

bool ScriptThread::isParked() const
{
    const std::lock_guard lock(meeting);
    return parked;
}

void ScriptThread::requestStop()
{
    const std::lock_guard lock(meeting);
    stopRequested = true;
    changed.notify_all();
}

void ScriptThread::resume()
{
    const std::lock_guard lock(meeting);
    signalled = true;
    changed.notify_all();
}

void ScriptThread::waitUntilIdle()
{
    std::unique_lock lock(meeting);
    changed.wait(lock, [this] { return (parked && !signalled) || !running; });
}

bool ScriptThread::park()
{
    if (self.load() != std::this_thread::get_id())
        return false;
    std::unique_lock lock(meeting);
    signalled = false;
    parked = true;
    changed.notify_all();
    changed.wait(lock, [this] { return signalled || stopRequested; });
    parked = false;
    return true;
}

void ScriptThread::sleepFor(int milliseconds)
{
    std::unique_lock lock(meeting);
    changed.wait_for(lock, std::chrono::milliseconds(milliseconds),
                     [this] { return stopRequested.load(); });
}

} // namespace varn
