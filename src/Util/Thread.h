#pragma once

#include <concepts>
#include <pthread.h>
#include <stop_token>
#include <string>
#include <thread>
#include <utility>

namespace varn {

/// A thread of ours: it has a name that debuggers and `top` show, is asked to stop through a stop
/// token, and is stopped and joined by its destructor. A class that owns one declares it last, so
/// that it ends before anything it works on.
class Thread
{
  public:
    Thread() = default;

    /// @param name  cut at 15 bytes, what the system keeps
    /// @param body  runs on the new thread; it must not let an exception out
    template <std::invocable<std::stop_token> Body>
    Thread(std::string name, Body body)
        : thread([name = name.substr(0, 15),
                  body = std::move(body)](const std::stop_token& stop) mutable {
              ::pthread_setname_np(::pthread_self(), name.c_str());
              body(stop);
          })
    {}

    void requestStop() { thread.request_stop(); }
    /// Waits for the end of the body; nothing when none was started.
    void join()
    {
        if (thread.joinable())
            thread.join();
    }
    bool isStarted() const { return thread.joinable(); }
    bool isCurrent() const { return thread.get_id() == std::this_thread::get_id(); }

  private:
    std::jthread thread;
};

} // namespace varn
