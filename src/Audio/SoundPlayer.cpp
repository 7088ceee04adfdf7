#include "Audio/SoundPlayer.h"

namespace varn {

bool SoundPlayer::open(WStringView path)
{
    auto player = std::make_unique<AudioPlayer>(nullptr, output);
    if (!player->open(path))
        return failOpening(path);
    player->setVolume(volume);
    player->setNotify(this);
    next = std::move(player);
    return true;
}

bool SoundPlayer::start()
{
    if (!next || !next->start())
        return false;
    collect();
    players.push_back(std::move(next));
    return true;
}

std::unique_ptr<AudioPlayer> SoundPlayer::startAlone(WStringView path)
{
    if (!open(path) || !next->start())
        return nullptr;
    collect();
    return std::move(next);
}

void SoundPlayer::collect()
{
    std::erase_if(players, [](const auto& player) { return !player->isPlaying(); });
    if (players.size() >= kMostPlayers)
        players.erase(players.begin());
}

void SoundPlayer::stop()
{
    for (const auto& player : players)
        player->stop();
    players.clear();
}

void SoundPlayer::pause()
{
    for (const auto& player : players)
        player->pause();
}

void SoundPlayer::resume()
{
    for (const auto& player : players)
        player->resume();
}

bool SoundPlayer::isPlaying() const
{
    return std::any_of(players.begin(), players.end(),
                       [](const auto& player) { return player->isPlaying(); });
}

bool SoundPlayer::isPaused() const
{
    return std::any_of(players.begin(), players.end(),
                       [](const auto& player) { return player->isPaused(); });
}

std::uint32_t SoundPlayer::getPosition()
{
    return players.empty() ? 0 : players.back()->getPosition();
}

float SoundPlayer::getLevel()
{
    float loudest = 0;
    for (const auto& player : players)
        loudest = std::max(loudest, player->getLevel());
    return loudest;
}

void SoundPlayer::playerChanged(IAudioPlayer& player, AudioNotice notice)
{
    if (AudioPlayerListener* const listener = getNotify())
        listener->playerChanged(player, notice);
}

} // namespace varn
