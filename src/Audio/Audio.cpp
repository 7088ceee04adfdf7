#include "Audio/Audio.h"

#include "Audio/AudioPlayer.h"
#include "Audio/FileSearch.h"
#include "Audio/MP3.h"
#include "Audio/MP3Decoder.h"
#include "Audio/Midi.h"
#include "Audio/OggDecoder.h"
#include "Audio/SoundPlayer.h"
#include "Audio/WavDecoder.h"
#include "Util/FileLogger.h"
#include "Util/ProjectPath.h"

namespace varn {

namespace {

constexpr int kDepth = 8; // of subfolders that are searched

WStringView extensionOf(WStringView path)
{
    return path.substr(withoutExtension(path).size());
}

/// A name as it is, or with the first of `extensions` that is found, in `folder` or below it.
std::optional<WString> findByName(WStringView folder, WStringView name,
                                  std::initializer_list<WStringView> extensions)
{
    if (isFile(name))
        return WString(name);
    if (!extensionOf(name).empty())
        return findFile(folder, name, kDepth);
    for (const WStringView extension : extensions)
        if (auto found = findFile(folder, WString(name) + WString(extension), kDepth))
            return found;
    return std::nullopt;
}

void logUnplayable(WStringView name)
{
    FileLogger::instance().write(WString(name) + u" Couldn't play this file");
}

} // namespace

Audio::Audio(WString folder, SoundOutput& output)
    : output(output), midiPlayer(std::make_unique<Midi>(output)),
      mp3Player(std::make_unique<MP3>(output)),
      oggPlayer(std::make_unique<AudioPlayer>(std::make_unique<OggDecoder>(), output)),
      wavPlayer(std::make_unique<AudioPlayer>(std::make_unique<WavDecoder>(), output)),
      soundPlayer(std::make_unique<SoundPlayer>(output)), folder(std::move(folder))
{}

Audio::~Audio() = default;

WString Audio::playMusic(WStringView name, int mode)
{
    const std::lock_guard lock(channelLock);
    WString before = currentPath;
    const WString path = name.empty() ? WString() : findMusic(name);
    if (!path.empty() && path == currentPath && musicPlayer && musicPlayer->isPlaying())
        return before;
    stopPlayer();
    lastPath = before;
    currentPath = path;
    loopMode = mode;
    if (musicEnabled && !path.empty())
        startMusic();
    return before;
}

WString Audio::findMusic(WStringView name)
{
    const auto cached = pathCache.find(WString(name));
    if (cached != pathCache.end() && isFile(cached->second))
        return cached->second;
    const auto found = findByName(folder, name, {u".mid", u".mp3", u".ogg"});
    if (!found)
        return WString(name);
    pathCache[WString(name)] = *found;
    return *found;
}

void Audio::startMusic()
{
    const WStringView extension = extensionOf(currentPath);
    const auto is = [&](WStringView other) { return equalsIgnoringAsciiCase(extension, other); };
    const bool plays = is(u".ogg")                   ? playOn(*oggPlayer)
                       : is(u".mid") || is(u".midi") ? playOn(*midiPlayer)
                       : is(u".mp3")                 ? playMp3()
                                                     : is(u".wav") && playOn(*wavPlayer);
    if (!plays)
        logUnplayable(currentPath);
}

bool Audio::playOn(IAudioPlayer& player)
{
    try {
        player.setLoop(loopMode != Once);
        player.setVolume(volume);
        if (!player.play(currentPath))
            return false;
        musicPlayer = &player;
        return true;
    } catch (const Exception& fault) {
        FileLogger::instance().write(fault.getMessage());
        return false;
    }
}

bool Audio::playMp3()
{
    if (playOn(*mp3Player))
        return true;
    if (!mp3FallbackPlayer)
        mp3FallbackPlayer = std::make_unique<AudioPlayer>(std::make_unique<MP3Decoder>(), output);
    return playOn(*mp3FallbackPlayer);
}

void Audio::stopPlayer()
{
    if (musicPlayer)
        musicPlayer->stop();
    musicPlayer = nullptr;
}

void Audio::stopMusic()
{
    playMusic({}, Once);
}

void Audio::playSound(WStringView name, bool wait, const std::function<bool()>& keepWaiting)
{
    std::unique_ptr<AudioPlayer> awaited;
    unsigned stops = 0;
    {
        const std::lock_guard lock(channelLock);
        if (!soundEnabled || name.empty())
            return;
        const WString path = findSound(name);
        soundPlayer->setVolume(volume);
        stops = soundStops;
        if (!wait)
            awaited = soundPlayer->startAlone(path);
        if (wait ? !soundPlayer->play(path) : !awaited)
            logUnplayable(name);
    }
    constexpr int kMostWaits = 3000;
    for (int i = 0; i < kMostWaits && awaited && awaited->isPlaying(); ++i) {
        if (stops != soundStops || (keepWaiting && !keepWaiting()))
            return;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

WString Audio::findSound(WStringView name) const
{
    return findByName(folder, name, {u".wav", u".mp3"}).value_or(WString(name));
}

void Audio::stopSound()
{
    const std::lock_guard lock(channelLock);
    ++soundStops;
    soundPlayer->stop();
}

WString Audio::getMusicPath() const
{
    const std::lock_guard lock(channelLock);
    return currentPath;
}

WString Audio::getLastPath() const
{
    const std::lock_guard lock(channelLock);
    return lastPath;
}

bool Audio::isMusicPlaying() const
{
    const std::lock_guard lock(channelLock);
    return musicPlayer && musicPlayer->isPlaying();
}

void Audio::pauseMusic()
{
    const std::lock_guard lock(channelLock);
    if (musicPlayer)
        musicPlayer->pause();
}

void Audio::resumeMusic()
{
    const std::lock_guard lock(channelLock);
    if (musicPlayer)
        musicPlayer->resume();
}

std::uint32_t Audio::getMusicCurrentPosition() const
{
    const std::lock_guard lock(channelLock);
    return musicPlayer ? musicPlayer->getPosition() : 0;
}

void Audio::setMusicCurrentPosition(std::uint32_t milliseconds)
{
    const std::lock_guard lock(channelLock);
    if (musicPlayer && musicPlayer->isPlaying())
        musicPlayer->seek(milliseconds);
}

void Audio::setMusicEnabled(bool enabled)
{
    const std::lock_guard lock(channelLock);
    if (musicEnabled == enabled)
        return;
    musicEnabled = enabled;
    if (!enabled)
        stopPlayer();
    else if (!currentPath.empty())
        startMusic();
}

void Audio::setSoundEnabled(bool enabled)
{
    {
        const std::lock_guard lock(channelLock);
        soundEnabled = enabled;
    }
    if (!enabled)
        stopSound();
}

bool Audio::isMusicEnabled() const
{
    const std::lock_guard lock(channelLock);
    return musicEnabled;
}

bool Audio::isSoundEnabled() const
{
    const std::lock_guard lock(channelLock);
    return soundEnabled;
}

void Audio::setVolume(int percent)
{
    const std::lock_guard lock(channelLock);
    volume = std::clamp(percent, 0, 100);
    if (musicPlayer)
        musicPlayer->setVolume(volume);
}

int Audio::getVolume() const
{
    const std::lock_guard lock(channelLock);
    return volume;
}

WString Audio::getFolder() const
{
    const std::lock_guard lock(channelLock);
    return folder;
}

void Audio::setFolder(WString next)
{
    const std::lock_guard lock(channelLock);
    folder = std::move(next);
    pathCache.clear();
}

} // namespace varn
