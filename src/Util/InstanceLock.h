#pragma once

#include "Util/Host.h"
#include "Util/Thread.h"

#include <filesystem>
#include <functional>

namespace varn {

/// One running instance per user and product. The owner holds a lock on a file, which the system
/// lifts when the process ends, however it ends; and it listens on a socket beside it, through
/// which a second start asks it to come forward. Both lie in the user's runtime folder, or in the
/// temporary folder where there is none.
///
/// The owner learns of such a request in one of three ways: it polls `takeRequest`; it watches
/// `descriptor` in its event loop and then polls; or it has `callOnRequest` wait on a thread.
/// Without the third no thread runs.
class InstanceLock
{
  public:
    enum class Result
    {
        Owned,
        OtherAlive,
        CouldNotCreate
    };

    /// @param product  whose instances exclude each other
    /// @param folder   where lock and socket lie; empty: as told above
    explicit InstanceLock(WStringView product = kProductName, std::filesystem::path folder = {});
    ~InstanceLock();
    InstanceLock(const InstanceLock&) = delete;
    InstanceLock& operator=(const InstanceLock&) = delete;

    /// Takes the lock if nobody has it. A lock once owned is kept until this object goes.
    Result acquire();

    /// Asks the owner to come forward and waits for its word. False: nobody answered in that time;
    /// the owner hangs, or runs without a window and does not poll.
    bool askToComeForward(int patienceMs = 2000) const;

    /// True once for requests that came since the last call; answers them. For the owner.
    bool takeRequest();

    /// Becomes readable when a request waits; -1 where none can come. Borrowed.
    int descriptor() const { return socket; }

    /// Calls `onRequest` for each request, on a thread of this lock, until it goes.
    void callOnRequest(std::function<void()> onRequest);

  private:
    void listen();

    std::filesystem::path folder;
    std::string name; // of lock and socket, without extension
    int lock = -1;
    int socket = -1;
    Thread waiter; // last: it uses the socket
};

} // namespace varn
