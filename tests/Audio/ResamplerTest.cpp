#include "Audio/Resampler.h"
#include "TestSound.h"

#include <gtest/gtest.h>

namespace varn::test {

namespace {

using Samples = std::vector<std::int16_t>;

Samples stereo(const Samples& mono)
{
    Samples both;
    for (const std::int16_t sample : mono)
        both.insert(both.end(), {sample, static_cast<std::int16_t>(-sample)});
    return both;
}

/// Everything, in pieces of so many frames.
Samples resampled(Resampler& resampler, const Samples& in, std::size_t piece)
{
    Samples out;
    for (std::size_t at = 0; at < in.size(); at += piece * 2)
        resampler.process(std::span(in).subspan(at, std::min(piece * 2, in.size() - at)), out);
    resampler.finish(out);
    return out;
}

/// Decibels of the part of a sound that a sine of the same place is not.
/// @param edge  frames at both ends that are not looked at: the filter reaches into silence there
double noiseOf(const Samples& heard, const Samples& wanted, std::size_t edge)
{
    double noise = 0, signal = 0;
    for (std::size_t i = edge; i + edge < wanted.size(); ++i) {
        const double off = heard[i * 2] - wanted[i];
        noise += off * off;
        signal += double{1} * wanted[i] * wanted[i];
    }
    return 10 * std::log10(noise / signal);
}

} // namespace

TEST(Resampler, keepsToneTimeAndLength)
{
    const struct
    {
        std::uint32_t from, to;
        double hertz;
        double mostNoise; ///< decibels
    } cases[] = {
        {44100, 44100, 15000, -200}, {22050, 44100, 997, -78},   {22050, 44100, 9000, -78},
        {11025, 44100, 4500, -78},   {8000, 44100, 3000, -78},   {48000, 44100, 997, -78},
        {48000, 44100, 18000, -78},  {96000, 44100, 18000, -78}, {44100, 48000, 18000, -78},
        {1000, 44100, 300, -78},     {44056, 44100, 12345, -78},
    };
    for (const auto& test : cases) {
        Resampler resampler(test.from, test.to);
        const Samples in = stereo(sine(test.hertz, test.from, 0.5));
        const Samples out = resampled(resampler, in, 1000);
        const Samples wanted = sine(test.hertz, test.to, 0.5);
        ASSERT_NEAR(out.size() / 2, wanted.size(), 1 + test.to / test.from)
            << test.from << " to " << test.to;
        EXPECT_LT(noiseOf(out, wanted, 60 + 30 * (test.to / test.from)), test.mostNoise)
            << test.hertz << " Hz, " << test.from << " to " << test.to;
        EXPECT_EQ(resampled(resampler, in, 77), out) << "in other pieces, after the first run";
    }
}

TEST(Resampler, leavesOutWhatTheLowerRateCannotHold)
{
    Resampler resampler(96000, 44100);
    const Samples out = resampled(resampler, stereo(sine(30000, 96000, 0.5)), 4096);
    for (std::size_t i = 400; i + 400 < out.size(); ++i)
        ASSERT_LE(std::abs(out[i]), 3);
}

} // namespace varn::test
