#include "Parser/Regexp/Matcher.h"

#include <algorithm>

// Loops over units of one set: how far they go, and what they give back or take when a match fails.

namespace varn::regexp {

namespace {

constexpr Direction kForward = Direction::Forward;

} // namespace

template <Direction kWay>
int Matcher::skip(std::uint32_t table, int from, int limit) const
{
    const UnitTable& units = program.tables[table];
    if constexpr (kWay == kForward)
        return static_cast<int>(units.skip(subject.at(from), subject.at(limit)) - subject.at(0));
    while (from > limit && units.has(subject.next<kWay>(from)))
        --from;
    return from;
}

template <Direction kWay>
int Matcher::find(std::uint32_t table, int from, int limit) const
{
    const UnitTable& units = program.tables[table];
    if constexpr (kWay == kForward)
        return static_cast<int>(units.find(subject.at(from), subject.at(limit)) - subject.at(0));
    while (from > limit && !units.has(subject.next<kWay>(from)))
        --from;
    return from;
}

/// What is pushed so that the memory learns when a run has failed. All its ends from `to` back were
/// ends of the runs from there, so these failed with it.
void Matcher::pushFailed(const Run& run, int from, int to)
{
    const auto [first, last] = std::minmax(from, to);
    stack.push(Entry::Failed, run.memory, static_cast<std::uint32_t>(first),
               static_cast<std::uint32_t>(last));
}

/// All ends of the run from here but the shortest are ends of the run from one unit on, which
/// failed.
template <Direction kWay>
bool Matcher::isShortestLeft(const Run& run, int pos) const
{
    return run.max == kUnlimited && subject.hasNext<kWay>(pos) &&
           failures.isFailed(run.memory, Subject::moved<kWay>(pos, 1));
}

template <Direction kWay>
bool Matcher::enterGreedy(std::uint32_t pc, int& pos)
{
    const Run& run = program.runs[code[pc].a];
    if (failures.isInFailedStretch(run, pos) || !ensureRoom(2))
        return false;
    const bool remembered = failures.remembers(run.memory);
    if (remembered && failures.isFailed(run.memory, pos))
        return false;
    const bool shortestLeft = remembered && isShortestLeft<kWay>(run, pos);
    const int most = shortestLeft ? run.min : run.max;
    const int end = skip<kWay>(run.set, pos, subject.farthest<kWay>(pos, most));
    const int taken = Subject::distance<kWay>(pos, end);
    failures.noteStretch(run, pos, end);
    if (taken < run.min || !spend(taken / kUnitsPerStep))
        return false;
    if (remembered)
        pushFailed(run, pos, run.max == kUnlimited && !shortestLeft ? end : pos);
    const int shortest = Subject::moved<kWay>(pos, run.min);
    pos = heldBack<kWay>(run, end, shortest);
    if (pos != shortest)
        stack.push(kWay == kForward ? Entry::Greedy : Entry::GreedyBack, pc,
                   static_cast<std::uint32_t>(pos), static_cast<std::uint32_t>(shortest));
    return true;
}

/// The farthest end, not behind `held`, before which something stands that may follow the run.
template <Direction kWay>
int Matcher::heldBack(const Run& run, int held, int shortest) const
{
    if (run.follow == kNone)
        return held;
    const UnitTable& follow = program.tables[run.follow];
    while (held != shortest && subject.hasNext<kWay>(held) && !follow.has(subject.next<kWay>(held)))
        held = Subject::moved<kWay>(held, -1);
    return held;
}

template <Direction kWay>
bool Matcher::giveBack(const Entry& entry, int& pos)
{
    const Run& run = program.runs[code[entry.index].a];
    const auto shortest = static_cast<int>(entry.b);
    const int most = Subject::moved<kWay>(static_cast<int>(entry.a), -1);
    pos = heldBack<kWay>(run, most, shortest);
    if (pos != shortest)
        stack.push(static_cast<Entry::Tag>(entry.tag), entry.index, static_cast<std::uint32_t>(pos),
                   entry.b);
    return spend(1 + Subject::distance<kWay>(pos, most) / kUnitsPerStep);
}

template <Direction kWay>
bool Matcher::enterReluctant(std::uint32_t pc, int& pos)
{
    const Run& run = program.runs[code[pc].a];
    if (failures.isInFailedStretch(run, pos) || !ensureRoom(2))
        return false;
    if (failures.remembers(run.memory)) {
        if (failures.isFailed(run.memory, pos))
            return false;
        pushFailed(run, pos, pos);
    }
    const int begun = pos;
    const int shortest = skip<kWay>(run.set, begun, subject.farthest<kWay>(begun, run.min));
    if (Subject::distance<kWay>(begun, shortest) < run.min)
        return false;
    return takeMore<kWay>(pc, begun, shortest, pos);
}

/// The nearest end, not before `from`, before which something stands that may follow the run.
template <Direction kWay>
bool Matcher::takeMore(std::uint32_t pc, int begun, int from, int& pos)
{
    const Run& run = program.runs[code[pc].a];
    // The ends left are those of the run that begins a unit further on, or more.
    const int later = Subject::moved<kWay>(from, -run.min);
    if (later != begun && run.max == kUnlimited && failures.remembers(run.memory) &&
        failures.isFailed(run.memory, later))
        return false;
    const int limit = subject.farthest<kWay>(begun, run.max);
    const int end = run.stop == kNone ? from : find<kWay>(run.stop, from, limit);
    if (!spend(1 + Subject::distance<kWay>(from, end) / kUnitsPerStep))
        return false;
    const bool more = end != limit && program.tables[run.set].has(subject.next<kWay>(end));
    if (!more)
        failures.noteStretch(run, begun, end);
    if (run.follow != kNone && subject.hasNext<kWay>(end) &&
        !program.tables[run.follow].has(subject.next<kWay>(end)))
        return false;
    if (more)
        stack.push(kWay == kForward ? Entry::Reluctant : Entry::ReluctantBack, pc,
                   static_cast<std::uint32_t>(end), static_cast<std::uint32_t>(begun));
    pos = end;
    return true;
}

template <Direction kWay>
bool Matcher::enterPossessive(const Run& run, int& pos)
{
    if (failures.isInFailedStretch(run, pos))
        return false;
    const int end = skip<kWay>(run.set, pos, subject.farthest<kWay>(pos, run.max));
    failures.noteStretch(run, pos, end);
    const int taken = Subject::distance<kWay>(pos, end);
    pos = end;
    return taken >= run.min && spend(taken / kUnitsPerStep);
}

template bool Matcher::enterGreedy<Direction::Forward>(std::uint32_t, int&);
template bool Matcher::enterGreedy<Direction::Backward>(std::uint32_t, int&);
template bool Matcher::giveBack<Direction::Forward>(const Entry&, int&);
template bool Matcher::giveBack<Direction::Backward>(const Entry&, int&);
template bool Matcher::enterReluctant<Direction::Forward>(std::uint32_t, int&);
template bool Matcher::enterReluctant<Direction::Backward>(std::uint32_t, int&);
template bool Matcher::takeMore<Direction::Forward>(std::uint32_t, int, int, int&);
template bool Matcher::takeMore<Direction::Backward>(std::uint32_t, int, int, int&);
template bool Matcher::enterPossessive<Direction::Forward>(const Run&, int&);
template bool Matcher::enterPossessive<Direction::Backward>(const Run&, int&);

} // namespace varn::regexp
