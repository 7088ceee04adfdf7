// The one file that knows the pad library. It is built as a library of its own, which Joystick.h's
// makeJoystick() loads.
#include "Input/Joystick.h"

#include <SDL.h>
#include <algorithm>
#include <vector>

namespace varn {

namespace {

constexpr int kHalfWay = 16384; // of a stick

class SdlJoystick : public Joystick
{
  public:
    ~SdlJoystick() override
    {
        for (SDL_Joystick* each : opened)
            SDL_JoystickClose(each);
        SDL_QuitSubSystem(SDL_INIT_JOYSTICK);
    }

    PadState poll() override
    {
        SDL_JoystickUpdate();
        SDL_FlushEvents(SDL_JOYAXISMOTION, SDL_JOYDEVICEREMOVED);
        openNew();
        PadState state;
        for (SDL_Joystick* each : opened)
            add(state, each);
        return state;
    }

  private:
    /// Pads by what the library calls them for good: their places change as others come and go.
    void openNew()
    {
        std::erase_if(opened, [](SDL_Joystick* each) {
            const bool gone = !SDL_JoystickGetAttached(each);
            if (gone)
                SDL_JoystickClose(each);
            return gone;
        });
        for (int i = 0; i < SDL_NumJoysticks(); ++i) {
            const SDL_JoystickID id = SDL_JoystickGetDeviceInstanceID(i);
            if (std::any_of(opened.begin(), opened.end(), [id](SDL_Joystick* each) {
                    return SDL_JoystickInstanceID(each) == id;
                }))
                continue;
            if (SDL_Joystick* made = SDL_JoystickOpen(i))
                opened.push_back(made);
        }
    }

    static void add(PadState& state, SDL_Joystick* pad)
    {
        for (int i = 0; i < std::min(SDL_JoystickNumButtons(pad), key::kButtonCount); ++i)
            if (SDL_JoystickGetButton(pad, i))
                state.buttons |= 1U << i;
        if (SDL_JoystickNumAxes(pad) >= 2) {
            const int x = SDL_JoystickGetAxis(pad, 0), y = SDL_JoystickGetAxis(pad, 1);
            state.left |= x < -kHalfWay;
            state.right |= x > kHalfWay;
            state.up |= y < -kHalfWay;
            state.down |= y > kHalfWay;
        }
        for (int i = 0; i < SDL_JoystickNumHats(pad); ++i) {
            const Uint8 hat = SDL_JoystickGetHat(pad, i);
            state.left |= (hat & SDL_HAT_LEFT) != 0;
            state.right |= (hat & SDL_HAT_RIGHT) != 0;
            state.up |= (hat & SDL_HAT_UP) != 0;
            state.down |= (hat & SDL_HAT_DOWN) != 0;
        }
    }

    std::vector<SDL_Joystick*> opened;
};

} // namespace

} // namespace varn

/// Null when the library cannot be started. A game hears its pad also while a dialog of the tool
/// has the keyboard, and signals stay the program's own.
extern "C" __attribute__((visibility("default"))) varn::Joystick* varnMakeJoystick()
{
    SDL_SetHint(SDL_HINT_JOYSTICK_ALLOW_BACKGROUND_EVENTS, "1");
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    return SDL_InitSubSystem(SDL_INIT_JOYSTICK) == 0 ? new varn::SdlJoystick : nullptr;
}
