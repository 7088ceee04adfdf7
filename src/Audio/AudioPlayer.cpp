#include "Audio/AudioPlayer.h"

namespace varn {

bool AudioPlayer::open(WStringView path)
{
    forgetCommands();
    if (choosesDecoder)
        decoder = makeDecoder(path);
    if (decoder->open(path) && waveFormat().isPlayable())
        return true;
    decoder->close();
    return failOpening(path);
}

} // namespace varn
