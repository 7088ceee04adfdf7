#pragma once

#include "Util/Text.h"

#include <cstdio>
#include <filesystem>
#include <mutex>

namespace varn {

/// An append-only log: UTF-16 units, one line a call, no levels. Any thread may write.
class FileLogger
{
  public:
    FileLogger() = default;
    ~FileLogger();
    FileLogger(const FileLogger&) = delete;
    FileLogger& operator=(const FileLogger&) = delete;

    /// Opens a file for appending, closing what was open. False: it cannot be opened.
    bool open(const std::filesystem::path& path);
    /// Writes the text and "\r\n"; nothing when no file is open.
    void write(WStringView text);
    void close();

    /// The process-wide logger, "log.log" in the working directory, made at the first use. It opens
    /// its file at the first line, so a run that logs nothing leaves none.
    static FileLogger& instance();

  private:
    explicit FileLogger(std::filesystem::path lateName) : lateName(std::move(lateName)) {}
    bool openLocked(const std::filesystem::path& path);
    void closeLocked();

    std::mutex fileLock; // guards all below
    std::FILE* file = nullptr;
    std::filesystem::path lateName; // opened by the first write
};

} // namespace varn
