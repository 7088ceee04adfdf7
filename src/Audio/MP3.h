#pragma once

#include "Audio/BaseAudioPlayer.h"

namespace varn {

/// The media player for ".mp3" music. A song takes a while to decode, so `open` only looks at its
/// head; all else that concerns the file is done on the player's thread.
class MP3 final : public BaseAudioPlayer
{
  public:
    explicit MP3(SoundOutput& output);
    ~MP3() override { endThread(); }

    /// Reads the file and looks at its first frame; false where there is none.
    bool open(WStringView path) override;

  protected:
    bool isReady() const override { return !path.empty(); }
    /// Decodes the file at the first start. False, with a line in the log: it cannot be; or it has
    /// no length.
    bool prepare() override;

  private:
    WString path;          // of what is open; empty: nothing is
    std::string fileBytes; // until the thread decodes them
};

} // namespace varn
