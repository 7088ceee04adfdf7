#pragma once

#include "Util/Text.h"

#include <filesystem>

namespace varn {

/// The folder for a session's scratch files. It is made at the start of a session and removed at
/// its end, both on request: one that still stands at a start tells that the last session was cut
/// off.
class TempFolder
{
  public:
    enum class Made
    {
        Made,
        Exists,
        Failed
    };

    /// The one of this program: the product's name in the system's temporary folder.
    TempFolder();
    explicit TempFolder(std::filesystem::path path) : folder(std::move(path)) {}

    /// Makes the folder, for this user alone. `Exists`: something of that name stands there
    /// already.
    Made make();

    /// Deletes the files in the folder, then the folder. Sub-folders are not entered, and where one
    /// stands the folder stays. True when the folder is gone.
    bool remove();

    const std::filesystem::path& path() const { return folder; }

  private:
    std::filesystem::path folder;
};

/// A named file in a temporary folder, deleted with its owner. The owner makes it when it writes.
class TempFile
{
  public:
    /// @param name  the file's name; folders before it are left out
    TempFile(const TempFolder& folder, WStringView name);
    ~TempFile();
    TempFile(const TempFile&) = delete;
    TempFile& operator=(const TempFile&) = delete;

    const std::filesystem::path& path() const { return file; }

  private:
    std::filesystem::path file;
};

} // namespace varn
