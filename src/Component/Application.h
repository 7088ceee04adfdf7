#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace varn {

/// The window toolkit's life and its message loop. One at a time, on the main thread.
class Application
{
  public:
    /// Where no display answers, windows are kept in memory.
    Application(int argumentCount, char** arguments);
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    /// Runs until `quit`; gives its code.
    int run();
    static void quit(int code = 0);
    /// Treats the messages that wait, as long work does between its steps.
    static void processMessages();
    /// Runs on the main thread, behind the messages that wait; may be called from any thread.
    static void post(std::function<void()> task);
    /// The user's palette or font changed.
    static void onThemeChange(std::function<void()> action);

  private:
    struct Implementation;
    std::unique_ptr<Implementation> implementation;
};

/// Calls its action every so many milliseconds.
class Timer
{
  public:
    explicit Timer(std::function<void()> action);
    ~Timer();
    void start(int milliseconds);
    /// Once, after so many milliseconds; starting it again puts that off.
    void startOnce(int milliseconds);
    void stop();
    bool isRunning() const;

  private:
    struct Implementation;
    std::unique_ptr<Implementation> implementation;
};

} // namespace varn
