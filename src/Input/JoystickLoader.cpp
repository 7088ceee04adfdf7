#include "Input/Joystick.h"
#include "Util/Exception.h"
#include "Util/Module.h"

namespace varn {

std::unique_ptr<Joystick> makeJoystick()
{
    using Make = Joystick* (*)();
    static const auto make = reinterpret_cast<Make>(
        loadModule("libvarnjoystick.so", "varnMakeJoystick", u"pad library"));
    std::unique_ptr<Joystick> joystick(make());
    if (!joystick)
        throw Exception(u"Couldn't start the pad library.");
    return joystick;
}

} // namespace varn
