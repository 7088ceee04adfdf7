#include "Util/FileLogger.h"

#include "Util/Bytes.h"

namespace varn {

FileLogger::~FileLogger()
{
    close();
}

bool FileLogger::open(const std::filesystem::path& path)
{
    const std::lock_guard lock(fileLock);
    return openLocked(path);
}

bool FileLogger::openLocked(const std::filesystem::path& path)
{
    closeLocked();
    file = std::fopen(path.c_str(), "abe");
    return file != nullptr;
}

void FileLogger::write(WStringView text)
{
    ByteWriter line;
    line.utf16(text);
    line.utf16(u"\r\n");
    const std::lock_guard lock(fileLock);
    if (file == nullptr && !lateName.empty())
        openLocked(std::filesystem::path(lateName));
    if (file == nullptr)
        return;
    std::fwrite(line.view().data(), 1, line.size(), file);
    std::fflush(file); // the last lines before a crash are the ones that are looked for
}

void FileLogger::close()
{
    const std::lock_guard lock(fileLock);
    closeLocked();
}

void FileLogger::closeLocked()
{
    if (file != nullptr)
        std::fclose(file);
    file = nullptr;
    lateName.clear();
}

FileLogger& FileLogger::instance()
{
    static FileLogger logger("log.log");
    return logger;
}

} // namespace varn
