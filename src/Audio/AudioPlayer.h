#pragma once

#include "Audio/BaseAudioPlayer.h"

namespace varn {

/// Plays files of one kind, or of any, which `open` decodes or is ready to.
class AudioPlayer final : public BaseAudioPlayer
{
  public:
    /// @param decoder  nothing: each file gets the one for its extension
    AudioPlayer(std::unique_ptr<PCMDecoder> decoder, SoundOutput& output)
        : BaseAudioPlayer(std::move(decoder), output), choosesDecoder(!this->decoder)
    {}
    ~AudioPlayer() override { endThread(); }

    bool open(WStringView path) override;

    /// Of what is open; nothing before. For those who ask what it is, while it is idle.
    const PCMDecoder* getDecoder() const { return decoder.get(); }

  protected:
    bool isReady() const override { return decoder && decoder->isOpen(); }

  private:
    bool choosesDecoder;
};

} // namespace varn
