#include "Audio/FileSearch.h"

#include "Util/ProjectPath.h"

#include <algorithm>

namespace varn {

namespace {

std::vector<WString> subfoldersOf(WStringView folder)
{
    std::vector<WString> names;
    std::error_code fault;
    for (std::filesystem::directory_iterator entry(resolveProjectPath(folder), fault), end;
         !fault && entry != end; entry.increment(fault)) {
        std::error_code ignored;
        if (entry->is_directory(ignored) && !entry->is_symlink(ignored))
            names.push_back(toWide(entry->path().filename()));
    }
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace

std::optional<WString> findFile(WStringView folder, WStringView name, int depth)
{
    const WString base = WString(folder) + u"/";
    if (isFile(base + WString(name)))
        return base + WString(name);
    if (depth < 1)
        return std::nullopt;
    for (const WString& subfolder : subfoldersOf(folder))
        if (auto found = findFile(base + subfolder, name, depth - 1))
            return found;
    return std::nullopt;
}

} // namespace varn
