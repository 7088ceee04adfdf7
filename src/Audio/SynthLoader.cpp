#include "Audio/Synth.h"
#include "Util/Module.h"

namespace varn {

std::unique_ptr<Synth> makeSynth()
{
    using Make = Synth* (*)();
    static const auto make =
        reinterpret_cast<Make>(loadModule("libvarnsynth.so", "varnMakeSynth", u"sound library"));
    std::unique_ptr<Synth> synth(make());
    if (!synth)
        throw Exception(u"Couldn't load a sound font for MIDI songs.");
    return synth;
}

} // namespace varn
