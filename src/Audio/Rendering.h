#pragma once

#include "Audio/MidiFile.h"
#include "Audio/PCMDecoder.h"

#include <optional>

namespace varn {

/// How a sound is rendered into a wave file: by the code that plays it, as fast as it goes.
struct RenderOptions
{
    std::optional<double> seconds; ///< the longest; nothing: to the end, which a loop never reaches
    bool loop = false;
    int volume = 100;
};

/// Fills half-second buffers as a player does; gives the wave file.
std::string renderSound(PCMDecoder& decoder, const RenderOptions& options);

/// Plays a song through the synthesizer; gives the wave file, 16 bits, stereo.
/// @throws Exception  there is no synthesizer
std::string renderSong(const MidiSong& song, const RenderOptions& options);

} // namespace varn
