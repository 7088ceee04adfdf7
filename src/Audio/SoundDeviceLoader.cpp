#include "Audio/SoundDevice.h"
#include "Util/Exception.h"
#include "Util/Module.h"

#include <cstdlib>

namespace varn {

namespace {

/// @param symbol  a function of the module that holds the sound library
template <class Made>
Made* loadMaker(const char* symbol)
{
    // Nobody but us tells faults. The library reads this when it is loaded.
    static const int quiet = ::setenv("ALSOFT_LOGLEVEL", "0", 0);
    static_cast<void>(quiet);
    return reinterpret_cast<Made*>(loadModule("libvarnsound.so", symbol, u"sound library"));
}

} // namespace

std::unique_ptr<SoundDevice> openSoundDevice()
{
    static const auto make = loadMaker<SoundDevice*()>("varnOpenSoundDevice");
    std::unique_ptr<SoundDevice> device(make());
    if (!device)
        throw Exception(u"No sound device opens.");
    return device;
}

std::unique_ptr<LoopbackDevice> openLoopbackDevice(std::uint32_t samplesPerSecond)
{
    static const auto make = loadMaker<LoopbackDevice*(std::uint32_t)>("varnOpenLoopbackDevice");
    std::unique_ptr<LoopbackDevice> device(make(samplesPerSecond));
    if (!device)
        throw Exception(u"The sound library renders nothing.");
    return device;
}

} // namespace varn
