#include "Audio/AudioManager.h"

#include "Audio/SoundOutput.h"

namespace varn {

AudioManager::AudioManager(SoundOutput& output, Folders folders)
    : channels{Audio(std::move(folders[0]), output), Audio(std::move(folders[1]), output),
               Audio(std::move(folders[2]), output)}
{}

AudioManager& AudioManager::instance()
{
    static AudioManager manager(soundOutput()); // made behind the output, so it goes before it
    return manager;
}

WString AudioManager::playMusic(WStringView name, int loopMode)
{
    return getChannel(Channel::BGM).playMusic(name, loopMode);
}

WString AudioManager::playBGS(WStringView name, int loopMode)
{
    return getChannel(Channel::BGS).playMusic(name, loopMode);
}

void AudioManager::playSound(WStringView name, bool wait, const std::function<bool()>& keepWaiting)
{
    getChannel(Channel::SE).playSound(name, wait, keepWaiting);
}

void AudioManager::stopMusic()
{
    getChannel(Channel::BGM).stopMusic();
}

void AudioManager::stopBGS()
{
    getChannel(Channel::BGS).stopMusic();
}

void AudioManager::stopSound()
{
    getChannel(Channel::SE).stopSound();
}

void AudioManager::stopAll()
{
    stopMusic();
    stopBGS();
    stopSound();
}

WString AudioManager::getMusicPath() const
{
    return getChannel(Channel::BGM).getMusicPath();
}

bool AudioManager::isMusicPlaying() const
{
    return getChannel(Channel::BGM).isMusicPlaying();
}

std::uint32_t AudioManager::getMusicCurrentPosition() const
{
    return getChannel(Channel::BGM).getMusicCurrentPosition();
}

void AudioManager::setMusicCurrentPosition(std::uint32_t milliseconds)
{
    getChannel(Channel::BGM).setMusicCurrentPosition(milliseconds);
}

void AudioManager::setMusicEnabled(bool enabled)
{
    getChannel(Channel::BGM).setMusicEnabled(enabled);
    getChannel(Channel::BGS).setMusicEnabled(enabled);
}

void AudioManager::setSoundEnabled(bool enabled)
{
    getChannel(Channel::SE).setSoundEnabled(enabled);
}

void AudioManager::setVolume(int percent)
{
    for (Audio& channel : channels)
        channel.setVolume(percent);
}

} // namespace varn
