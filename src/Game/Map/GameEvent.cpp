#include "Game/Map/GameEvent.h"

#include "Game/Database/WizFloor.h"

#include <algorithm>
#include <cassert>
#include <span>
#include <variant>

namespace varn {

namespace {

enum class Write
{
    Yes,
    Never
};

using Number = std::variant<std::int32_t GameEvent::*, Direction GameEvent::*>;

struct NumberField
{
    WStringView key;
    Number member;
    Write write = Write::Yes;
};

// In the order of writing, behind the two names.
constexpr NumberField kNumbers[] = {
    {u"x", &GameEvent::x},
    {u"y", &GameEvent::y},
    {u"direction", &GameEvent::direction},
    {u"type", &GameEvent::type},
    {u"move", &GameEvent::move},
    {u"trigger", &GameEvent::trigger},
    {u"hitbox", &GameEvent::hitbox},
    {u"priority", &GameEvent::priority},
    {u"aliveFlag", &GameEvent::aliveFlag, Write::Never},
    {u"conditions", &GameEvent::conditions},
};

constexpr WStringView kNameKeys[] = {u"name", u"name2"};

std::int32_t get(const GameEvent& event, const Number& number)
{
    if (const auto* member = std::get_if<std::int32_t GameEvent::*>(&number))
        return event.**member;
    return (event.*std::get<Direction GameEvent::*>(number)).getValue();
}

void set(GameEvent& event, const Number& number, std::int32_t value)
{
    if (const auto* member = std::get_if<std::int32_t GameEvent::*>(&number))
        event.** member = value;
    else
        event.*std::get<Direction GameEvent::*>(number) = Direction(value);
}

bool isTreasureBox(std::int32_t type)
{
    const WizFloorData* kind = WizFloorList::instance().find(type);
    return kind != nullptr && kind->getTreasurebox();
}

} // namespace

Element* GameEvent::toXml(NodeArena& arena) const
{
    Element* element = arena.makeElement(u"Event");
    for (std::size_t i = 0; i < names.size(); ++i)
        element->setString(kNameKeys[i], names[i]);
    for (const NumberField& field : kNumbers) {
        if (field.write == Write::Yes)
            element->setInt(field.key, get(*this, field.member));
    }
    element->addText(script);
    return element;
}

void GameEvent::fromXml(const Element& element)
{
    for (std::size_t i = 0; i < names.size(); ++i)
        names[i] = element.getString(kNameKeys[i]);
    for (const NumberField& field : kNumbers)
        set(*this, field.member, element.getInt(field.key));
    if (conditions < 1)
        conditions = -1;
    sprite = element.getString(u"sprite");
    script = element.collectText();
}

std::unique_ptr<GameEvent> GameEvent::clone() const
{
    return std::make_unique<GameEvent>(*this);
}

Element* TreasureBoxEvent::toXml(NodeArena& arena) const
{
    Element* element = GameEvent::toXml(arena);
    element->setInt(u"treasureboxID", treasureboxID);
    return element;
}

void TreasureBoxEvent::fromXml(const Element& element)
{
    GameEvent::fromXml(element);
    treasureboxID = element.getInt(u"treasureboxID");
}

std::unique_ptr<GameEvent> TreasureBoxEvent::clone() const
{
    return std::make_unique<TreasureBoxEvent>(*this);
}

WStringView triggerText(int trigger)
{
    static constexpr WStringView kTexts[] = {u"On Collision", u"Search Button", u"Action Button"};
    return trigger >= 0 && trigger < 3 ? kTexts[trigger] : u"Undefined";
}

EventManager& EventManager::operator=(const EventManager& other)
{
    std::vector<std::unique_ptr<GameEvent>> copies;
    copies.reserve(other.events.size());
    for (const auto& event : other.events)
        copies.push_back(event->clone());
    events = std::move(copies);
    return *this;
}

GameEvent& EventManager::add(std::unique_ptr<GameEvent> event)
{
    assert(event);
    return *events.emplace_back(std::move(event));
}

GameEvent& EventManager::replace(std::size_t index, std::unique_ptr<GameEvent> event)
{
    assert(event);
    return *(events.at(index) = std::move(event));
}

std::unique_ptr<GameEvent> EventManager::remove(std::size_t index)
{
    std::unique_ptr<GameEvent> event = std::move(events.at(index));
    events.erase(events.begin() + static_cast<std::ptrdiff_t>(index));
    return event;
}

GameEvent& EventManager::addFromXml(const Element& element)
{
    std::unique_ptr<GameEvent> event;
    if (isTreasureBox(element.getInt(u"type")))
        event = std::make_unique<TreasureBoxEvent>();
    else
        event = std::make_unique<GameEvent>();
    event->fromXml(element);
    return add(std::move(event));
}

WStringView EventManager::nameFault(WStringView name, const GameEvent* self) const
{
    if (name.empty())
        return u"Please enter the name";
    if (name.find_first_of(u"\"'<>\r\n") != WStringView::npos)
        return u"Contains invalid characters";
    const bool taken = std::any_of(events.begin(), events.end(), [&](const auto& event) {
        return event.get() != self && event->names[0] == name;
    });
    return taken ? u"There is an event with the same name" : WStringView();
}

} // namespace varn
