#pragma once

namespace varn::key {

// Key codes as scripts and projects have them: one number for a key wherever it comes from. Letters
// and digits are the codes of their capitals.

inline constexpr int kMouseLeft = 1, kMouseRight = 2;
inline constexpr int kBackspace = 8, kEnter = 13, kEscape = 27, kSpace = 32;
inline constexpr int kLeft = 0x25, kUp = 0x26, kRight = 0x27, kDown = 0x28;
/// Button 0 of a pad that no key is assigned to; the others follow.
inline constexpr int kFirstButton = 193;
inline constexpr int kCount = 256;

// Buttons of a pad by their marks.
inline constexpr int kButtonB = 0, kButtonA = 1, kButtonY = 2, kButtonX = 3, kButtonStart = 9;
inline constexpr int kButtonCount = 24;

} // namespace varn::key
