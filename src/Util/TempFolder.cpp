#include "Util/TempFolder.h"

#include "Util/Host.h"
#include "Util/ProjectPath.h"

#include <cerrno>
#include <sys/stat.h>

namespace varn {

namespace fs = std::filesystem;

static fs::path systemTempFolder()
{
    std::error_code fault;
    const fs::path folder = fs::temp_directory_path(fault);
    return fault ? fs::path("/tmp") : folder;
}

TempFolder::TempFolder() : folder(systemTempFolder() / toUtf8(kProductName)) {}

TempFolder::Made TempFolder::make()
{
    constexpr mode_t kForThisUser = 0700;
    if (::mkdir(folder.c_str(), kForThisUser) == 0)
        return Made::Made;
    return errno == EEXIST ? Made::Exists : Made::Failed;
}

bool TempFolder::remove()
{
    std::error_code fault;
    if (!fs::is_directory(fs::symlink_status(folder, fault)))
        return !fs::exists(fs::symlink_status(folder, fault)); // a link or a file is none of ours
    for (fs::directory_iterator entry(folder, fault), end; !fault && entry != end;
         entry.increment(fault)) {
        std::error_code ignored;
        if (!fs::is_directory(entry->symlink_status(ignored)))
            fs::remove(entry->path(), ignored);
    }
    return fs::remove(folder, fault);
}

TempFile::TempFile(const TempFolder& folder, WStringView name)
    : file(folder.path() / toUtf8(fileNameOf(name)))
{}

TempFile::~TempFile()
{
    std::error_code ignored;
    fs::remove(file, ignored);
}

} // namespace varn
