#include "Util/ProjectPath.h"

#include <algorithm>
#include <cstring>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>

namespace varn {

namespace {

bool exists(const std::string& path)
{
    struct stat ignored;
    return ::stat(path.c_str(), &ignored) == 0;
}

bool isAscii(std::string_view text)
{
    return std::none_of(text.begin(), text.end(), [](char c) { return (c & 0x80) != 0; });
}

/// Tells names that are equal to one ignoring case; the ASCII ones, nearly all, without a
/// conversion.
class NameMatcher
{
  public:
    explicit NameMatcher(std::string_view name)
        : narrow(name), wide(fromUtf8(name)), ascii(isAscii(name))
    {}

    bool matches(std::string_view other) const
    {
        if (ascii && isAscii(other))
            return other.size() == narrow.size() &&
                   std::equal(other.begin(), other.end(), narrow.begin(),
                              [](char a, char b) { return lower(a) == lower(b); });
        return equalsIgnoringCase(fromUtf8(other), wide);
    }

  private:
    static char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

    std::string_view narrow;
    WString wide;
    bool ascii;
};

/// The entry of a folder that is equal to `name` ignoring case, the first in byte order; or empty.
std::string findEntry(const std::string& folder, std::string_view name)
{
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(
        ::opendir(folder.empty() ? "." : folder.c_str()), ::closedir);
    if (!listing)
        return {};
    const NameMatcher matcher(name);
    std::string best;
    while (const dirent* entry = ::readdir(listing.get())) {
        const std::string_view found = entry->d_name;
        if (matcher.matches(found) && (best.empty() || found < best))
            best = found;
    }
    return best;
}

/// Looks for the path one level at a time, listing only the folders that lack a level as written.
std::string resolveByLevels(std::string_view path)
{
    std::string result;
    for (std::size_t at = 0; at < path.size();) {
        if (path[at] == '/') {
            result += path[at++];
            continue;
        }
        const std::size_t end = std::min(path.find('/', at), path.size());
        const std::string_view name = path.substr(at, end - at);
        const std::size_t folderEnd = result.size();
        result += name;
        if (!exists(result)) {
            const std::string entry = findEntry(result.substr(0, folderEnd), name);
            if (entry.empty())
                return result.append(path.substr(end)); // nothing lies below what is not there
            result.resize(folderEnd);
            result += entry;
        }
        at = end;
    }
    return result;
}

mode_t kindOf(WStringView path)
{
    struct stat info;
    const std::filesystem::path resolved = resolveProjectPath(path);
    return ::stat(resolved.c_str(), &info) == 0 ? info.st_mode : 0;
}

} // namespace

std::filesystem::path resolveProjectPath(WStringView path)
{
    const WStringView upToZero =
        path.substr(0, path.find(u'\0')); // no file's name goes on behind one
    std::string written = toUtf8(upToZero);
    std::replace(written.begin(), written.end(), '\\', '/');
    if (written.empty() || exists(written))
        return written;
    return resolveByLevels(written);
}

bool pathExists(WStringView path)
{
    return kindOf(path) != 0;
}

bool isFile(WStringView path)
{
    return S_ISREG(kindOf(path));
}

bool isFolder(WStringView path)
{
    return S_ISDIR(kindOf(path));
}

WString toWide(const std::filesystem::path& path)
{
    return fromUtf8(path.native());
}

WStringView fileNameOf(WStringView path)
{
    return path.substr(path.find_last_of(u"/\\") + 1); // npos + 1 is 0
}

WStringView withoutExtension(WStringView path)
{
    const std::size_t nameStart = path.size() - fileNameOf(path).size();
    const std::size_t dot = path.rfind(u'.');
    return dot != WStringView::npos && dot >= nameStart ? path.substr(0, dot) : path;
}

WString withForwardSlashes(WStringView path)
{
    WString result(path);
    std::replace(result.begin(), result.end(), u'\\', u'/');
    return result;
}

} // namespace varn
