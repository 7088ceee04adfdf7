#include "Util/File.h"

#include <algorithm>
#include <atomic>
#include <cassert>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace varn {

namespace fs = std::filesystem;

namespace {

constexpr mode_t kNewFileMode = 0666; // less the user's mask
constexpr mode_t kPermissionBits = 07777;

template <typename Call>
auto retried(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

void closeHandle(int& handle)
{
    if (handle >= 0)
        ::close(handle);
    handle = -1;
}

int openForReading(const fs::path& path)
{
    // Without O_NONBLOCK a pipe that has no writer would hold us here before we see what it is.
    return retried([&] { return ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK); });
}

bool writeFully(int handle, ByteSpan bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = retried([&] { return ::write(handle, bytes.data(), bytes.size()); });
        if (count < 0)
            return false;
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
    return true;
}

/// The file that a name stands for, through symbolic links, the last of which may lead to nothing.
fs::path followLinks(fs::path path)
{
    constexpr int kMostLinks = 40; // as the kernel
    std::error_code fault;
    for (int i = 0; i < kMostLinks && fs::is_symlink(path, fault); ++i) {
        const fs::path next = fs::read_symlink(path, fault);
        path = next.is_absolute() ? next : path.parent_path() / next;
    }
    return path;
}

fs::path folderOf(const fs::path& path)
{
    return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

/// True when the bytes are as safe as the file system can make them; some have no such call.
bool sync(int handle)
{
    return ::fsync(handle) == 0 || errno == EINVAL || errno == ENOTSUP;
}

void syncFolder(const fs::path& folder)
{
    int handle = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle >= 0)
        ::fsync(handle); // a file system that cannot sync a folder has no better to offer
    closeHandle(handle);
}

/// A name beside the target that this process has not used yet. Hidden, and short whatever the
/// target's name is.
fs::path scratchName(const fs::path& folder)
{
    static std::atomic<unsigned> counter = 0;
    return folder /
           (".varn-" + std::to_string(::getpid()) + "-" + std::to_string(++counter) + ".tmp");
}

/// Tries fresh names until the call takes one or fails for another reason than the name.
template <typename Call>
int withScratchName(const fs::path& folder, fs::path& name, Call call)
{
    constexpr int kMostNames = 100; // left behind by a process of the same number that was killed
    int result = -1;
    for (int i = 0; i < kMostNames; ++i) {
        name = scratchName(folder);
        result = retried([&] { return call(name); });
        if (result >= 0 || errno != EEXIST)
            break;
    }
    if (result < 0)
        name.clear();
    return result;
}

fs::path handlePath(int handle)
{
    return "/proc/self/fd/" + std::to_string(handle);
}

/// A file without a name in a folder; -1 where the file system has no such thing.
int openNameless(const fs::path& folder)
{
    int handle = retried(
        [&] { return ::open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, kNewFileMode); });
    if (handle >= 0 && ::access(handlePath(handle).c_str(), F_OK) != 0)
        closeHandle(handle); // it could not be given a name later
    return handle;
}

/// Gives a new file the old one's owner, as far as this user may, and its permissions.
void takeOver(int handle, const struct stat& old)
{
    [[maybe_unused]] const int ignored = ::fchown(handle, old.st_uid, old.st_gid);
    ::fchmod(handle, old.st_mode & kPermissionBits);
}

/// Copies a whole file over another that is open for writing. The space is taken first, so that a
/// full disk is found while the old contents still stand.
bool overwrite(int from, int to)
{
    struct stat source, old;
    if (::fstat(from, &source) != 0 || ::fstat(to, &old) != 0 || ::lseek(from, 0, SEEK_SET) != 0)
        return false;
    if (S_ISREG(old.st_mode) && source.st_size > old.st_size) {
        const int fault = ::posix_fallocate(to, 0, source.st_size);
        if (fault == ENOSPC || fault == EFBIG || fault == EDQUOT) {
            [[maybe_unused]] const int ignored = ::ftruncate(to, old.st_size);
            return false;
        }
    }
    std::byte buffer[1 << 16];
    for (;;) {
        const ssize_t count = retried([&] { return ::read(from, buffer, sizeof buffer); });
        if (count < 0)
            return false;
        if (count == 0)
            break;
        if (!writeFully(to, {buffer, static_cast<std::size_t>(count)}))
            return false;
    }
    if (!S_ISREG(old.st_mode))
        return true;
    return ::ftruncate(to, source.st_size) == 0 && sync(to);
}

} // namespace

File::~File()
{
    close();
}

bool File::open(const fs::path& path)
{
    close();
    handle = openForReading(path);
    struct stat info;
    if (handle < 0 || ::fstat(handle, &info) != 0 || !S_ISREG(info.st_mode)) {
        close();
        return false;
    }
    size = static_cast<std::uint64_t>(info.st_size);
    return true;
}

