#include "Audio/MP3Decoder.h"

#include "Audio/Mp3Header.h"

#include <memory>
#include <mpg123.h>

namespace varn {

namespace {

/// More than any piece of music; a file that claims more is cut.
constexpr std::size_t kMostBytes = std::size_t{1} << 30;

using Handle = std::unique_ptr<mpg123_handle, void (*)(mpg123_handle*)>;

Handle makeHandle(const Mp3Frame& format)
{
    static const int started = mpg123_init();
    Handle handle(started == MPG123_OK ? mpg123_new(nullptr, nullptr) : nullptr, mpg123_delete);
    if (!handle)
        return handle;
    mpg123_param(handle.get(), MPG123_ADD_FLAGS, MPG123_QUIET, 0);
    mpg123_format_none(handle.get());
    mpg123_format(handle.get(), static_cast<long>(format.samplesPerSecond),
                  format.channels == 1 ? MPG123_MONO : MPG123_STEREO, MPG123_ENC_SIGNED_16);
    if (mpg123_open_feed(handle.get()) != MPG123_OK)
        handle.reset();
    return handle;
}

/// All samples of the frames. A file that is cut or damaged gives what comes before the damage.
std::string decode(ByteSpan frames, const Mp3Frame& format)
{
    const Handle handle = makeHandle(format);
    std::string samples;
    if (!handle || mpg123_feed(handle.get(), reinterpret_cast<const unsigned char*>(frames.data()),
                               frames.size()) != MPG123_OK)
        return samples;
    for (;;) {
        unsigned char block[16384];
        std::size_t count = 0;
        const int result = mpg123_read(handle.get(), block, sizeof block, &count);
        samples.append(reinterpret_cast<const char*>(block), count);
        const bool goesOn = result == MPG123_OK || result == MPG123_NEW_FORMAT;
        if (!goesOn || (result == MPG123_OK && count == 0) || samples.size() > kMostBytes)
            return samples;
    }
}

} // namespace

bool MP3Decoder::openBytes(std::string bytes)
{
    close();
    const auto info = readMp3Info(asBytes(bytes));
    if (!info)
        return false;
    std::string decoded = decode(asBytes(bytes).subspan(info->offset, info->size), info->first);
    if (decoded.empty())
        return false;
    channels = info->first.channels;
    samplesPerSecond = info->first.samplesPerSecond;
    bitsPerSample = 16;
    setSamples(std::move(decoded));
    return true;
}

} // namespace varn
