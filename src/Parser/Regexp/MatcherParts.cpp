#include "Parser/Regexp/Matcher.h"

// Choices, loops over more than a unit, parts that are cut when they end, and calls.

namespace varn::regexp {

// ---- choices and loops

template <Direction kWay>
bool Matcher::branch(std::uint32_t& pc, int pos)
{
    const Instruction& at = code[pc];
    bool here = true;
    bool there = true;
    if (subject.hasNext<kWay>(pos)) {
        const unsigned bit = subject.next<kWay>(pos) & 63u;
        here = ((at.here >> bit) & 1) != 0;
        there = ((at.there >> bit) & 1) != 0;
        if (!here && !there)
            return false;
    }
    if (failures.remembers(at.c)) {
        if (failures.isFailed(at.c, pos) || !ensureRoom(1))
            return false;
        stack.push(Entry::Failed, at.c, static_cast<std::uint32_t>(pos),
                   static_cast<std::uint32_t>(pos));
    }
    if (here && there)
        return at.flag ? choose(pc, at.a, pc + 1, pos) : choose(pc, pc + 1, at.a, pos);
    pc = here ? pc + 1 : at.a;
    return spend(1);
}

bool Matcher::choose(std::uint32_t& pc, std::uint32_t first, std::uint32_t second, int pos)
{
    if (!ensureRoom(1))
        return false;
    stack.push(Entry::Choice, second, static_cast<std::uint32_t>(pos), 0);
    pc = first;
    return spend(1);
}

bool Matcher::enterTurn(std::uint32_t& pc, int pos)
{
    const Instruction& at = code[pc];
    const auto turns = static_cast<std::uint64_t>(stack.getRegister(at.b));
    if (turns < at.here || turns >= at.there) {
        pc = turns < at.here ? pc + 1 : at.a;
        return true;
    }
    return at.flag ? choose(pc, at.a, pc + 1, pos) : choose(pc, pc + 1, at.a, pos);
}

/// Once enough turns were made, one that took nothing is the last.
bool Matcher::endTurn(std::uint32_t& pc, int pos)
{
    const Instruction& at = code[pc];
    const Instruction& head = code[at.a];
    const int turns = stack.getRegister(at.b) + 1;
    if (at.c != kNone && stack.getRegister(at.c) == pos &&
        static_cast<std::uint64_t>(turns) >= head.here) {
        pc = head.a;
        return true;
    }
    pc = at.a;
    return save(head.b, turns) && spend(1);
}

// ---- parts that are cut

bool Matcher::enterPart(std::uint32_t pc, int pos)
{
    if (!ensureRoom(1))
        return false;
    stack.push(Entry::Barrier, pc, static_cast<std::uint32_t>(pos), barrier);
    barrier = stack.size() - 1;
    return true;
}

/// Forgets the choices of the innermost part; the position at its Enter.
int Matcher::leavePart()
{
    const Entry entered = stack.at(barrier);
    stack.cut(barrier);
    barrier = entered.b;
    return static_cast<int>(entered.a);
}

bool Matcher::leaveNegated(std::uint32_t& pc, int& pos)
{
    const Entry entered = stack.at(barrier);
    stack.undo(barrier);
    barrier = entered.b;
    pos = static_cast<int>(entered.a);
    pc = code[pc].a;
    return pc != kNone;
}

// ---- calls

bool Matcher::call(std::uint32_t& pc, int pos)
{
    const Instruction& at = code[pc];
    if (isLeftRecursive(at.a, pos) || !ensureRoom(1 + at.c) || !spend(1 + at.c / kUnitsPerStep))
        return false;
    stack.push(Entry::Frame, pc, frame, static_cast<std::uint32_t>(pos));
    frame = stack.size() - 1;
    for (std::uint32_t i = 0; i < at.c; ++i) {
        const std::uint32_t place = program.keptRegisters[at.b + i];
        stack.push(Entry::Kept, place, static_cast<std::uint32_t>(stack.getRegister(place)), 0);
    }
    pc = at.a;
    return true;
}

/// Back to the call, with the registers that it keeps. The frame's entry stays: a choice within the
/// call may be returned to.
bool Matcher::returnFromCall(std::uint32_t& pc)
{
    const Entry called = stack.at(frame);
    const std::uint32_t kept = code[called.index].c;
    if (!ensureRoom(1 + kept))
        return false;
    for (std::uint32_t i = 0; i < kept; ++i) {
        const Entry before = stack.at(frame + 1 + i);
        stack.setRegister(before.index, static_cast<int>(before.a));
    }
    stack.push(Entry::FrameBefore, frame, 0, 0);
    frame = called.a;
    pc = called.index;
    return true;
}

/// The same subroutine is already running and nothing was taken since it was called.
bool Matcher::isLeftRecursive(std::uint32_t target, int pos)
{
    for (std::uint32_t place = frame; place != kNone; place = stack.at(place).a) {
        const Entry& caller = stack.at(place);
        if (static_cast<int>(caller.b) != pos || !spend(1))
            return false;
        if (code[caller.index].a == target)
            return true;
    }
    return false;
}

template bool Matcher::branch<Direction::Forward>(std::uint32_t&, int);
template bool Matcher::branch<Direction::Backward>(std::uint32_t&, int);

} // namespace varn::regexp
