// The one file that knows the sound library. It is built as a library of its own, which
// SoundDevice.h's openSoundDevice() loads when the first sound is played.
#include "Audio/SoundDevice.h"

#define AL_ALEXT_PROTOTYPES
#include <AL/al.h>
#include <AL/alc.h>
#include <AL/alext.h>
#include <algorithm>
#include <deque>
#include <dlfcn.h>
#include <vector>

namespace varn {

namespace {

struct Close
{
    void operator()(ALCdevice* device) const { alcCloseDevice(device); }
    void operator()(ALCcontext* context) const { alcDestroyContext(context); }
};

/// A device of the library with the context that all voices are in.
struct Mixer
{
    std::unique_ptr<ALCdevice, Close> device; // outlives the context
    std::unique_ptr<ALCcontext, Close> context;
    std::uint32_t samplesPerSecond = 0;

    bool isConnected() const
    {
        ALCint connected = ALC_TRUE;
        alcGetIntegerv(device.get(), ALC_CONNECTED, 1, &connected);
        return connected != ALC_FALSE;
    }
};

/// Puts a context in force on the thread that calls.
class InContext
{
  public:
    explicit InContext(const Mixer& mixer) { alcSetThreadContext(mixer.context.get()); }
    ~InContext() { alcSetThreadContext(nullptr); }
    InContext(const InContext&) = delete;
    InContext& operator=(const InContext&) = delete;
};

/// A streaming source. Sample for sample: its channels go straight to the two speakers.
class Voice final : public SoundVoice
{
  public:
    /// Nothing: there are no more sources.
    static std::unique_ptr<Voice> open(const Mixer& mixer)
    {
        const InContext in(mixer);
        alGetError();
        ALuint source = 0;
        alGenSources(1, &source);
        if (alGetError() != AL_NO_ERROR)
            return nullptr;
        alSourcei(source, AL_DIRECT_CHANNELS_SOFT, AL_TRUE);
        return std::unique_ptr<Voice>(new Voice(mixer, source));
    }
    ~Voice() override
    {
        const InContext in(mixer);
        dropAll();
        alDeleteSources(1, &source);
        alDeleteBuffers(static_cast<ALsizei>(spare.size()), spare.data());
    }
    Voice(const Voice&) = delete;
    Voice& operator=(const Voice&) = delete;

    bool write(std::span<const std::int16_t> samples) override
    {
        const InContext in(mixer);
        collect();
        const ALuint buffer = takeBuffer();
        alGetError();
        alBufferData(buffer, AL_FORMAT_STEREO16, samples.data(),
                     static_cast<ALsizei>(samples.size_bytes()),
                     static_cast<ALsizei>(mixer.samplesPerSecond));
        alSourceQueueBuffers(source, 1, &buffer);
        queue.push_back({buffer, samples.size() / 2});
        if (alGetError() != AL_NO_ERROR || !mixer.isConnected())
            return false;
        requeueIfLate();
        if (!paused && state() != AL_PLAYING)
            alSourcePlay(source);
        return true;
    }

    std::optional<std::uint64_t> heard() override
    {
        const InContext in(mixer);
        if (!mixer.isConnected())
            return std::nullopt;
        collect();
        ALint offset = 0;
        alGetSourcei(source, AL_SAMPLE_OFFSET, &offset);
        if (offset == 0)
            collect(); // it may have come to its end between the two
        return past + static_cast<std::uint64_t>(offset);
    }

    void pause() override
    {
        const InContext in(mixer);
        paused = true;
        alSourcePause(source);
    }
    void resume() override
    {
        const InContext in(mixer);
        paused = false;
        collect();
        if (!queue.empty() && state() != AL_PLAYING)
            alSourcePlay(source);
    }
    void reset() override
    {
        const InContext in(mixer);
        dropAll();
        past = 0;
    }

  private:
    struct Queued
    {
        ALuint buffer;
        std::uint64_t frames;
    };

    Voice(const Mixer& mixer, ALuint source) : mixer(mixer), source(source) {}

    ALint state() const
    {
        ALint now = AL_INITIAL;
        alGetSourcei(source, AL_SOURCE_STATE, &now);
        return now;
    }
    ALuint takeBuffer()
    {
        ALuint buffer = 0;
        if (spare.empty()) {
            alGenBuffers(1, &buffer);
        } else {
            buffer = spare.back();
            spare.pop_back();
        }
        return buffer;
    }
    void takeBack(ALint count)
    {
        for (; count > 0 && !queue.empty(); --count) {
            ALuint buffer = 0;
            alSourceUnqueueBuffers(source, 1, &buffer);
            past += queue.front().frames;
            spare.push_back(queue.front().buffer);
            queue.pop_front();
        }
    }
    /// Takes back what was heard. A source that ran dry would start again with what it still
    /// holds, so it is rewound when it is empty.
    void collect()
    {
        ALint processed = 0;
        alGetSourcei(source, AL_BUFFERS_PROCESSED, &processed);
        takeBack(processed);
        if (queue.empty() && state() == AL_STOPPED)
            alSourceRewind(source);
    }
    /// The source ran dry while a buffer came: that one counts as heard too, and must be put in
    /// again.
    void requeueIfLate()
    {
        if (state() != AL_STOPPED)
            return;
        const Queued late = queue.back();
        takeBack(static_cast<ALint>(queue.size()));
        past -= late.frames;
        spare.pop_back();
        alSourceRewind(source);
        alSourceQueueBuffers(source, 1, &late.buffer);
        queue.push_back(late);
    }
    void dropAll()
    {
        alSourceStop(source);
        alSourcei(source, AL_BUFFER, 0);
        alSourceRewind(source);
        for (const Queued& each : queue)
            spare.push_back(each.buffer);
        queue.clear();
    }

