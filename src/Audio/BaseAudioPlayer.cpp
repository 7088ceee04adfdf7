#include "Audio/BaseAudioPlayer.h"

#include "Audio/Volume.h"

namespace varn {

bool BaseAudioPlayer::start()
{
    endThread();
    if (!isReady())
        return false;
    wave.allow();
    times.restart(static_cast<std::uint32_t>(std::max<std::int64_t>(seekTarget, 0)));
    thread.start(
        "player", [this](const std::stop_token& stop) { run(stop); },
        [this] { tell(AudioNotice::Ended); });
    return true;
}

void BaseAudioPlayer::stop()
{
    thread.requestStop();
    wave.close();
    seekTarget = -1;
}

void BaseAudioPlayer::endThread()
{
    thread.requestStop();
    wave.close();
    thread.end();
}

void BaseAudioPlayer::forgetCommands()
{
    endThread();
    seekTarget = -1;
}

void BaseAudioPlayer::pause()
{
    if (isPlaying())
        wave.pause();
}

void BaseAudioPlayer::resume()
{
    wave.resume();
    thread.wake();
}

void BaseAudioPlayer::seek(std::uint32_t milliseconds)
{
    if (!isPlaying())
        endThread(); // one that was stopped would take it for its own
    seekTarget = milliseconds;
    thread.wake();
}

std::uint32_t BaseAudioPlayer::getPosition()
{
    const std::int64_t target = seekTarget;
    if (target >= 0)
        return static_cast<std::uint32_t>(target);
    return isPlaying() ? times.at(wave.heard()) : 0;
}

void BaseAudioPlayer::run(const std::stop_token& stop)
{
    if (prepare() && begin()) {
        tell(AudioNotice::Opened);
        while (!stop.stop_requested() && keepPlaying())
            thread.wait(stop, wave.untilDone());
    }
    wave.close();
}

bool BaseAudioPlayer::begin()
{
    if (!waveFormat().isPlayable())
        return false;
    wave.open(waveFormat());
    buffer.resize(decoder->halfSecond());
    return fillFromAskedPlace();
}

bool BaseAudioPlayer::keepPlaying()
{
    if (seekTarget >= 0)
        return fillFromAskedPlace();
    for (unsigned done = wave.takeDone(); done > 0; --done) {
        --buffersQueued;
        if (!ended && !fillBuffer())
            return false;
    }
    return buffersQueued > 0;
}

bool BaseAudioPlayer::fillFromAskedPlace()
{
    std::int64_t target = seekTarget;
    const auto place = static_cast<std::uint32_t>(std::max<std::int64_t>(target, 0));
    wave.reset();
    times.restart(place);
    decoder->seekMilliseconds(place);
    ended = false;
    buffersQueued = 0;
    const bool filled = fillBuffer() && !ended && fillBuffer();
    seekTarget.compare_exchange_strong(target, -1); // unless another place was asked for meanwhile
    return filled || seekTarget >= 0;
}

bool BaseAudioPlayer::fillBuffer()
{
    // Where the samples end with a buffer, the end would be found at the beginning of the next one,
    // and a loop would stop.
    if (loop && decoder->size != 0 && decoder->tell() >= decoder->size)
        decoder->seek(decoder->loopStart);
    const std::uint32_t from = decoder->getPositionMilliseconds();
    const PCMDecoder::Filled filled = decoder->fill(buffer, loop);
    if (!filled.ok)
        return false;
    ended = filled.ended;
    if (ended)
        wave.finish();
    const std::span samples = std::span(buffer).first(filled.bytes);
    applyVolume(samples, decoder->bitsPerSample, volume);
    times.add(filled.bytes / decoder->blockAlign(), decoder->samplesPerSecond, from,
              decoder->getPositionMilliseconds(), decoder->toMilliseconds(decoder->loopStart));
    wave.write(samples);
    ++buffersQueued;
    return true;
}

} // namespace varn
