#pragma once

#include <functional>
#include <signal.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

namespace varn::test {

/// A fork of this process that runs a function and ends without the test runner's clean-up. Killed,
/// if it still runs, and waited for at the end of the scope.
class ChildProcess
{
  public:
    /// @param body  its result is the exit status
    explicit ChildProcess(const std::function<int()>& body) : id(::fork())
    {
        if (id == 0)
            ::_exit(body());
    }
    ~ChildProcess() { kill(); }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    void kill()
    {
        if (id > 0)
            ::kill(id, SIGKILL);
        wait();
    }

    /// The status as waitpid tells it; -1 when it was waited for before.
    int wait()
    {
        int status = -1;
        if (id > 0)
            ::waitpid(id, &status, 0);
        id = -1;
        return status;
    }

    pid_t processId() const { return id; }

  private:
    pid_t id;
};

/// True when `check` holds for a user without the rights of root, in a fork where need be.
inline bool holdsForOrdinaryUser(const std::function<bool()>& check)
{
    ChildProcess child([&] {
        constexpr uid_t kNobody = 65534;
        if (::geteuid() == 0 && (::setgid(kNobody) != 0 || ::setuid(kNobody) != 0))
            return 2;
        return check() ? 0 : 1;
    });
    return child.wait() == 0;
}

} // namespace varn::test
