#pragma once

#include "Audio/SoundDevice.h"

#include <chrono>
#include <functional>
#include <mutex>
#include <vector>

namespace varn {

/// The way of all players to the machine's sound device. The device is opened by the first voice.
/// Where none opens, or it vanishes, a silent clock takes its place, and the log says so once; with
/// a device that vanished, a later voice tries the machine's again. Any thread may call.
class SoundOutput
{
  public:
    using OpenDevice = std::function<std::unique_ptr<SoundDevice>()>;

    /// @param openDevice  may throw an Exception: there is none
    explicit SoundOutput(OpenDevice openDevice = openSoundDevice)
        : openDevice(std::move(openDevice))
    {}

    struct Opened
    {
        SoundDevice* device = nullptr; ///< lives as long as the output
        std::unique_ptr<SoundVoice> voice;
    };
    /// Always gives a voice; a first one may take as long as a device takes to open.
    Opened openVoice();

    /// A voice found its device gone.
    void deviceVanished(const SoundDevice& device);

  private:
    void ensureDevice();

    OpenDevice openDevice;

    std::mutex deviceLock; // guards all below; held while a device opens
    // The last is in use. Those that vanished stay for the voices on them.
    std::vector<std::unique_ptr<SoundDevice>> devices;
    bool vanished = false; // the last one did
    std::chrono::steady_clock::time_point lastTry;
};

/// The process-wide output, on the machine's device.
SoundOutput& soundOutput();

} // namespace varn
