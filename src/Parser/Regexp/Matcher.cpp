#include "Parser/Regexp/Matcher.h"

#include "Parser/Regexp/CaseFolding.h"
#include "Parser/Regexp/StartSearch.h"

#include <algorithm>

namespace varn::regexp {

namespace {

constexpr Direction kForward = Direction::Forward;
constexpr Direction kBackward = Direction::Backward;

} // namespace

bool Matcher::search(MatchResultT& result)
{
    const StartSearch starts(program, subject, state.index);
    const std::uint32_t leading = program.start.leadingStretch;
    const Stretch* const stretch = leading == kNone ? nullptr : &state.stretches[leading];
    const std::int64_t laborious = steps - state.patience;
    for (int start = starts.next(state.index); start >= 0;
         start = starts.nextBehind(start, stretch)) {
        const std::int64_t gone = std::abs(start - state.index);
        alarm = std::max<std::int64_t>(0, laborious - state.patiencePerUnit * gone);
        --steps;
        ++state.attempt;
        const int end = attempt(start);
        if (end >= 0) {
            accept(start, end, result);
            return true;
        }
        if (steps <= 0) {
            stack.undo(0);
            state.exhausted = true;
            return false;
        }
    }
    return false;
}

void Matcher::accept(int start, int end, MatchResultT& result)
{
    result.clear(program.groupCount);
    result.setMatched();
    result.setGroup(0, std::min(start, end), std::max(start, end));
    for (int group = 1; group <= program.groupCount; ++group)
        if (tookPart(static_cast<std::uint32_t>(group)))
            result.setGroup(group, stack.getRegister(2 * group), stack.getRegister(2 * group + 1));
    stack.undo(0);
    barrier = frame = kNone;
    failures.forgetAttempt();
    state.index = end;
    if (start == end)
        state.index += program.direction == kForward ? 1 : -1;
    state.finished = state.index < 0 || state.index > subject.getLength();
}

// ---- an attempt

int Matcher::attempt(int start)
{
    int pos = start;
    std::uint32_t pc = 0;
    for (;;) {
        const Instruction& at = code[pc];
        bool ok = true;
        switch (at.op) {
        case Op::Unit:
            ok = takeUnit<kForward>(at, pos);
            break;
        case Op::UnitBack:
            ok = takeUnit<kBackward>(at, pos);
            break;
        case Op::Pair:
            ok = takePair<kForward>(at, pos);
            break;
        case Op::PairBack:
            ok = takePair<kBackward>(at, pos);
            break;
        case Op::Set:
            ok = takeSet<kForward>(at, pos);
            break;
        case Op::SetBack:
            ok = takeSet<kBackward>(at, pos);
            break;
        case Op::Text:
            ok = takeText<kForward>(at, pos);
            break;
        case Op::TextBack:
            ok = takeText<kBackward>(at, pos);
            break;
        case Op::Backreference:
            ok = takeBackreference<kForward>(at, pos);
            break;
        case Op::BackreferenceBack:
            ok = takeBackreference<kBackward>(at, pos);
            break;
        case Op::RunGreedy:
            ok = enterGreedy<kForward>(pc, pos);
            break;
        case Op::RunGreedyBack:
            ok = enterGreedy<kBackward>(pc, pos);
            break;
        case Op::RunReluctant:
            ok = enterReluctant<kForward>(pc, pos);
            break;
        case Op::RunReluctantBack:
            ok = enterReluctant<kBackward>(pc, pos);
            break;
        case Op::RunPossessive:
            ok = enterPossessive<kForward>(program.runs[at.a], pos);
            break;
        case Op::RunPossessiveBack:
            ok = enterPossessive<kBackward>(program.runs[at.a], pos);
            break;
        case Op::PeekSet:
            ok = isNext<kForward>(at, pos);
            break;
        case Op::PeekSetBack:
            ok = isNext<kBackward>(at, pos);
            break;
        case Op::PeekNotSet:
            ok = !isNext<kForward>(at, pos);
            break;
        case Op::PeekNotSetBack:
            ok = !isNext<kBackward>(at, pos);
            break;
        case Op::Save:
            ok = save(at.a, pos);
            break;
        case Op::CloseGroup:
            ok = closeGroup<kForward>(at, pos);
            break;
        case Op::CloseGroupBack:
            ok = closeGroup<kBackward>(at, pos);
            break;
        case Op::Jump:
            pc = at.a;
            continue;
        case Op::Branch:
            ok = branch<kForward>(pc, pos);
            if (ok)
                continue;
            break;
        case Op::BranchBack:
            ok = branch<kBackward>(pc, pos);
            if (ok)
                continue;
            break;
        case Op::LeaveIfEmpty:
            if (stack.getRegister(at.b) != pos)
                break;
            pc = at.a;
            continue;
        case Op::SetCounter:
            ok = save(at.a, 0);
            break;
        case Op::CountedHead:
            ok = enterTurn(pc, pos);
            if (ok)
                continue;
            break;
        case Op::CountedNext:
            ok = endTurn(pc, pos);
            if (ok)
                continue;
            break;
        case Op::Enter:
            ok = enterPart(pc, pos);
            break;
        case Op::LeaveLook:
            pos = leavePart();
            break;
        case Op::LeaveAtomic:
            leavePart();
            break;
        case Op::LeaveNegated:
            ok = leaveNegated(pc, pos);
            if (ok)
                continue;
            break;
        case Op::Call:
            ok = call(pc, pos);
            if (ok)
                continue;
            break;
        case Op::Return:
            ok = returnFromCall(pc);
            break;
        case Op::TestGroup:
            if (tookPart(at.b))
                break;
            pc = at.a;
            continue;
        case Op::TextBegin:
            ok = pos == 0;
            break;
        case Op::TextEnd:
            ok = pos == subject.getLength();
            break;
        case Op::LastLineEnd:
            ok = subject.isLastLineEnd(pos);
            break;
        case Op::LineBegin:
            ok = subject.isLineBegin(pos);
            break;
        case Op::LineEnd:
            ok = subject.isLineEnd(pos);
            break;
        case Op::WordBoundary:
            ok = subject.isWordBoundary(pos);
            break;
        case Op::NoWordBoundary:
            ok = !subject.isWordBoundary(pos);
            break;
        case Op::SearchStart:
            ok = pos == state.index;
            break;
        case Op::Accept:
            return pos;
        }
        if (ok)
            ++pc;
        else if (!backtrack(pc, pos))
            return -1;
    }
}

/// Returns to the newest choice that has something left; false when there is none, or no step.
bool Matcher::backtrack(std::uint32_t& pc, int& pos)
{
    while (!stack.isEmpty() && steps > 0) {
        const Entry entry = stack.pop();
        if (entry.tag == Entry::Restore)
            stack.restore(entry);
        else if (retry(entry, pc, pos))
            return true;
    }
    return false;
}

bool Matcher::retry(const Entry& entry, std::uint32_t& pc, int& pos)
{
    const auto a = static_cast<int>(entry.a);
    const auto b = static_cast<int>(entry.b);
    switch (static_cast<Entry::Tag>(entry.tag)) {
    case Entry::Choice:
        pc = entry.index;
        pos = a;
        return spend(1);
    case Entry::Greedy:
        pc = entry.index + 1;
        return giveBack<kForward>(entry, pos);
    case Entry::GreedyBack:
        pc = entry.index + 1;
        return giveBack<kBackward>(entry, pos);
    case Entry::Reluctant:
        pc = entry.index + 1;
        return takeMore<kForward>(entry.index, b, a + 1, pos);
    case Entry::ReluctantBack:
        pc = entry.index + 1;
        return takeMore<kBackward>(entry.index, b, a - 1, pos);
    case Entry::Barrier:
        barrier = entry.b;
        pc = code[entry.index].a;
        pos = a;
        return pc != kNone;
    case Entry::Frame:
        frame = entry.a;
        return false;
    case Entry::FrameBefore:
        frame = entry.index;
        return false;
    case Entry::Failed:
        failures.setFailed(entry.index, a, b);
        return false;
    case Entry::Kept:
    case Entry::Restore:
        return false;
    }
    return false;
}

// ---- elements

template <Direction kWay>
bool Matcher::takeUnit(const Instruction& at, int& pos) const
{
    if (!subject.hasNext<kWay>(pos) || subject.next<kWay>(pos) != at.units[0])
        return false;
    pos = Subject::moved<kWay>(pos, 1);
    return true;
}

template <Direction kWay>
bool Matcher::takePair(const Instruction& at, int& pos) const
{
    if (!subject.hasNext<kWay>(pos))
        return false;
    const char16_t unit = subject.next<kWay>(pos);
    if (unit != at.units[0] && unit != at.units[1])
        return false;
    pos = Subject::moved<kWay>(pos, 1);
    return true;
}

template <Direction kWay>
bool Matcher::takeSet(const Instruction& at, int& pos) const
{
    if (!isNext<kWay>(at, pos))
        return false;
    pos = Subject::moved<kWay>(pos, 1);
    return true;
}

template <Direction kWay>
bool Matcher::isNext(const Instruction& at, int pos) const
{
    return subject.hasNext<kWay>(pos) && program.tables[at.a].has(subject.next<kWay>(pos));
}

template <Direction kWay>
bool Matcher::takeText(const Instruction& at, int& pos) const
{
    const auto units = static_cast<int>(at.b);
    const char16_t* const ahead = subject.ahead<kWay>(pos, units);
    if (!ahead || !std::equal(ahead, ahead + units, program.texts.data() + at.a))
        return false;
    pos = Subject::moved<kWay>(pos, units);
    return true;
}

template <Direction kWay>
bool Matcher::takeBackreference(const Instruction& at, int& pos)
{
    if (!tookPart(at.a))
        return false;
    const int start = stack.getRegister(2 * at.a);
    const int units = stack.getRegister(2 * at.a + 1) - start;
    const char16_t* const ahead = subject.ahead<kWay>(pos, units);
    if (!ahead || !spend(units / kUnitsPerStep))
        return false;
    pos = Subject::moved<kWay>(pos, units);
    if (!at.flag)
        return std::equal(ahead, ahead + units, subject.at(start));
    return std::equal(ahead, ahead + units, subject.at(start),
                      [](char16_t a, char16_t b) { return a == b || foldCase(a) == foldCase(b); });
}

bool Matcher::tookPart(std::uint32_t group) const
{
    return stack.getRegister(2 * group) >= 0 && stack.getRegister(2 * group + 1) >= 0;
}

bool Matcher::save(std::uint32_t place, int value)
{
    if (!ensureRoom(1))
        return false;
    stack.setRegister(place, value);
    return true;
}

template <Direction kWay>
bool Matcher::closeGroup(const Instruction& at, int pos)
{
    const int opened = stack.getRegister(at.b);
    return save(2 * at.a, std::min(opened, pos)) && save(2 * at.a + 1, std::max(opened, pos));
}

// ---- the budgets

bool Matcher::spend(std::int64_t count)
{
    steps -= count;
    if (steps > alarm)
        return true;
    if (steps <= 0)
        return false;
    failures.start();
    alarm = 0;
    return true;
}

bool Matcher::ensureRoom(std::uint32_t entries)
{
    if (stack.ensureRoom(entries))
        return true;
    steps = 0;
    return false;
}

bool searchNext(const Program& program, MatchState& state, MatchResultT& result)
{
    result.clear(program.groupCount);
    if (state.finished || state.exhausted)
        return false;
    if (Matcher(program, state).search(result))
        return true;
    state.finished = true;
    return false;
}

} // namespace varn::regexp
