#pragma once

#include "Audio/MidiSequencer.h"

#include <memory>

namespace varn {

/// A synthesizer that renders into our own samples.
class Synth : public MidiOutput
{
  public:
    static constexpr std::uint32_t kSamplesPerSecond = 44100;
    static constexpr std::uint32_t kChannels = 2;

    /// As it was made: silent, every channel as a new song expects it.
    virtual void reset() = 0;
    /// Goes on by as many frames as `samples` holds; interleaved stereo.
    virtual void render(std::span<std::int16_t> samples) = 0;
};

/// A synthesizer with the machine's sound font, as the package of the library names it.
/// @throws Exception  there is none
std::unique_ptr<Synth> makeSynth();

} // namespace varn
