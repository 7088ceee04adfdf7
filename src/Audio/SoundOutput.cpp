#include "Audio/SoundOutput.h"

#include "Audio/SilentDevice.h"
#include "Util/Exception.h"
#include "Util/FileLogger.h"

namespace varn {

SoundOutput& soundOutput()
{
    static SoundOutput output;
    return output;
}

SoundOutput::Opened SoundOutput::openVoice()
{
    const std::lock_guard lock(deviceLock);
    ensureDevice();
    SoundDevice& device = *devices.back();
    if (auto voice = device.openVoice())
        return {&device, std::move(voice)};
    // All of its voices sound, or it has just vanished.
    return {&device, std::make_unique<SilentVoice>(device.samplesPerSecond())};
}

void SoundOutput::deviceVanished(const SoundDevice& device)
{
    const std::lock_guard lock(deviceLock);
    if (vanished || devices.back().get() != &device)
        return;
    vanished = true;
    FileLogger::instance().write(u"The sound device is gone. What plays goes on silently.");
}

void SoundOutput::ensureDevice()
{
    // A device that is being plugged in needs a moment, and so does each try.
    constexpr std::chrono::seconds kBetweenTries(2);
    const auto now = std::chrono::steady_clock::now();
    if (!devices.empty() && (!vanished || now - lastTry < kBetweenTries))
        return;
    lastTry = now;
    try {
        devices.push_back(openDevice());
        vanished = false;
    } catch (const Exception& fault) {
        if (!devices.empty())
            return; // said when it vanished
        FileLogger::instance().write(fault.getMessage() + u" What plays goes on silently.");
        devices.push_back(std::make_unique<SilentDevice>());
    }
}

} // namespace varn
