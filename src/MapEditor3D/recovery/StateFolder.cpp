#include "MapEditor3D/recovery/StateFolder.h"

#include "MapEditor3D/recovery/Fnv.h"
#include "Util/Host.h"

#include <cstdlib>

namespace varn {

namespace {

/// A file name's bytes are limited, and some file systems refuse what is not plain.
constexpr std::size_t kLongestName = 40;

bool isPlain(char byte)
{
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
           (byte >= '0' && byte <= '9') || byte == '-' || byte == '_';
}

/// An absolute path of the environment; a relative one does not count.
std::filesystem::path folderOf(const char* variable)
{
    const char* const value = std::getenv(variable);
    const std::filesystem::path path = value ? value : "";
    return path.is_absolute() ? path : std::filesystem::path();
}

} // namespace

std::filesystem::path defaultStateFolder()
{
    std::filesystem::path base = folderOf("XDG_STATE_HOME");
    if (base.empty()) {
        base = folderOf("HOME");
        if (base.empty())
            return {};
        base /= ".local/state";
    }
    return base / toUtf8(kProductName);
}

std::string stateNameOf(const std::filesystem::path& project)
{
    const std::filesystem::path path = project.lexically_normal();
    // A path that ends in a separator has no last name.
    const std::filesystem::path last = path.has_filename() ? path : path.parent_path();
    std::string name;
    for (const char byte : last.filename().string().substr(0, kLongestName))
        name += isPlain(byte) ? byte : '_';
    static constexpr char kDigits[] = "0123456789abcdef";
    name += '-';
    const std::uint64_t sum = fnv1a64(last.string());
    for (int shift = 60; shift >= 0; shift -= 4)
        name += kDigits[sum >> shift & 15];
    return name;
}

} // namespace varn
