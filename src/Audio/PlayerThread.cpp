#include "Audio/PlayerThread.h"

namespace varn {

void PlayerThread::start(const char* name, Body body, std::function<void()> over)
{
    end();
    running = true;
    thread = Thread(
        name, [this, body = std::move(body), over = std::move(over)](const std::stop_token& stop) {
            body(stop);
            running = false;
            if (over)
                over();
        });
}

void PlayerThread::requestStop()
{
    running = false;
    thread.requestStop();
}

void PlayerThread::end()
{
    requestStop();
    thread.join();
}

void PlayerThread::wake()
{
    const std::lock_guard lock(wakeLock);
    woken = true;
    woke.notify_all();
}

void PlayerThread::wait(const std::stop_token& stop, std::chrono::nanoseconds most)
{
    std::unique_lock lock(wakeLock);
    woke.wait_for(lock, stop, most, [this] { return woken; });
    woken = false;
}

} // namespace varn
