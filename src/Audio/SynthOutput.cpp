// The one file that knows the synthesizer library. It is built as a library of its own, which
// Synth.h's makeSynth() loads when a song is played.
#include "Audio/Synth.h"

#include <algorithm>
#include <cmath>
#include <fluidsynth.h>
#include <optional>

namespace varn {

namespace {

struct Delete
{
    void operator()(fluid_settings_t* settings) const { delete_fluid_settings(settings); }
    void operator()(fluid_synth_t* synth) const { delete_fluid_synth(synth); }
};

/// The volume of the universal real-time message "master volume" (7F, device, 04 01, low, high),
/// from 0 to 1; nothing: it is another message. The library does not know it.
std::optional<float> masterVolume(ByteSpan message)
{
    const std::string_view text = asChars(message);
    if (text.size() < 7 || text[1] != '\x7F' || text[3] != '\x04' || text[4] != '\x01')
        return std::nullopt;
    const int value = (text[6] & 0x7F) << 7 | (text[5] & 0x7F);
    return static_cast<float>(value) / 16383.0F;
}

class FluidSynth final : public Synth
{
  public:
    /// False: there is no sound font.
    bool open()
    {
        fluid_set_log_function(FLUID_WARN, nullptr, nullptr);
        fluid_set_log_function(FLUID_ERR, nullptr, nullptr);
        settings.reset(new_fluid_settings());
        fluid_settings_setnum(settings.get(), "synth.sample-rate", kSamplesPerSecond);
        fluid_settings_setstr(settings.get(), "synth.midi-bank-select", "gs");
        fluid_settings_setint(settings.get(), "synth.device-id", 16);
        fluid_settings_setint(settings.get(), "synth.cpu-cores", 1);
        // An orchestra with all that still rings; more are not told apart, and cost.
        fluid_settings_setint(settings.get(), "synth.polyphony", 64);
        // Beside sound effects the library's own 0.2 is too soft; a full orchestra stays below 1.
        fluid_settings_setnum(settings.get(), "synth.gain", 0.7);
        synth.reset(new_fluid_synth(settings.get()));
        char* font = nullptr;
        fluid_settings_dupstr(settings.get(), "synth.default-soundfont", &font);
        const bool loaded =
            font && synth && fluid_synth_sfload(synth.get(), font, 1) != FLUID_FAILED;
        fluid_free(font);
        return loaded;
    }

    void shortMessage(std::uint8_t status, std::uint8_t data1, std::uint8_t data2) override
    {
        const int channel = status & 0x0F;
        switch (status & 0xF0) {
        case 0x80:
            fluid_synth_noteoff(synth.get(), channel, data1);
            break;
        case 0x90:
            fluid_synth_noteon(synth.get(), channel, data1, data2);
            break;
        case 0xA0:
            fluid_synth_key_pressure(synth.get(), channel, data1, data2);
            break;
        case 0xB0:
            fluid_synth_cc(synth.get(), channel, data1, data2);
            break;
        case 0xC0:
            fluid_synth_program_change(synth.get(), channel, data1);
            break;
        case 0xD0:
            fluid_synth_channel_pressure(synth.get(), channel, data1);
            break;
        case 0xE0:
            fluid_synth_pitch_bend(synth.get(), channel, data2 << 7 | data1);
            break;
        default: // of the system, without a meaning for a synthesizer
            break;
        }
    }

    void longMessage(ByteSpan message) override
    {
        if (const auto volume = masterVolume(message)) {
            gain = *volume;
            return;
        }
        const std::string_view body = asChars(message).substr(1);
        const bool isClosed = body.ends_with('\xF7');
        fluid_synth_sysex(synth.get(), body.data(), static_cast<int>(body.size() - isClosed),
                          nullptr, nullptr, nullptr, 0);
    }

    void reset() override
    {
        fluid_synth_system_reset(synth.get());
        gain = 1;
    }

    void render(std::span<std::int16_t> samples) override
    {
        constexpr std::size_t kBlock = 64; // frames, the library's own step
        float block[kBlock * kChannels];
        for (std::size_t at = 0; at < samples.size();) {
            const std::size_t count = std::min(kBlock, (samples.size() - at) / kChannels);
            if (count == 0)
                return;
            fluid_synth_write_float(synth.get(), static_cast<int>(count), block, 0, kChannels,
                                    block, 1, kChannels);
            for (std::size_t i = 0; i < count * kChannels; ++i)
                samples[at + i] = toSample(block[i] * gain);
            at += count * kChannels;
        }
    }

  private:
    static std::int16_t toSample(float value)
    {
        return static_cast<std::int16_t>(
            std::lrint(std::clamp(value * 32768.0F, -32768.0F, 32767.0F)));
    }

    std::unique_ptr<fluid_settings_t, Delete> settings; // outlives the synthesizer
    std::unique_ptr<fluid_synth_t, Delete> synth;
    float gain = 1;
};

} // namespace

extern "C" __attribute__((visibility("default"))) Synth* varnMakeSynth()
{
    auto synth = std::make_unique<FluidSynth>();
    return synth->open() ? synth.release() : nullptr;
}

} // namespace varn
