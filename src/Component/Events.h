#pragma once

#include <cstdint>

namespace varn {

class Component;

/// What a listener is told: who, and what.
template <class Source>
struct BaseEventObject
{
    Source* source = nullptr;
    std::int32_t id = 0;   ///< the message, or the code of the notice
    std::int32_t data = 0; ///< the source's own

    BaseEventObject(Source* source, std::int32_t id, std::int32_t data = 0)
        : source(source), id(id), data(data)
    {}
    virtual ~BaseEventObject() = default;
};

struct EventObject : BaseEventObject<Component>
{
    using BaseEventObject::BaseEventObject;
};

/// A point in the source's pixels.
struct MouseEvent : EventObject
{
    int x = 0, y = 0;

    MouseEvent(Component* source, std::int32_t message, int x, int y, std::uint32_t held)
        : EventObject(source, message, static_cast<std::int32_t>(held)), x(x), y(y)
    {}
};

struct KeyEvent : EventObject
{
    int key = 0;             ///< virtual-key code; of a character its code unit
    std::uint32_t flags = 0; ///< `HeldKeys`
    bool repeated = false;   ///< the key is being held

    KeyEvent(Component* source, std::int32_t message, int key, std::uint32_t flags, bool repeated)
        : EventObject(source, message), key(key), flags(flags), repeated(repeated)
    {}
};

struct ActionEvent : EventObject
{
    using EventObject::EventObject;
};
struct ChangeEvent : EventObject
{
    using EventObject::EventObject;
};

/// Hears of events. Not owned by what calls it.
class EventListener
{
  public:
    virtual ~EventListener() = default;
    virtual void handleEvent(const EventObject& event) = 0;
};
class ActionListener : public EventListener
{};
class ChangeListener : public EventListener
{};

} // namespace varn
