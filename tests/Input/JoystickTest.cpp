#include "Input/Joystick.h"

#include <SDL.h>
#include <gtest/gtest.h>

namespace varn::test {
namespace {

/// A pad that exists in the library only, plugged in from construction to destruction.
class VirtualPad
{
  public:
    VirtualPad() : place(SDL_JoystickAttachVirtual(SDL_JOYSTICK_TYPE_GAMECONTROLLER, 2, 12, 1))
    {
        pad = SDL_JoystickOpen(place);
    }
    ~VirtualPad()
    {
        SDL_JoystickClose(pad);
        SDL_JoystickDetachVirtual(place);
    }
    VirtualPad(const VirtualPad&) = delete;
    VirtualPad& operator=(const VirtualPad&) = delete;

    void axis(int number, int value)
    {
        SDL_JoystickSetVirtualAxis(pad, number, static_cast<Sint16>(value));
    }
    void button(int number, bool held) { SDL_JoystickSetVirtualButton(pad, number, held ? 1 : 0); }
    void hat(int value) { SDL_JoystickSetVirtualHat(pad, 0, static_cast<Uint8>(value)); }

    int place;
    SDL_Joystick* pad;
};

TEST(Joystick, TellsButtonsSticksAndHats)
{
    const std::unique_ptr<Joystick> joystick = makeJoystick();
    EXPECT_EQ(joystick->poll(), PadState());
    {
        VirtualPad pad;
        ASSERT_TRUE(pad.pad) << SDL_GetError();
        EXPECT_EQ(joystick->poll(), PadState()); // found while the game runs
        pad.button(9, true);
        pad.button(1, true);
        pad.axis(0, -20000);
        pad.axis(1, 9000); // within the middle
        EXPECT_EQ(joystick->poll(), (PadState{.buttons = 1U << 9 | 1U << 1, .left = true}));
        pad.button(9, false);
        pad.button(1, false);
        pad.axis(0, 32767);
        pad.axis(1, 32767);
        EXPECT_EQ(joystick->poll(), (PadState{.right = true, .down = true}));
        pad.axis(0, 0);
        pad.axis(1, 0);
        pad.hat(SDL_HAT_LEFTUP);
        EXPECT_EQ(joystick->poll(), (PadState{.left = true, .up = true}));
        VirtualPad other; // two are played as one
        other.button(0, true);
        EXPECT_EQ(joystick->poll(), (PadState{.buttons = 1, .left = true, .up = true}));
    }
    EXPECT_EQ(joystick->poll(), PadState()); // pulled out while held
}

} // namespace
} // namespace varn::test
