#pragma once

#include "Game/Map/Direction.h"
#include "Parser/Element.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace varn {

/// A placed event of a floor. Its script is only carried here.
class GameEvent
{
  public:
    GameEvent() = default;
    GameEvent(const GameEvent&) = default;
    GameEvent& operator=(const GameEvent&) = default;
    virtual ~GameEvent() = default;

    std::array<WString, 2> names; ///< in the first and the second language
    std::int32_t x = 0, y = 0;    ///< the cell
    Direction direction;          ///< the facing
    std::int32_t type = 0;        ///< row of `WizFloorList`; may exceed it
    std::int32_t move = 0;        ///< movement rule
    std::int32_t trigger = 0;     ///< 0 on collision, 1 search button, 2 action button
    std::int32_t hitbox = 0;      ///< 1: blocks the way
    std::int32_t priority = -1;   ///< display position; -1: that of its type
    std::int32_t aliveFlag = 0;   ///< read, never written
    std::int32_t conditions = -1; ///< flag condition; below 1 there is none, and it is read as -1
    WString script;               ///< verbatim
    WString sprite;               ///< name of its sprite; read, never written

    /// The "Event" element, unlinked, made in `arena`.
    virtual Element* toXml(NodeArena& arena) const;
    /// Takes every attribute and the script; what is missing is 0 or empty.
    virtual void fromXml(const Element& element);
    virtual std::unique_ptr<GameEvent> clone() const;
};

/// An event whose type is a treasure box.
class TreasureBoxEvent : public GameEvent
{
  public:
    std::int32_t treasureboxID = 0; ///< row of the treasure box table

    Element* toXml(NodeArena& arena) const override;
    void fromXml(const Element& element) override;
    std::unique_ptr<GameEvent> clone() const override;
};

/// "On Collision", "Search Button", "Action Button"; any other value "Undefined".
WStringView triggerText(int trigger);

/// A cell by its column and row; row 0 is the top one.
struct MapCell
{
    std::int32_t x = 0, y = 0;
    bool operator==(const MapCell&) const = default;
};

/// The target of a script of the form `warp(3, 4);`: seven tokens or more, the first `warp`, the
/// third and the fifth whole numbers without sign. Nothing for any other script.
std::optional<MapCell> parseWarp(WStringView script);
/// The script with that target: "warp(%d, %d);".
WString warpScript(MapCell target);

/// The events of one floor, in list order; it owns them.
class EventManager
{
  public:
    EventManager() = default;
    EventManager(const EventManager& other) { *this = other; }
    EventManager& operator=(const EventManager& other);
    EventManager(EventManager&&) noexcept = default;
    EventManager& operator=(EventManager&&) noexcept = default;

    std::size_t size() const { return events.size(); }
    bool empty() const { return events.empty(); }
    GameEvent& at(std::size_t index) { return *events.at(index); }
    const GameEvent& at(std::size_t index) const { return *events.at(index); }
    const std::vector<std::unique_ptr<GameEvent>>& list() const { return events; }

    GameEvent& add(std::unique_ptr<GameEvent> event);
    /// Puts an event into the place of another, which dies.
    GameEvent& replace(std::size_t index, std::unique_ptr<GameEvent> event);
    std::unique_ptr<GameEvent> remove(std::size_t index);
    void clear() { events.clear(); }

    /// Builds the event of an "Event" element and adds it: a `TreasureBoxEvent` where the row of
    /// its type says so in `WizFloorList` as it now stands.
    GameEvent& addFromXml(const Element& element);

    /// Why `name` cannot be the name of `self` (null: of a new event): "Please enter the name",
    /// "Contains invalid characters" or "There is an event with the same name"; empty: it can.
    WStringView nameFault(WStringView name, const GameEvent* self) const;

  private:
    std::vector<std::unique_ptr<GameEvent>> events;
};

} // namespace varn