    const Mixer& mixer;
    ALuint source;
    std::deque<Queued> queue;
    std::vector<ALuint> spare;
    std::uint64_t past = 0; // frames of the buffers taken back
    bool paused = false;
};

/// The mixing adds and does nothing else: no limiter, no virtual speakers.
bool makeContext(Mixer& mixer, std::initializer_list<ALCint> more)
{
    std::vector<ALCint> attributes(more);
    for (const ALCint each : {ALC_OUTPUT_LIMITER_SOFT, ALC_FALSE, ALC_HRTF_SOFT, ALC_FALSE, 0})
        attributes.push_back(each);
    mixer.context.reset(alcCreateContext(mixer.device.get(), attributes.data()));
    if (!mixer.context)
        return false;
    ALCint rate = 0;
    alcGetIntegerv(mixer.device.get(), ALC_FREQUENCY, 1, &rate);
    mixer.samplesPerSecond = static_cast<std::uint32_t>(rate);
    return rate > 0;
}

class Device final : public SoundDevice
{
  public:
    bool open()
    {
        // Songs and most sounds are at this rate. Short steps of the mixer make a stop prompt;
        // version 1.19 of the library takes 1024 frames all the same.
        constexpr ALCint kRate = 44100, kStepsPerSecond = 100;
        mixer.device.reset(alcOpenDevice(nullptr));
        return mixer.device &&
               makeContext(mixer, {ALC_FREQUENCY, kRate, ALC_REFRESH, kStepsPerSecond});
    }
    std::uint32_t samplesPerSecond() const override { return mixer.samplesPerSecond; }
    std::unique_ptr<SoundVoice> openVoice() override
    {
        return mixer.isConnected() ? Voice::open(mixer) : nullptr;
    }

  private:
    Mixer mixer;
};

class Loopback final : public LoopbackDevice
{
  public:
    bool open(std::uint32_t rate)
    {
        mixer.device.reset(alcLoopbackOpenDeviceSOFT(nullptr));
        return mixer.device && makeContext(mixer, {ALC_FREQUENCY, static_cast<ALCint>(rate),
                                                   ALC_FORMAT_CHANNELS_SOFT, ALC_STEREO_SOFT,
                                                   ALC_FORMAT_TYPE_SOFT, ALC_FLOAT_SOFT});
    }
    std::uint32_t samplesPerSecond() const override { return mixer.samplesPerSecond; }
    std::unique_ptr<SoundVoice> openVoice() override { return Voice::open(mixer); }
    /// It goes as fast as it is read.
    std::chrono::nanoseconds timeOf(std::uint64_t frames) const override
    {
        return std::min(SoundDevice::timeOf(frames), std::chrono::nanoseconds(500'000));
    }
    void render(std::span<float> samples) override
    {
        alcRenderSamplesSOFT(mixer.device.get(), samples.data(),
                             static_cast<ALCsizei>(samples.size() / 2));
    }

  private:
    Mixer mixer;
};

void ignoreMessage(const char*, int, const char*, int, const char*, ...) {}

/// The system's sound layer below the library prints what it misses; the log tells it already.
void silenceSystemLayer()
{
    using Handler = void (*)(const char*, int, const char*, int, const char*, ...);
    using SetHandler = int (*)(Handler);
    void* const layer = ::dlopen("libasound.so.2", RTLD_NOW | RTLD_LOCAL);
    if (!layer)
        return;
    if (void* const set = ::dlsym(layer, "snd_lib_error_set_handler"))
        reinterpret_cast<SetHandler>(set)(ignoreMessage);
}

} // namespace

extern "C" __attribute__((visibility("default"))) SoundDevice* varnOpenSoundDevice()
{
    silenceSystemLayer();
    auto device = std::make_unique<Device>();
    return device->open() ? device.release() : nullptr;
}

extern "C" __attribute__((visibility("default"))) LoopbackDevice*
varnOpenLoopbackDevice(std::uint32_t samplesPerSecond)
{
    auto device = std::make_unique<Loopback>();
    return device->open(samplesPerSecond) ? device.release() : nullptr;
}

} // namespace varn
