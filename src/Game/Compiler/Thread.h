#pragma once

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace varn {

/// A task with a thread of its own that can be asked to stop and can wait for a signal.
class Thread
{
  public:
    virtual ~Thread();

    /// Begins `run` on a new thread; waits for the one before to end.
    virtual void start();
    /// Asks for the end and waits for it; a parked thread wakes. Not to be called by the task
    /// itself.
    virtual void stop();

    bool isRunning() const { return running; }
    bool isParked() const;
    bool isStopRequested() const { return stopRequested.load(std::memory_order_relaxed); }
    /// Asks for the end without waiting for it; from any thread.
    void requestStop();
    /// The signal of a frame: lets a parked task go on.
    void resume();
    /// Waits until the task is parked or has ended.
    void waitUntilIdle();

  protected:
    Thread() = default;

    /// The body; its result is kept for `result`.
    virtual int run() = 0;
    /// Blocks the task until the next `resume` or a stop request. Elsewhere than on the own thread
    /// it returns at once.
    void park();
    /// Blocks the task for a time; a stop request ends it early.
    void sleepFor(int milliseconds);
    int result() const { return lastResult; }

    std::atomic<bool> stopRequested = false;

  private:
    std::jthread thread;
    std::atomic<bool> running = false;
    std::atomic<int> lastResult = 0;
    /// Guards `parked` and `signalled`, which the task and its host exchange.
    mutable std::mutex meeting;
    std::condition_variable changed;
    bool parked = false;
    bool signalled = false;
};

} // namespace varn
