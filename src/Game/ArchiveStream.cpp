#include "Game/ArchiveStream.h"

#include "Game/ArchiveFormat.h"

#include <algorithm>
#include <cassert>
#include <cstring>
#ifdef __linux__
#include <fcntl.h>
#endif

namespace varn::archive {

ArchiveStream::ArchiveStream(FileReplacement& file)
    : file(file), block(std::make_unique_for_overwrite<Block>())
{}

bool ArchiveStream::advance(std::size_t count)
{
    assert(count <= kBlockSize - filled);
    filled += count;
    return filled < kBlockSize || flush();
}

bool ArchiveStream::write(ByteSpan bytes)
{
    while (!bytes.empty()) {
        const std::span<std::byte> free = room();
        const std::size_t count = std::min(free.size(), bytes.size());
        std::memcpy(free.data(), bytes.data(), count);
        bytes = bytes.subspan(count);
        if (!advance(count))
            return false;
    }
    return true;
}

bool ArchiveStream::patch(std::uint64_t offset, std::uint32_t value)
{
    for (int i = 0; i < 4; ++i, ++offset, value >>= 8) {
        std::byte byte{static_cast<std::uint8_t>(value)};
        if (offset >= blockStart) {
            block->bytes[offset - blockStart] = byte;
            continue;
        }
        scramble(std::span(&byte, 1), offset - kBodyOffset);
        if (!file.writeAt(offset, std::span(&byte, 1)))
            return false;
    }
    return true;
}

bool ArchiveStream::flush()
{
    const std::span<std::byte> bytes(block->bytes, filled);
    const std::size_t head = blockStart == 0 ? std::min(kBodyOffset, filled) : 0;
    scramble(bytes.subspan(head), blockStart + head - kBodyOffset);
    if (!file.write(bytes))
        return false;
    blockStart += filled;
    filled = 0;
    startWriteBack();
    return true;
}

void ArchiveStream::startWriteBack()
{
#ifdef SYNC_FILE_RANGE_WRITE
    if (blockStart - handedOver < kWriteBackStep)
        return;
    // A hint: where it is refused, the commit waits longer.
    (void)sync_file_range(file.descriptor(), static_cast<off64_t>(handedOver),
                          static_cast<off64_t>(blockStart - handedOver), SYNC_FILE_RANGE_WRITE);
    handedOver = blockStart;
#endif
}

} // namespace varn::archive
