#pragma once

#include "Input/KeyCode.h"

#include <array>
#include <bitset>
#include <cstdint>
#include <mutex>
#include <vector>

namespace varn {

/// A pad as it stands; several at once are told as one.
struct PadState
{
    std::uint32_t buttons = 0; ///< bit n: button n is held
    bool left = false, right = false, up = false, down = false;

    bool operator==(const PadState&) const = default;
};

/// Something a person did, for those who listen.
struct InputEvent
{
    int key = 0;      ///< a mouse button for a click
    int x = 0, y = 0; ///< where the pointer was

    bool isClick() const { return key == key::kMouseLeft || key == key::kMouseRight; }
};

/// What a running game knows of keyboard, pad and mouse. A window, the driver or a test feeds it as
/// things happen; scripts read it. "Typed" and "repeated" last for one frame: `beginFrame` makes
/// visible what went down since the frame before, so no press is lost and none is seen twice.
///
/// Every call may come from any thread. Key codes outside of 1 to 255 are never down.
class InputState
{
  public:
    static constexpr int kRepeatMs = 100, kRepeatDelayMs = 300; ///< until a script says otherwise

    // Feeding.

    /// A key or mouse button went down; while it is held, further presses mean nothing.
    void press(int key);
    void release(int key);
    /// In pixels of the stage.
    void movePointer(int x, int y);
    void setPad(const PadState& next);
    /// Nothing is held any longer: the window lost the keyboard.
    void releaseAll();
    /// A new frame, at the time of the host's clock.
    void beginFrame();

    // Reading.

    bool isDown(int key) const;
    bool isTyped(int key) const;
    /// True when the key goes down and, while it is held, again and again.
    bool isRepeated(int key) const;
    /// Enter, or the key of button A.
    bool isOkKeyTyped() const;
    /// Escape, or the key of button B.
    bool isCancelKeyTyped() const;
    /// Any key or button was typed, the mouse's apart. True once a frame: a press ends one wait.
    bool takeAnyKey();
    int getPointerX() const;
    int getPointerY() const;
    /// What was typed and clicked in this frame, in order.
    std::vector<InputEvent> getEvents() const;

    /// How fast held keys repeat, and how long they are held before; 0 is every frame.
    void setRepeatTimer(int milliseconds);
    void setRepeatDelay(int milliseconds);

    /// The key assignment table: pressing the button is pressing that key. 0 assigns none.
    void assign(int button, int key);
    /// The key a button stands for; without an assignment one of its own, outside of the keyboard.
    int keyOfButton(int button) const;

  private:
    using Keys = std::bitset<key::kCount>;

    static bool isKey(int key) { return key > 0 && key < key::kCount; }
    static bool at(const Keys& keys, int key)
    {
        return isKey(key) && keys[static_cast<std::size_t>(key)];
    }
    int buttonKey(int button) const;
    Keys keysOf(const PadState& held) const;
    void note(int key);

    /// Guards everything below: the host feeds while scripts read.
    mutable std::mutex state;
    Keys keyboard, pad; ///< held, by where
    Keys typed, repeated;
    bool anyKey = false;                     ///< typed in this frame and not taken
    std::vector<InputEvent> coming, current; ///< since the frame began, and of the frame
    std::array<std::uint64_t, key::kCount> repeatAt{};
    std::array<int, key::kButtonCount> assigned{};
    int pointerX = 0, pointerY = 0;
    std::uint64_t repeatMs = kRepeatMs, repeatDelayMs = kRepeatDelayMs;
};

} // namespace varn
