#include "Audio/Audition.h"

#include "Audio/AudioPlayer.h"
#include "Audio/Midi.h"
#include "Audio/SoundOutput.h"
#include "Util/ProjectPath.h"

namespace varn {

namespace {

bool isSong(WStringView path)
{
    const WStringView extension = path.substr(withoutExtension(path).size());
    return equalsIgnoringAsciiCase(extension, u".mid") ||
           equalsIgnoringAsciiCase(extension, u".midi");
}

} // namespace

Audition::Audition() : Audition(soundOutput()) {}
Audition::Audition(SoundOutput& output) : output(output) {}
Audition::~Audition() = default;

bool Audition::open(WStringView path)
{
    close();
    if (isSong(path) ? openSong(path) : openSound(path))
        return true;
    close();
    return false;
}

void Audition::close()
{
    player.reset();
    length = loopFrom = loopTo = restPosition = 0;
    loopIsMarked = false;
    paused = false;
}

bool Audition::openSong(WStringView path)
{
    auto midi = std::make_unique<Midi>(output);
    try {
        midi->open(path);
    } catch (const Exception& fault) {
        error = fault.getMessage();
        return false;
    }
    const MidiSong& song = midi->getSong();
    length = loopTo = song.end;
    loopIsMarked = song.loopStart.has_value();
    loopFrom = song.loopStart.value_or(0);
    player = std::move(midi);
    return true;
}

bool Audition::openSound(WStringView path)
{
    auto sound = std::make_unique<AudioPlayer>(nullptr, output);
    if (!sound->open(path)) {
        error = sound->getLastError();
        return false;
    }
    const PCMDecoder& decoder = *sound->getDecoder();
    length = loopTo = decoder.getDurationMilliseconds();
    loopIsMarked = decoder.loopStart != 0 || decoder.loopLength != 0;
    loopFrom = decoder.toMilliseconds(decoder.loopStart);
    if (decoder.loopLength != 0)
        loopTo = std::min(length, loopFrom + decoder.toMilliseconds(decoder.loopLength));
    player = std::move(sound);
    return true;
}

void Audition::startAt(std::uint32_t milliseconds, bool loop)
{
    if (!player)
        return;
    player->stop();
    player->setVolume(volume);
    player->setLoop(loop);
    player->seek(std::min(milliseconds, length));
    player->start();
    paused = false;
    restPosition = 0;
}

void Audition::play()
{
    startAt(position(), false);
}

void Audition::playSeam()
{
    constexpr std::uint32_t kBefore = 2000;
    startAt(loopTo - std::min(loopTo, kBefore), true);
}

void Audition::stop()
{
    if (player)
        player->stop();
    paused = false;
    restPosition = 0;
}

void Audition::pause()
{
    if (!player || !player->isPlaying() || paused)
        return;
    paused = true;
    restPosition = player->getPosition();
    player->pause();
    if (!player->isPaused())
        player->stop(); // a song: it starts again from there
}

void Audition::resume()
{
    if (!player || !paused)
        return;
    paused = false;
    if (player->isPaused()) {
        player->resume();
    } else {
        player->seek(restPosition);
        player->start();
    }
    restPosition = 0;
}

bool Audition::isPlaying() const
{
    return paused || (player && player->isPlaying());
}

bool Audition::isPaused() const
{
    return paused;
}

std::uint32_t Audition::position() const
{
    return player && player->isPlaying() && !paused ? player->getPosition() : restPosition;
}

void Audition::seek(std::uint32_t milliseconds)
{
    if (!player)
        return;
    const std::uint32_t place = std::min(milliseconds, length);
    if (player->isPlaying())
        player->seek(place);
    if (paused || !player->isPlaying())
        restPosition = place;
}

float Audition::level() const
{
    return player && !paused ? player->getLevel() : 0;
}

void Audition::setVolume(int percent)
{
    volume = percent;
    if (player)
        player->setVolume(percent);
}

} // namespace varn
