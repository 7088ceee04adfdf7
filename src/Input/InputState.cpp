#include "Input/InputState.h"

#include "Util/Host.h"

#include <algorithm>
#include <utility>

namespace varn {

void InputState::note(int key)
{
    coming.push_back({key, pointerX, pointerY});
}

void InputState::press(int key)
{
    const std::lock_guard lock(state);
    if (!isKey(key) || at(keyboard, key))
        return;
    keyboard.set(static_cast<std::size_t>(key));
    if (!at(pad, key))
        note(key);
}

void InputState::release(int key)
{
    const std::lock_guard lock(state);
    if (isKey(key))
        keyboard.reset(static_cast<std::size_t>(key));
}

void InputState::movePointer(int x, int y)
{
    const std::lock_guard lock(state);
    pointerX = x;
    pointerY = y;
}

InputState::Keys InputState::keysOf(const PadState& held) const
{
    Keys keys;
    const auto add = [&keys](bool isHeld, int key) {
        if (isHeld && isKey(key))
            keys.set(static_cast<std::size_t>(key));
    };
    add(held.left, key::kLeft);
    add(held.right, key::kRight);
    add(held.up, key::kUp);
    add(held.down, key::kDown);
    for (int button = 0; button < key::kButtonCount; ++button)
        add((held.buttons >> button & 1) != 0, buttonKey(button));
    return keys;
}

void InputState::setPad(const PadState& next)
{
    const std::lock_guard lock(state);
    const Keys before = keyboard | pad;
    pad = keysOf(next);
    for (int key = 1; key < key::kCount; ++key)
        if (at(pad, key) && !at(before, key))
            note(key);
}

void InputState::releaseAll()
{
    const std::lock_guard lock(state);
    keyboard.reset();
    pad.reset();
}

void InputState::beginFrame()
{
    const std::uint64_t now = host().clockMs();
    const std::lock_guard lock(state);
    current = std::exchange(coming, {});
    typed.reset();
    for (const InputEvent& each : current) {
        typed.set(static_cast<std::size_t>(each.key));
        repeatAt[static_cast<std::size_t>(each.key)] = now + repeatDelayMs;
    }
    anyKey = std::any_of(current.begin(), current.end(),
                         [](const InputEvent& each) { return !each.isClick(); });
    repeated = typed;
    const Keys held = keyboard | pad;
    for (std::size_t key = 1; key < key::kCount; ++key) {
        if (!held[key] || typed[key] || now < repeatAt[key])
            continue;
        repeated.set(key);
        repeatAt[key] = now + repeatMs;
    }
}

bool InputState::isDown(int key) const
{
    const std::lock_guard lock(state);
    return at(keyboard, key) || at(pad, key);
}

bool InputState::isTyped(int key) const
{
    const std::lock_guard lock(state);
    return at(typed, key);
}

bool InputState::isRepeated(int key) const
{
    const std::lock_guard lock(state);
    return at(repeated, key);
}

bool InputState::isOkKeyTyped() const
{
    const std::lock_guard lock(state);
    return at(typed, key::kEnter) || at(typed, buttonKey(key::kButtonA));
}

bool InputState::isCancelKeyTyped() const
{
    const std::lock_guard lock(state);
    return at(typed, key::kEscape) || at(typed, buttonKey(key::kButtonB));
}

bool InputState::takeAnyKey()
{
    const std::lock_guard lock(state);
    return std::exchange(anyKey, false);
}

int InputState::getPointerX() const
{
    const std::lock_guard lock(state);
    return pointerX;
}

int InputState::getPointerY() const
{
    const std::lock_guard lock(state);
    return pointerY;
}

std::vector<InputEvent> InputState::getEvents() const
{
    const std::lock_guard lock(state);
    return current;
}

void InputState::setRepeatTimer(int milliseconds)
{
    const std::lock_guard lock(state);
    repeatMs = static_cast<std::uint64_t>(std::max(milliseconds, 0));
}

void InputState::setRepeatDelay(int milliseconds)
{
    const std::lock_guard lock(state);
    repeatDelayMs = static_cast<std::uint64_t>(std::max(milliseconds, 0));
}

void InputState::assign(int button, int key)
{
    const std::lock_guard lock(state);
    if (button >= 0 && button < key::kButtonCount)
        assigned[static_cast<std::size_t>(button)] = key;
}

int InputState::buttonKey(int button) const
{
    const bool known = button >= 0 && button < key::kButtonCount;
    const int key = known ? assigned[static_cast<std::size_t>(button)] : 0;
    return key ? key : key::kFirstButton + button;
}

int InputState::keyOfButton(int button) const
{
    const std::lock_guard lock(state);
    return buttonKey(button);
}

} // namespace varn
