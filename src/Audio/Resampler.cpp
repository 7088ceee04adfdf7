#include "Audio/Resampler.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace varn {

namespace {

constexpr std::size_t kPhases = 512; // between two of them the weights go straight
constexpr std::size_t kReach = 24;   // zero crossings to either side
constexpr double kPassBand = 0.94;   // of the lower rate's half
constexpr double kBeta = 9.0;        // of the window: 90 dB down beside the band

/// The modified Bessel function of the first kind, order 0, by its power series.
double bessel0(double x)
{
    double sum = 1, term = 1;
    for (int k = 1; term > sum * 1e-12; ++k) {
        term *= (x / (2 * k)) * (x / (2 * k));
        sum += term;
    }
    return sum;
}

double sinc(double x)
{
    const double angle = std::numbers::pi * x;
    return x == 0 ? 1 : std::sin(angle) / angle;
}

double kaiser(double x) // -1 to 1
{
    return std::abs(x) >= 1 ? 0 : bessel0(kBeta * std::sqrt(1 - x * x)) / bessel0(kBeta);
}

} // namespace

Resampler::Resampler(std::uint32_t fromRate, std::uint32_t toRate)
    : fromRate(fromRate), toRate(toRate)
{
    if (fromRate == toRate)
        return;
    const double band = kPassBand * std::min(1.0, static_cast<double>(toRate) / fromRate);
    half = static_cast<std::size_t>(std::ceil(static_cast<double>(kReach) / band));
    table.resize((kPhases + 1) * 2 * half);
    for (std::size_t phase = 0; phase <= kPhases; ++phase) {
        float* const row = &table[phase * 2 * half];
        double sum = 0;
        for (std::size_t i = 0; i < 2 * half; ++i) {
            const double distance = static_cast<double>(i) - static_cast<double>(half - 1) -
                                    static_cast<double>(phase) / kPhases;
            row[i] = static_cast<float>(band * sinc(band * distance) *
                                        kaiser(distance / static_cast<double>(half)));
            sum += row[i];
        }
        for (std::size_t i = 0; i < 2 * half; ++i)
            row[i] /= static_cast<float>(sum); // a steady level stays what it is at every phase
    }
    reset();
}

void Resampler::reset()
{
    window.assign(half == 0 ? 0 : (half - 1) * 2, 0.0F);
    at = 0;
    fraction = 0;
    given = 0;
    taken = 0;
}

void Resampler::process(std::span<const std::int16_t> in, std::vector<std::int16_t>& out)
{
    if (half == 0) {
        out.insert(out.end(), in.begin(), in.end());
        return;
    }
    given += in.size() / 2;
    window.insert(window.end(), in.begin(), in.end());
    appendFrames(UINT64_MAX, out);
    const std::size_t behind = std::min(at, window.size() / 2);
    window.erase(window.begin(), window.begin() + static_cast<std::ptrdiff_t>(behind * 2));
    at -= behind;
}

void Resampler::finish(std::vector<std::int16_t>& out)
{
    if (half == 0)
        return;
    const std::uint64_t due = (given * toRate + fromRate - 1) / fromRate;
    window.resize((at + 2 * half + (due - taken) * fromRate / toRate + 1) * 2);
    appendFrames(due, out);
    reset();
}

void Resampler::appendFrames(std::uint64_t most, std::vector<std::int16_t>& out)
{
    while (taken < most && (at + 2 * half) * 2 <= window.size()) {
        appendFrame(out);
        ++taken;
        fraction += fromRate;
        at += static_cast<std::size_t>(fraction / toRate);
        fraction %= toRate;
    }
}

void Resampler::appendFrame(std::vector<std::int16_t>& out) const
{
    const double phase = static_cast<double>(fraction) * kPhases / toRate;
    const auto row = static_cast<std::size_t>(phase);
    const float share = static_cast<float>(phase - static_cast<double>(row));
    const float* const weights = &table[row * 2 * half];
    const float* const next = weights + 2 * half;
    const float* const frames = &window[at * 2];
    float left = 0, right = 0;
    for (std::size_t i = 0; i < 2 * half; ++i) {
        const float weight = weights[i] + (next[i] - weights[i]) * share;
        left += weight * frames[i * 2];
        right += weight * frames[i * 2 + 1];
    }
    for (const float value : {left, right})
        out.push_back(
            static_cast<std::int16_t>(std::lrint(std::clamp(value, -32768.0F, 32767.0F))));
}

} // namespace varn
