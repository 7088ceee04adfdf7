#pragma once

#include "Input/InputState.h"

#include <memory>

namespace varn {

/// The pads of this machine, also those that are plugged in later. Used by one thread, the one that
/// made it.
class Joystick
{
  public:
    virtual ~Joystick() = default;

    /// The pads as they stand now; sticks count as directions beyond half of their way.
    virtual PadState poll() = 0;
};

/// Loads the pad library at the first call.
/// @throws Exception  it is not installed beside the program, or cannot be started
std::unique_ptr<Joystick> makeJoystick();

} // namespace varn
