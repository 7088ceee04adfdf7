#include "Audio/Midi.h"

#include "Audio/SongStream.h"
#include "Util/FileLogger.h"

#include <array>

namespace varn {

namespace {

constexpr std::size_t kBufferFrames = 1024;
constexpr std::uint64_t kFramesAhead = 4 * kBufferFrames; // 93 ms

} // namespace

bool Midi::open(WStringView path)
{
    clearSong();
    song = loadMidiSong(path);
    opened = true;
    return true;
}

void Midi::clearSong()
{
    stop();
    thread.end();
    opened = false;
    song = {};
}

bool Midi::start()
{
    thread.end();
    if (!opened)
        return false;
    wave.allow();
    times.restart(static_cast<std::uint32_t>(std::max<std::int64_t>(seekTarget, 0)));
    thread.start(
        "song", [this](const std::stop_token& stop) { run(stop); },
        [this] { tell(AudioNotice::Ended); });
    return true;
}

void Midi::stop()
{
    thread.requestStop();
    wave.close();
    seekTarget = -1;
}

void Midi::seek(std::uint32_t milliseconds)
{
    if (!isPlaying())
        thread.end(); // one that was stopped would take it for its own
    seekTarget = milliseconds;
    thread.wake();
}

std::uint32_t Midi::getPosition()
{
    const std::int64_t target = seekTarget;
    if (target >= 0)
        return static_cast<std::uint32_t>(target);
    return isPlaying() ? times.at(wave.heard()) : 0;
}

void Midi::run(const std::stop_token& stop)
{
    try {
        if (!synth)
            synth = makeSynth();
        synth->reset();
        SongStream stream(song, *synth);
        playSong(stream, stop);
    } catch (const Exception& fault) {
        FileLogger::instance().write(fault.getMessage());
    }
    wave.close();
}

void Midi::playSong(SongStream& stream, const std::stop_token& stop)
{
    wave.open({Synth::kChannels, Synth::kSamplesPerSecond, 16});
    tell(AudioNotice::Opened);
    bool isOver = false;
    while (!stop.stop_requested()) {
        if (std::int64_t target = seekTarget; target >= 0) {
            const auto place = static_cast<std::uint32_t>(target);
            wave.reset();
            times.restart(place);
            stream.seek(place);
            isOver = false;
            seekTarget.compare_exchange_strong(target, -1); // unless another one was asked for
        }
        wave.takeDone();
        if (!isOver && wave.pending() < kFramesAhead) {
            isOver = !fillBuffer(stream);
            continue;
        }
        if (isOver && wave.pending() == 0)
            return;
        thread.wait(stop, wave.untilDone());
    }
}

bool Midi::fillBuffer(SongStream& stream)
{
    MidiSequencer& sequencer = stream.getSequencer();
    sequencer.loop = loop.load();
    sequencer.volume = volume.load();
    std::array<std::int16_t, kBufferFrames * Synth::kChannels> samples;
    const std::uint32_t from = stream.getPosition();
    const std::size_t count = stream.read(samples);
    const std::span heard = std::span(samples).first(count);
    times.add(count / Synth::kChannels, Synth::kSamplesPerSecond, from, stream.getPosition(), 0);
    wave.write(std::as_bytes(heard));
    if (count == samples.size())
        return true;
    wave.finish();
    wave.write({}); // done when that is
    return false;
}

} // namespace varn
