#pragma once

#include "Util/Bytes.h"
#include "Util/ProjectPath.h"

#include <filesystem>
#include <optional>
#include <string>

namespace varn {

/// A file read piece by piece; what is read whole goes through `readFile`.
class File
{
  public:
    File() = default;
    ~File();
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    /// Opens a plain file for reading, closing what was open. False: it cannot be opened.
    bool open(const std::filesystem::path& path);
    /// Size in bytes, 0 when nothing is open.
    std::uint64_t getSize() const { return size; }
    /// Fills as much of `buffer` as the file has left; gives the count, or nothing on a read error.
    /// Asserts that a file is open.
    std::optional<std::size_t> read(std::span<std::byte> buffer);
    bool isOpen() const { return handle >= 0; }
    void close();

  private:
    int handle = -1;
    std::uint64_t size = 0;
};

/// The bytes of a plain file, or nothing when it is missing, no plain file or unreadable.
std::optional<std::string> readFile(const std::filesystem::path& path);

/// Puts `bytes` where `path` is, so that a reader (or a crash) sees the old file or the new one, never
/// half: a temporary file beside it is written, synced and renamed over it. Where the folder refuses a
/// temporary name the file is written in place. A symbolic link is followed; the old file's
/// permissions are kept. False: nothing could be written, and the old file stands.
bool replaceFile(const std::filesystem::path& path, ByteSpan bytes);

/// Moves a file that could not be read whole out of the way of the save that follows: its name gets
/// ".bak" behind it, and an older file of that name is replaced.
void keepAside(const std::filesystem::path& path);

/// A file that is being composed piece by piece beside its final place; `commit` syncs it and puts it
/// there. Destroyed without a commit, it leaves the old file and removes what it wrote.
class FileReplacement
{
  public:
    /// How the scratch file stands in the folder while it is being written. A nameless one vanishes with
    /// the process however that ends; a file system that has none gets a named one.
    enum class Scratch { Nameless, Named };

    explicit FileReplacement(std::filesystem::path path, Scratch scratch = Scratch::Nameless);
    ~FileReplacement();
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;

    bool isOpen() const { return handle >= 0; }
    /// Appends; false on a full or failing disk, after which `commit` fails too.
    bool write(ByteSpan bytes);
    /// Overwrites bytes written before, at an offset; for headers that are known last.
    bool writeAt(std::uint64_t offset, ByteSpan bytes);
    /// The open descriptor, for calls of the system that copy between files.
    int descriptor() const { return handle; }
    /// Once; false: the old file stands.
    bool commit();

  private:
    bool openBeside(Scratch scratch);
    void openElsewhere();
    bool commitByName();
    bool commitInPlace();
    void abandon();

    std::filesystem::path target;    // behind all links
    std::filesystem::path temporary; // the scratch file's name, while it has one
    int handle = -1;                 // the scratch file
    bool inPlace = false;            // copied over the target at the end, instead of renamed
    bool failed = false;
};

/// Creates all folders of a path; true when the folder stands afterwards.
bool createDirectories(const std::filesystem::path& path);

/// The folder of the running program, with its last separator; the name of the program's file up to
/// its last ".".
std::filesystem::path programFolder();
std::filesystem::path programStem();

} // namespace varn
