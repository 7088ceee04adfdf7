#pragma once

#include "Component/Messages.h"
#include "Component/NativeHandle.h"
#include "Graphics/Bitmap.h"
#include "Util/Text.h"

#include <functional>
#include <vector>

/// Does what a person does, through the toolkit's own events: for tests that drive windows.
namespace varn::robot {

enum class Button
{
    Left,
    Right,
    Middle
};

/// Points are pixels of the window. @param held  `HeldKeys`, of which the keys count
void press(NativeHandle window, int x, int y, Button button = Button::Left, std::uint32_t held = 0);
/// @param buttons  those that are down during the move, as `HeldKeys`
void move(NativeHandle window, int x, int y, std::uint32_t buttons = 0);
void release(NativeHandle window, int x, int y, Button button = Button::Left,
             std::uint32_t held = 0);
void click(NativeHandle window, int x, int y, Button button = Button::Left, std::uint32_t held = 0);
void doubleClick(NativeHandle window, int x, int y);
/// @param notches  positive: away from the person
void wheel(NativeHandle window, int x, int y, int notches, std::uint32_t held = 0);
/// Presses and lets go a key. @param key  a `VirtualKey`, a digit or a capital letter
void key(NativeHandle window, int key, std::uint32_t held = 0);
void type(NativeHandle window, WStringView text);
/// Drags a line of a tree onto another one, both by their texts.
void dragItem(NativeHandle tree, WStringView line, WStringView onto);
void dropFile(NativeHandle window, WStringView path);

/// The window with the focus; null: none.
NativeHandle focused();
/// The dialog or box in front, whoever made it; null: none.
NativeHandle frontDialog();
/// A control below a window by its shown text, mnemonic left out; null: none.
NativeHandle findByText(NativeHandle window, WStringView text);
/// The field below a window that a label names, by the label's text without mnemonic and colon; or
/// the button of that text; null: there is neither.
NativeHandle findField(NativeHandle window, WStringView text);
/// Runs an action a little later, as a dialog is waiting.
void later(int milliseconds, std::function<void()> action);

/// What a window shows.
void grab(NativeHandle window, Bitmap& into);
/// Controls below a window whose text does not fit, as "class: text", for looking at dialogs in
/// every language.
std::vector<WString> findClipped(NativeHandle window);

} // namespace varn::robot
