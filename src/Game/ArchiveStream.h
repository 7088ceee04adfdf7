#pragma once

#include "Util/File.h"

#include <cstdint>
#include <memory>

namespace varn::archive {

/// The bytes of an archive on their way to its file: gathered in one block of the processor's
/// cache, scrambled there from the body's first byte on, and written out when the block is full. So
/// scrambling costs no pass over memory of its own, and memory does not grow with the archive.
class ArchiveStream
{
  public:
    /// @param file  open and empty; borrowed for the stream's life
    explicit ArchiveStream(FileReplacement& file);

    /// Offset in the file of the next byte.
    std::uint64_t position() const { return blockStart + filled; }

    /// The free part of the block, never empty, and how much of it was filled. False: the disk
    /// fails.
    std::span<std::byte> room() { return std::span(block->bytes).subspan(filled); }
    bool advance(std::size_t count);

    bool write(ByteSpan bytes);
    /// Replaces four bytes written before, little-endian, wherever they are by now.
    bool patch(std::uint64_t offset, std::uint32_t value);
    /// Writes what is left. The file is not committed.
    bool flush();

  private:
    // A quarter of a megabyte stays in the second-level cache between the copy in, the scrambling
    // and the copy out; both smaller and larger blocks were slower. It begins on a page: from some
    // places within one, the system's copy to a file takes three times as long.
    static constexpr std::size_t kBlockSize = 256 * 1024;
    struct alignas(4096) Block
    {
        std::byte bytes[kBlockSize];
    };

    // How often the system is told to begin writing to the disk, so that the commit finds little
    // left.
    static constexpr std::uint64_t kWriteBackStep = 8 * 1024 * 1024;

    void startWriteBack();

    FileReplacement& file;
    std::unique_ptr<Block> block;
    std::size_t filled = 0;
    std::uint64_t blockStart = 0; // offset of the block in the file: whole pages are written
    std::uint64_t handedOver = 0; // write-back has begun up to here
};

} // namespace varn::archive
