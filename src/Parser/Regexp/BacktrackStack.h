#pragma once

#include "Parser/Regexp/MatchState.h"

namespace varn::regexp {

/// The stack of what a failure returns to, on the memory of a match state, with the registers whose
/// changes it undoes.
class BacktrackStack
{
  public:
    explicit BacktrackStack(MatchState& state)
        : state(state), entries(state.stack.data()),
          room(static_cast<std::uint32_t>(state.stack.size())), registers(state.registers.data())
    {}

    /// Makes room for so many entries; false, and nothing is changed, when that passes the budget.
    bool ensureRoom(std::uint32_t count) { return room - top >= count || grow(count); }
    /// There must be room.
    void push(Entry::Tag tag, std::uint32_t index, std::uint32_t a, std::uint32_t b)
    {
        Entry& entry = entries[top++];
        entry.tag = tag;
        entry.index = index & kIndexMask;
        entry.a = a;
        entry.b = b;
    }
    Entry pop() { return entries[--top]; }
    const Entry& at(std::uint32_t place) const { return entries[place]; }
    bool isEmpty() const { return top == 0; }
    /// How many entries; the place of the next one.
    std::uint32_t size() const { return top; }

    int getRegister(std::uint32_t place) const { return registers[place]; }
    /// Remembers what the register was. There must be room for an entry.
    void setRegister(std::uint32_t place, int value)
    {
        push(Entry::Restore, place, static_cast<std::uint32_t>(registers[place]), 0);
        registers[place] = value;
    }
    void restore(const Entry& entry) { registers[entry.index] = static_cast<int>(entry.a); }

    /// Takes the entries from `bottom` on off, and undoes every change of a register.
    void undo(std::uint32_t bottom);
    /// Takes the entries from `bottom` on off, but keeps what undoes changes of registers.
    void cut(std::uint32_t bottom);

  private:
    static constexpr std::uint32_t kIndexMask = 0x0FFFFFFF;

    bool grow(std::uint32_t count);

    MatchState& state;
    Entry* entries;
    std::uint32_t room;
    std::uint32_t top = 0;
    int* registers;
};

} // namespace varn::regexp
