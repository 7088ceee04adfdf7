#pragma once

#include <cstdint>

namespace varn {

/// What reaches a window's `windowProc`, by the numbers of the window system the kit grew up on.
enum Message : std::uint32_t
{
    kSizeMessage = 0x05,
    kSetFocusMessage = 0x07,
    kKillFocusMessage = 0x08,
    kPaintMessage = 0x0F,
    kCloseMessage = 0x10,
    kEraseBackgroundMessage = 0x14,
    kShowMessage = 0x18,
    kNotifyMessage = 0x4E,
    kContextMenuMessage = 0x7B,
    kKeyDownMessage = 0x100,
    kKeyUpMessage = 0x101,
    kCharMessage = 0x102,
    kCommandMessage = 0x111,
    kMouseMoveMessage = 0x200,
    kLeftDownMessage = 0x201,
    kLeftUpMessage = 0x202,
    kLeftDoubleClickMessage = 0x203,
    kRightDownMessage = 0x204,
    kRightUpMessage = 0x205,
    kRightDoubleClickMessage = 0x206,
    kMiddleDownMessage = 0x207,
    kMiddleUpMessage = 0x208,
    kMiddleDoubleClickMessage = 0x209,
    kMouseWheelMessage = 0x20A,
    kLastMouseMessage = 0x20D,
    kDropFilesMessage = 0x233,
    kMouseLeaveMessage = 0x2A3
};

/// Buttons and keys held during a mouse or key message, in its wParam's low word.
enum HeldKeys : std::uint32_t
{
    kHeldLeft = 0x01,
    kHeldRight = 0x02,
    kHeldShift = 0x04,
    kHeldControl = 0x08,
    kHeldMiddle = 0x10,
    kHeldAlt = 0x20
};

/// Virtual-key codes; letters and digits are their capital ASCII codes.
enum VirtualKey : int
{
    kKeyBackspace = 0x08,
    kKeyTab = 0x09,
    kKeyReturn = 0x0D,
    kKeyShift = 0x10,
    kKeyControl = 0x11,
    kKeyAlt = 0x12,
    kKeyEscape = 0x1B,
    kKeySpace = 0x20,
    kKeyPageUp = 0x21,
    kKeyPageDown = 0x22,
    kKeyEnd = 0x23,
    kKeyHome = 0x24,
    kKeyLeft = 0x25,
    kKeyUp = 0x26,
    kKeyRight = 0x27,
    kKeyDown = 0x28,
    kKeyInsert = 0x2D,
    kKeyDelete = 0x2E,
    kKeyMultiply = 0x6A,
    kKeyAdd = 0x6B,
    kKeySubtract = 0x6D,
    kKeyF1 = 0x70,
    kKeyPlus = 0xBB,
    kKeyComma = 0xBC,
    kKeyMinus = 0xBD,
    kKeyPeriod = 0xBE,
    kKeyOpenBracket = 0xDB,
    kKeyCloseBracket = 0xDD
};

/// Notices of a control to its parent.
enum NotifyCode : int
{
    kClickedCode = 0,
    kSelectionChangedCode = -101,
    kReturnCode = -4,
    kDoubleClickCode = -3,
    kItemEditCode = -109,
    kKeyDownCode = -155,
    kTextChangedCode = 0x300
};

/// One step of a wheel, in the high word of the wParam.
inline constexpr int kWheelStep = 120;

using WordParam = std::uintptr_t;
using LongParam = std::intptr_t;
using MessageResult = std::intptr_t;

/// A point in a LongParam: x in its low word, y above, both signed.
constexpr LongParam packPoint(int x, int y)
{
    return static_cast<LongParam>((static_cast<std::uint32_t>(y) & 0xFFFF) << 16 |
                                  (static_cast<std::uint32_t>(x) & 0xFFFF));
}
constexpr int unpackX(LongParam packed)
{
    return static_cast<std::int16_t>(packed & 0xFFFF);
}
constexpr int unpackY(LongParam packed)
{
    return static_cast<std::int16_t>(packed >> 16 & 0xFFFF);
}

} // namespace varn
