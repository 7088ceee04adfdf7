#include "Audio/OggDecoder.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstring>

#define OV_EXCLUDE_STATIC_CALLBACKS
#include <vorbis/vorbisfile.h>

namespace varn {

namespace {

/// A file in memory, as vorbisfile reads it.
struct MemoryFile
{
    std::string bytes;
    std::size_t at = 0;
};

std::size_t readMemory(void* target, std::size_t size, std::size_t count, void* source)
{
    auto& file = *static_cast<MemoryFile*>(source);
    const std::size_t whole = size == 0 ? 0 : std::min(count, (file.bytes.size() - file.at) / size);
    std::memcpy(target, file.bytes.data() + file.at, whole * size);
    file.at += whole * size;
    return whole;
}

int seekMemory(void* source, ogg_int64_t offset, int whence)
{
    auto& file = *static_cast<MemoryFile*>(source);
    const auto end = static_cast<ogg_int64_t>(file.bytes.size());
    const ogg_int64_t from = whence == SEEK_SET   ? 0
                             : whence == SEEK_CUR ? static_cast<ogg_int64_t>(file.at)
                                                  : end;
    if (offset < -from || offset > end - from)
        return -1;
    file.at = static_cast<std::size_t>(from + offset);
    return 0;
}

long tellMemory(void* source)
{
    return static_cast<long>(static_cast<MemoryFile*>(source)->at);
}

} // namespace

struct OggDecoder::Stream
{
    explicit Stream(std::string bytes) : file{std::move(bytes)} {}
    ~Stream()
    {
        if (isOpen)
            ov_clear(&vorbis);
    }
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;

    bool open()
    {
        const ov_callbacks callbacks{readMemory, seekMemory, nullptr, tellMemory};
        isOpen = ov_open_callbacks(&file, &vorbis, nullptr, 0, callbacks) == 0;
        return isOpen;
    }

    MemoryFile file;
    OggVorbis_File vorbis{};
    bool isOpen = false;
    int link = 0; // of a file of several streams, the one that the samples come from
};

void readLoopComment(std::string_view comment, LoopPoints& points)
{
    constexpr std::string_view kLength = "LOOPLENGTH=";
    constexpr std::string_view kStart = "LOOPSTART=";
    const auto number = [&](std::string_view key) {
        std::uint32_t value = 0;
        const std::string_view digits = comment.substr(key.size());
        std::from_chars(digits.data(), digits.data() + digits.size(), value);
        return value;
    };
    if (comment.starts_with(kLength))
        points.length = number(kLength);
    else if (comment.starts_with(kStart))
        points.start = number(kStart);
}

OggDecoder::OggDecoder() = default;
OggDecoder::~OggDecoder() = default;

bool OggDecoder::openBytes(std::string bytes)
{
    close();
    auto next = std::make_unique<Stream>(std::move(bytes));
    if (!next->open())
        return false;
    const vorbis_info* const info = ov_info(&next->vorbis, -1);
    const ogg_int64_t total = ov_pcm_total(&next->vorbis, -1);
    if (!info || info->channels < 1 || info->rate < 1 || total < 0 || total > UINT32_MAX)
        return false;
    stream = std::move(next);
    channels = static_cast<std::uint32_t>(info->channels);
    samplesPerSecond = static_cast<std::uint32_t>(info->rate);
    bitsPerSample = 16;
    size = static_cast<std::uint32_t>(total);

    LoopPoints points;
    if (const vorbis_comment* const comments = ov_comment(&stream->vorbis, -1))
        for (int i = 0; i < comments->comments; ++i)
            readLoopComment({comments->user_comments[i],
                             static_cast<std::size_t>(comments->comment_lengths[i])},
                            points);
    loopStart = points.start;
    loopLength = points.length;
    return true;
}

void OggDecoder::close()
{
    stream.reset();
    channels = samplesPerSecond = bitsPerSample = loopStart = loopLength = size = 0;
}

std::uint32_t OggDecoder::tell() const
{
    const ogg_int64_t at = stream ? ov_pcm_tell(&stream->vorbis) : 0;
    return static_cast<std::uint32_t>(std::max<ogg_int64_t>(at, 0));
}

void OggDecoder::seek(std::uint32_t position)
{
    if (stream)
        ov_pcm_seek(&stream->vorbis, std::min(position, size));
}

std::size_t OggDecoder::read(std::span<std::byte> buffer)
{
    constexpr int kLittleEndian = 0, kBytesOfSample = 2, kSigned = 1;
    if (!stream)
        return 0;
    for (;;) {
        const long count =
            ov_read(&stream->vorbis, reinterpret_cast<char*>(buffer.data()),
                    static_cast<int>(std::min<std::size_t>(buffer.size(), INT32_MAX)),
                    kLittleEndian, kBytesOfSample, kSigned, &stream->link);
        if (count != OV_HOLE) // damage inside the file: the stream goes on behind it
            return count > 0 ? static_cast<std::size_t>(count) : 0;
    }
}

} // namespace varn
