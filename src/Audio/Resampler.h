#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace varn {

/// Brings interleaved stereo, 16 bits, from one rate to another as it streams: band-limited
/// interpolation with a Kaiser-windowed sinc (J. O. Smith, "Digital Audio Resampling Home Page",
/// 2002). Frame n of the output sounds at the time n / toRate, from the first one on; equal rates
/// pass every sample as it is.
class Resampler
{
  public:
    /// Rates in frames a second, above 0.
    Resampler(std::uint32_t fromRate, std::uint32_t toRate);

    /// Appends to `out` what can be told so far; what lies within the filter's reach comes later.
    void process(std::span<const std::int16_t> in, std::vector<std::int16_t>& out);
    /// Appends the rest: what was given is over.
    void finish(std::vector<std::int16_t>& out);
    /// Forgets what was given.
    void reset();

  private:
    void appendFrames(std::uint64_t most, std::vector<std::int16_t>& out);
    void appendFrame(std::vector<std::int16_t>& out) const;

    std::uint32_t fromRate, toRate;
    std::size_t half = 0;       // frames that the filter reaches to either side
    std::vector<float> table;   // kPhases + 1 rows of 2 * half weights, a row for each fraction
    std::vector<float> window;  // the stereo frames in reach of the next output frame and behind
    std::size_t at = 0;         // frame of `window` where the next output's reach begins
    std::uint64_t fraction = 0; // of the next output's time, in frames / toRate
    std::uint64_t given = 0;    // frames
    std::uint64_t taken = 0;    // frames of output
};

} // namespace varn
