#pragma once

#include "Util/Thread.h"

#include <atomic>
#include <condition_variable>
#include <mutex>

namespace varn {

/// A task with a thread of its own that can be asked to stop and that waits, in places of its
/// choosing, for the host's signal.
class ScriptThread
{
  public:
    virtual ~ScriptThread();
    ScriptThread(const ScriptThread&) = delete;
    ScriptThread& operator=(const ScriptThread&) = delete;

    /// Begins `run` on a new thread; waits for the one before to end.
    void start();
    /// Asks for the end and waits for it; a parked task wakes. Not to be called by the task itself.
    void stop();

    bool isRunning() const { return running; }
    bool isParked() const;
    bool isStopRequested() const { return stopRequested.load(std::memory_order_relaxed); }
    /// Asks for the end without waiting for it; from any thread.
    void requestStop();
    /// The signal of a frame: lets a parked task go on.
    void resume();
    /// Waits until the task is parked or has ended.
    void waitUntilIdle();

    /// Blocks the task until the next `resume` or a stop request. Elsewhere than on its own thread
    /// it returns false at once.
    bool park();
    /// Blocks the calling thread for a time; a stop request ends it early.
    void sleepFor(int milliseconds);

  protected:
    ScriptThread() = default;

    /// The body; its result is kept for `result`.
    virtual int run() = 0;
    int result() const { return lastResult; }

    std::atomic<bool> stopRequested = false;

  private:
    std::atomic<bool> running = false;
    std::atomic<int> lastResult = 0;
    /// Guards `parked` and `signalled`, which the task and its host exchange, and the changes of
    /// `stopRequested` and `running` that the two wait for.
    mutable std::mutex meeting;
    std::condition_variable changed;
    bool parked = false;
    bool signalled = false;
    std::atomic<std::thread::id> self; // of the task, set by itself
    Thread thread;
};

} // namespace varn
