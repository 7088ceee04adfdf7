#include "Util/InstanceLock.h"

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace varn {

namespace fs = std::filesystem;

namespace {

constexpr mode_t kForThisUser = 0600;
constexpr char kAnswer = '!'; // the owner's whole reply; the request is the connection itself

/// The user's runtime folder, gone at log-out and closed to others; or the temporary folder, where
/// the user's number keeps the names of different users apart.
fs::path runtimeFolder()
{
    const char* folder = std::getenv("XDG_RUNTIME_DIR");
    std::error_code fault;
    if (folder != nullptr && *folder == '/' && ::access(folder, W_OK) == 0)
        return folder;
    return fs::temp_directory_path(fault);
}

/// The product's name as part of a file's name, with the user's number.
std::string lockName(WStringView product)
{
    std::string name;
    for (const char c : toUtf8(product))
        name += std::isalnum(static_cast<unsigned char>(c)) ? c : '-';
    return name + "-" + std::to_string(::getuid());
}

/// A socket's address. It holds 107 bytes of path, so the folder is named by its open descriptor,
/// which the kernel follows; keep that open while the address is in use.
class SocketAddress
{
  public:
    SocketAddress(const fs::path& folder, const std::string& name)
        : folderHandle(::open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC))
    {
        const std::string path = "/proc/self/fd/" + std::to_string(folderHandle) + "/" + name;
        address.sun_family = AF_UNIX;
        fits = folderHandle >= 0 && path.size() < sizeof address.sun_path;
        if (fits)
            std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    }
    ~SocketAddress()
    {
        if (folderHandle >= 0)
            ::close(folderHandle);
    }
    SocketAddress(const SocketAddress&) = delete;
    SocketAddress& operator=(const SocketAddress&) = delete;

    bool isUsable() const { return fits; }
    const sockaddr* get() const { return reinterpret_cast<const sockaddr*>(&address); }
    const char* path() const { return address.sun_path; }

  private:
    sockaddr_un address = {};
    int folderHandle;
    bool fits = false;
};

int makeSocket()
{
    return ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
}

/// Waits until a descriptor is readable.
bool waitReadable(int handle, int milliseconds)
{
    pollfd one = {handle, POLLIN, 0};
    return ::poll(&one, 1, milliseconds) == 1;
}

bool isFromThisUser(int connection)
{
    ucred peer = {};
    socklen_t size = sizeof peer;
    return ::getsockopt(connection, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 &&
           peer.uid == ::getuid();
}

/// Connects and waits for the answer. False: nobody listens, or nobody answers in that time.
bool askOnce(const SocketAddress& address, int milliseconds)
{
    const int connection = makeSocket();
    char answer = 0;
    const bool answered = connection >= 0 &&
                          ::connect(connection, address.get(), sizeof(sockaddr_un)) == 0 &&
                          waitReadable(connection, milliseconds) &&
                          ::read(connection, &answer, 1) == 1 && answer == kAnswer;
    if (connection >= 0)
        ::close(connection);
    return answered;
}

} // namespace

InstanceLock::InstanceLock(WStringView product, fs::path chosenFolder)
    : folder(chosenFolder.empty() ? runtimeFolder() : std::move(chosenFolder)),
      name(lockName(product))
{}

InstanceLock::~InstanceLock()
{
    waiter = {};
    if (socket >= 0) {
        ::unlink((folder / (name + ".socket")).c_str());
        ::close(socket);
    }
    if (lock >= 0)
        ::close(
            lock); // the file stays: removing it would let two owners lock two files of one name
}

InstanceLock::Result InstanceLock::acquire()
{
    if (lock >= 0)
        return Result::Owned;
    const fs::path file = folder / (name + ".lock");
    const int handle =
        ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, kForThisUser);
    if (handle < 0)
        return Result::CouldNotCreate;
    if (::flock(handle, LOCK_EX | LOCK_NB) != 0) {
        const bool taken = errno == EWOULDBLOCK;
        ::close(handle);
        return taken ? Result::OtherAlive : Result::CouldNotCreate;
    }
    lock = handle;
    listen();
    return Result::Owned;
}

/// Without a socket the lock still holds; only coming forward fails.
void InstanceLock::listen()
{
    const SocketAddress address(folder, name + ".socket");
    const int handle = address.isUsable() ? makeSocket() : -1;
    if (handle < 0)
        return;
    ::unlink(address.path()); // what a dead owner left
    constexpr int kWaiting = 8;
    if (::bind(handle, address.get(), sizeof(sockaddr_un)) != 0 ||
        ::chmod(address.path(), kForThisUser) != 0 || ::listen(handle, kWaiting) != 0)
        ::close(handle);
    else
        socket = handle;
}

bool InstanceLock::askToComeForward(int patienceMs) const
{
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::milliseconds(patienceMs);
    const SocketAddress address(folder, name + ".socket");
    while (address.isUsable()) {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
        if (left <= 0)
            break;
        if (askOnce(address, static_cast<int>(left)))
            return true;
        // The owner may have the lock and not the socket yet.
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return false;
}

// NOLINTNEXTLINE(readability-make-member-function-const): it uses the requests up
bool InstanceLock::takeRequest()
{
    bool asked = false;
    for (;;) {
        const int connection = socket >= 0 ? ::accept4(socket, nullptr, nullptr, SOCK_CLOEXEC) : -1;
        if (connection < 0)
            return asked;
        if (isFromThisUser(connection))
            asked = ::send(connection, &kAnswer, 1, MSG_NOSIGNAL) == 1 || asked;
        ::close(connection);
    }
}

void InstanceLock::callOnRequest(std::function<void()> onRequest)
{
    if (socket < 0)
        return;
    waiter =
        Thread("instance", [this, onRequest = std::move(onRequest)](const std::stop_token& stop) {
            const int wake = ::eventfd(0, EFD_CLOEXEC);
            {
                const std::stop_callback wakeUp(stop, [wake] { ::eventfd_write(wake, 1); });
                pollfd both[] = {{socket, POLLIN, 0}, {wake, POLLIN, 0}};
                while (!stop.stop_requested()) {
                    if (::poll(both, 2, -1) > 0 && takeRequest())
                        onRequest();
                }
            } // the callback has ended here
            ::close(wake);
        });
}

} // namespace varn
