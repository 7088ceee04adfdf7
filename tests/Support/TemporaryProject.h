#pragma once

#include "Util/Text.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace varn::test {

/// An empty folder that is the working directory, so the project, from construction to destruction.
class TemporaryProject
{
  public:
    TemporaryProject();
    ~TemporaryProject();
    TemporaryProject(const TemporaryProject&) = delete;
    TemporaryProject& operator=(const TemporaryProject&) = delete;

    const std::filesystem::path& root() const { return folder; }
    /// Writes bytes, making the folders of the path.
    void write(const std::filesystem::path& path, std::string_view bytes) const;
    /// Writes a text as the system writes XML: UTF-16LE with a mark, LF as it stands.
    void writeUtf16(const std::filesystem::path& path, WStringView text) const;
    /// The bytes of a file; a test failure and an empty string when it is missing.
    std::string read(const std::filesystem::path& path) const;
    bool has(const std::filesystem::path& path) const;

  private:
    std::filesystem::path folder;
    std::filesystem::path before;
};

/// Bytes of a file of the source tree (tests/...).
std::string readSource(const std::filesystem::path& path);

} // namespace varn::test
