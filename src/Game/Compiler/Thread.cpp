#include "Game/Compiler/Thread.h"

#include <chrono>

namespace varn {

Thread::~Thread()
{
    Thread::stop();
}

void Thread::start()
{
    if (thread.joinable())
        thread.join();
    stopRequested = false;
    running = true;
    thread = std::jthread([this] {
        lastResult = run();
        const std::lock_guard lock(meeting);
        running = false;
        changed.notify_all();
    });
}

void Thread::stop()
{
    requestStop();
    if (thread.joinable())
        thread.join();
}

bool Thread::isParked() const
{
    const std::lock_guard lock(meeting);
    return parked;
}

void Thread::requestStop()
{
    const std::lock_guard lock(meeting);
    stopRequested = true;
    changed.notify_all();
}

void Thread::resume()
{
    const std::lock_guard lock(meeting);
    signalled = true;
    changed.notify_all();
}

void Thread::waitUntilIdle()
{
    std::unique_lock lock(meeting);
    changed.wait(lock, [this] { return (parked && !signalled) || !running; });
}

void Thread::park()
{
    if (std::this_thread::get_id() != thread.get_id())
        return;
    std::unique_lock lock(meeting);
    signalled = false;
    parked = true;
    changed.notify_all();
    changed.wait(lock, [this] { return signalled || stopRequested; });
    parked = false;
}

void Thread::sleepFor(int milliseconds)
{
    std::unique_lock lock(meeting);
    changed.wait_for(lock, std::chrono::milliseconds(milliseconds),
                     [this] { return stopRequested.load(); });
}

} // namespace varn