// NOLINTNEXTLINE(readability-make-member-function-const): it moves the file's position
std::optional<std::size_t> File::read(std::span<std::byte> buffer)
{
    assert(isOpen());
    std::size_t filled = 0;
    while (filled < buffer.size()) {
        const auto rest = buffer.subspan(filled);
        const ssize_t count = retried([&] { return ::read(handle, rest.data(), rest.size()); });
        if (count < 0)
            return std::nullopt;
        if (count == 0)
            break;
        filled += static_cast<std::size_t>(count);
    }
    return filled;
}

void File::close()
{
    closeHandle(handle);
    size = 0;
}

std::optional<std::string> readFile(const fs::path& path)
{
    File file;
    if (!file.open(path))
        return std::nullopt;
    std::string bytes(file.getSize(), '\0');
    const auto count = file.read(std::as_writable_bytes(std::span(bytes)));
    if (!count)
        return std::nullopt;
    bytes.resize(*count);
    return bytes;
}

FileReplacement::FileReplacement(fs::path path, Scratch scratch)
    : target(followLinks(std::move(path)))
{
    struct stat old;
    std::error_code fault;
    if (fs::is_symlink(target, fault))
        return; // a ring of links
    const bool isThere = ::stat(target.c_str(), &old) == 0;
    if (isThere &&
        (S_ISDIR(old.st_mode) || ::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0))
        return;
    inPlace = isThere && !S_ISREG(old.st_mode);
    if (!inPlace && openBeside(scratch)) {
        if (isThere)
            takeOver(handle, old);
        return;
    }
    inPlace = isThere;
    if (inPlace)
        openElsewhere();
}

FileReplacement::~FileReplacement()
{
    abandon();
}

/// Opens the scratch file in the target's folder, so that giving it the target's name is one step.
bool FileReplacement::openBeside(Scratch scratch)
{
    const fs::path folder = folderOf(target);
    if (scratch == Scratch::Nameless)
        handle = openNameless(folder);
    if (handle < 0)
        handle = withScratchName(folder, temporary, [](const fs::path& name) {
            return ::open(name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, kNewFileMode);
        });
    return handle >= 0;
}

/// Opens the scratch file in the system's temporary folder, without a name.
void FileReplacement::openElsewhere()
{
    std::error_code fault;
    const fs::path folder = fs::temp_directory_path(fault);
    if (fault)
        return;
    handle = openNameless(folder);
    if (handle >= 0)
        return;
    fs::path name;
    handle = withScratchName(folder, name, [](const fs::path& fresh) {
        return ::open(fresh.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    });
    if (handle >= 0)
        ::unlink(name.c_str());
}

bool FileReplacement::write(ByteSpan bytes)
{
    failed = failed || handle < 0 || !writeFully(handle, bytes);
    return !failed;
}

bool FileReplacement::writeAt(std::uint64_t offset, ByteSpan bytes)
{
    while (!failed && handle >= 0 && !bytes.empty()) {
        const ssize_t count = retried([&] {
            return ::pwrite(handle, bytes.data(), bytes.size(), static_cast<off_t>(offset));
        });
        failed = count < 0;
        if (!failed) {
            bytes = bytes.subspan(static_cast<std::size_t>(count));
            offset += static_cast<std::uint64_t>(count);
        }
    }
    return !failed && handle >= 0;
}

bool FileReplacement::commit()
{
    const bool done = !failed && handle >= 0 && (inPlace ? commitInPlace() : commitByName());
    abandon(); // what is still there failed
    return done;
}

bool FileReplacement::commitByName()
{
    if (!sync(handle))
        return false;
    if (temporary.empty() &&
        withScratchName(folderOf(target), temporary, [&](const fs::path& name) {
            return ::linkat(AT_FDCWD, handlePath(handle).c_str(), AT_FDCWD, name.c_str(),
                            AT_SYMLINK_FOLLOW);
        }) < 0)
        return false;
    if (::rename(temporary.c_str(), target.c_str()) != 0)
        return commitInPlace(); // another's file in a sticky folder, a file that is a mount point
    temporary.clear();
    syncFolder(folderOf(target));
    return true;
}

bool FileReplacement::commitInPlace()
{
    int file = retried([&] { return ::open(target.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY); });
    const bool done = file >= 0 && overwrite(handle, file);
    closeHandle(file);
    return done;
}

void FileReplacement::abandon()
{
    closeHandle(handle);
    if (!temporary.empty())
        ::unlink(temporary.c_str());
    temporary.clear();
}

void keepAside(const fs::path& path)
{
    fs::path kept = path;
    kept += ".bak";
    std::error_code fault;
    fs::rename(path, kept, fault);
}

bool replaceFile(const fs::path& path, ByteSpan bytes)
{
    FileReplacement file(path);
    return file.write(bytes) && file.commit();
}

bool createDirectories(const fs::path& path)
{
    std::error_code fault;
    fs::create_directories(path, fault);
    return fs::is_directory(path, fault);
}

fs::path programFolder()
{
    std::error_code fault;
    const fs::path program = fs::read_symlink("/proc/self/exe", fault);
    return program.parent_path() / "";
}

fs::path programStem()
{
    std::error_code fault;
    return fs::read_symlink("/proc/self/exe", fault).stem();
}

} // namespace varn
