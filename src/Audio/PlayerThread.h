#pragma once

#include "Util/Thread.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>

namespace varn {

/// The thread of a player, and what wakes it: its own time, a command, a stop.
class PlayerThread
{
  public:
    using Body = std::function<void(const std::stop_token&)>;

    ~PlayerThread() { end(); }

    /// Waits for the end of the run before, then runs `body`, and `over` when that is over and the
    /// thread no longer counts as running.
    void start(const char* name, Body body, std::function<void()> over = {});
    /// From a start until the body is over or was asked to stop.
    bool isRunning() const { return running; }
    /// Asks the body to stop, and does not wait for it.
    void requestStop();
    /// Asks it to stop and waits. Not from the body.
    void end();
    /// Ends a `wait` of the body.
    void wake();

    /// For the body: waits for a time, or less when there is something to do.
    void wait(const std::stop_token& stop, std::chrono::nanoseconds most);

  private:
    std::atomic<bool> running = false;
    std::mutex wakeLock; // guards `woken`
    std::condition_variable_any woke;
    bool woken = false;
    Thread thread; // last: it works on all above
};

} // namespace varn
