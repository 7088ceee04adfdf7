#include "Parser/Regexp/Matcher.h"

#include "Parser/Regexp/CaseFolding.h"

#include <algorithm>

namespace varn::regexp {

namespace {

constexpr Direction kForward = Direction::Forward;
constexpr Direction kBackward = Direction::Backward;

constexpr std::size_t kLargestMemory = std::size_t{64} << 20; // bytes
constexpr int kUnitsPerStep = 32;

bool isWord(char16_t unit)
{
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') ||
           (unit >= u'0' && unit <= u'9') || unit == u'_';
}

/// One search. The positions that it goes through are units from the text's beginning; `pc` is an
/// instruction's place. An operation that returns false has failed; running out of steps or memory
/// fails too, and leaves `steps` at 0 or below, which ends the search.
class Matcher
{
  public:
    Matcher(const Program& program, MatchState& state)
        : program(program), state(state), code(program.code.data()), text(state.text.data()),
          length(static_cast<int>(state.text.size())), registers(state.registers.data()),
          stack(state.stack.data()), room(static_cast<std::uint32_t>(state.stack.size())),
          steps(state.stepsLeft), memoryRow(static_cast<std::size_t>(length) / 64 + 1),
          remembering(!state.memory.empty())
    {}
    ~Matcher() { state.stepsLeft = steps; }
    Matcher(const Matcher&) = delete;
    Matcher& operator=(const Matcher&) = delete;

    bool search(MatchResultT& result);

  private:
    // where a match may start; -1: nowhere any more
    int nextStart(int from) const;
    int nextStartBack(int from) const;
    int nextLineBegin(int from) const;
    int nextWordBegin(int from) const;
    int nextAttempt(int failedStart) const;
    void accept(int start, int end, MatchResultT& result);

    /// Tries to match at a place; where the match ends, or -1.
    int attempt(int start);
    bool backtrack(std::uint32_t& pc, int& pos);
    bool retry(const Entry& entry, std::uint32_t& pc, int& pos);
    void undo(std::uint32_t bottom);

    // one step in a direction
    template <Direction kDirection>
    bool hasNext(int pos) const
    {
        return kDirection == kForward ? pos < length : pos > 0;
    }
    template <Direction kDirection>
    char16_t next(int pos) const
    {
        return kDirection == kForward ? text[pos] : text[pos - 1];
    }
    template <Direction kDirection>
    static int moved(int pos, int units)
    {
        return kDirection == kForward ? pos + units : pos - units;
    }
    template <Direction kDirection>
    static int distance(int from, int to)
    {
        return kDirection == kForward ? to - from : from - to;
    }

    // elements
    template <Direction kDirection>
    bool takeUnit(const Instruction& instruction, int& pos) const;
    template <Direction kDirection>
    bool takePair(const Instruction& instruction, int& pos) const;
    template <Direction kDirection>
    bool takeSet(const Instruction& instruction, int& pos) const;
    template <Direction kDirection>
    bool takeText(const Instruction& instruction, int& pos) const;
    template <Direction kDirection>
    bool takeBackreference(const Instruction& instruction, int& pos);
    template <Direction kDirection>
    bool isNext(const Instruction& instruction, int pos) const;
    bool isLineBegin(int pos) const;
    bool isLineEnd(int pos) const;
    bool isLastLineEnd(int pos) const;
    bool isWordBoundary(int pos) const;
    bool tookPart(std::uint32_t group) const;

    // runs
    template <Direction kDirection>
    int skip(std::uint32_t table, int from, int limit) const;
    template <Direction kDirection>
    int find(std::uint32_t table, int from, int limit) const;
    template <Direction kDirection>
    int limitOf(int pos, int most) const;
    template <Direction kDirection>
    bool enterGreedy(std::uint32_t pc, int& pos);
    template <Direction kDirection>
    int heldBack(const Run& run, int held, int shortest) const;
    template <Direction kDirection>
    bool giveBack(const Entry& entry, int& pos);
    template <Direction kDirection>
    bool enterReluctant(std::uint32_t pc, int& pos);
    template <Direction kDirection>
    bool takeMore(std::uint32_t pc, int begun, int from, int& pos);
    template <Direction kDirection>
    bool enterPossessive(const Run& run, int& pos);
    bool isInFailedStretch(const Run& run, int pos) const;
    void noteStretch(const Run& run, int first, int last);

    // choices, loops, parts that are cut, calls
    template <Direction kDirection>
    bool branch(std::uint32_t& pc, int pos);
    bool choose(std::uint32_t& pc, std::uint32_t first, std::uint32_t second, int pos);
    bool enterTurn(std::uint32_t& pc, int pos);
    bool endTurn(std::uint32_t& pc, int pos);
    bool enterPart(std::uint32_t pc, int pos);
    int cut();
    bool leaveNegated(std::uint32_t& pc, int& pos);
    template <Direction kDirection>
    bool closeGroup(const Instruction& instruction, int pos);
    bool call(std::uint32_t& pc, int pos);
    bool returnFromCall(std::uint32_t& pc);
    bool isLeftRecursive(std::uint32_t target, int pos);

    // the stack
    bool ensureRoom(std::uint32_t entries);
    void push(Entry::Tag tag, std::uint32_t index, std::uint32_t a, std::uint32_t b);
    void setRegister(std::uint32_t place, int value);

    // the budget, and the memory of failures that laborious searches keep
    bool spend(std::int64_t count);
    void startMemory();
    bool isFailed(std::uint32_t memory, int pos) const;
    void setFailed(std::uint32_t memory, int first, int last);

    const Program& program;
    MatchState& state;
    const Instruction* code;
    const char16_t* text;
    int length;
    int* registers;
    Entry* stack;
    std::uint32_t room;
    std::uint32_t top = 0;
    std::uint32_t barrier = kNone; ///< the innermost Barrier entry that is still open
    std::uint32_t frame = kNone;   ///< the Frame entry of the innermost call
    std::int64_t steps;
    std::int64_t alarm = 0; ///< steps left at which something is to be done
    std::size_t memoryRow;  ///< words a state
    bool remembering;
};

// ---- where a match may start

int Matcher::nextStart(int from) const
{
    const int last = length - program.minLength;
    if (from > last)
        return -1;
    int start = from;
    switch (program.start.kind) {
    case StartPlan::Kind::Everywhere:
        break;
    case StartPlan::Kind::TextBegin:
        return from == 0 ? 0 : -1;
    case StartPlan::Kind::SearchStart:
        return from == state.index ? from : -1;
    case StartPlan::Kind::LineBegin:
        start = nextLineBegin(from);
        break;
    case StartPlan::Kind::FirstUnit:
        start = find<kForward>(program.start.firstUnits, from, length);
        break;
    case StartPlan::Kind::WordBegin:
        start = nextWordBegin(from);
        break;
    case StartPlan::Kind::Probe: {
        const char16_t* found = program.start.probe.find(text + from, text + length);
        start = found ? static_cast<int>(found - text) : length + 1;
        break;
    }
    }
    return start <= last ? start : -1;
}

int Matcher::nextStartBack(int from) const
{
    const UnitTable& first = program.tables[program.start.firstUnits];
    if (program.start.kind == StartPlan::Kind::FirstUnit)
        while (from > 0 && !first.has(text[from - 1]))
            --from;
    return from >= program.minLength ? from : -1;
}

int Matcher::nextLineBegin(int from) const
{
    while (!isLineBegin(from)) {
        static const UnitTable lineEnds(lineEndUnits());
        from = static_cast<int>(lineEnds.find(text + from, text + length) - text);
        if (from == length)
            return length + 1;
        ++from;
    }
    return from;
}

/// The first units are all word units here.
int Matcher::nextWordBegin(int from) const
{
    static const UnitTable words(wordUnits());
    const UnitTable& first = program.tables[program.start.firstUnits];
    const char16_t* const end = text + length;
    const char16_t* at = text + from;
    if (from > 0 && isWord(text[from - 1]))
        at = words.skip(at, end);
    for (;;) {
        at = words.find(at, end);
        if (at == end || first.has(*at))
            return static_cast<int>(at - text) + (at == end ? 1 : 0);
        at = words.skip(at, end);
    }
}

/// The next place to look from. Where the leading run failed, it fails again.
int Matcher::nextAttempt(int failedStart) const
{
    const int from = failedStart + 1;
    if (program.start.leadingStretch == kNone)
        return from;
    const Stretch& stretch = state.stretches[program.start.leadingStretch];
    return stretch.first <= from && from <= stretch.last ? stretch.last + 1 : from;
}

bool Matcher::search(MatchResultT& result)
{
    const bool forward = program.direction == kForward;
    const std::int64_t laborious = steps - state.patience;
    int start = forward ? nextStart(state.index) : nextStartBack(state.index);
    while (start >= 0) {
        const std::int64_t gone = std::abs(start - state.index);
        alarm = std::max<std::int64_t>(0, laborious - state.patiencePerUnit * gone);
        ++state.attempt;
        --steps;
        const int end = attempt(start);
        if (end >= 0) {
            accept(start, end, result);
            return true;
        }
        if (steps <= 0) {
            undo(0);
            state.exhausted = true;
            return false;
        }
        start = forward ? nextStart(nextAttempt(start)) : nextStartBack(start - 1);
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
            result.setGroup(group, registers[2 * group], registers[2 * group + 1]);
    undo(0);
    barrier = frame = kNone;
    for (Stretch& stretch : state.stretches)
        if (stretch.attempt == state.attempt)
            stretch = {};
    state.index = end;
    if (start == end)
        state.index += program.direction == kForward ? 1 : -1;
    state.finished = state.index < 0 || state.index > length;
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
            ok = ensureRoom(1);
            if (ok)
                setRegister(at.a, pos);
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
            if (registers[at.b] != pos)
                break;
            pc = at.a;
            continue;
        case Op::SetCounter:
            ok = ensureRoom(1);
            if (ok)
                setRegister(at.a, 0);
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
            pos = cut();
            break;
        case Op::LeaveAtomic:
            cut();
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
            ok = pos == length;
            break;
        case Op::LastLineEnd:
            ok = isLastLineEnd(pos);
            break;
        case Op::LineBegin:
            ok = isLineBegin(pos);
            break;
        case Op::LineEnd:
            ok = isLineEnd(pos);
            break;
        case Op::WordBoundary:
            ok = isWordBoundary(pos);
            break;
        case Op::NoWordBoundary:
            ok = !isWordBoundary(pos);
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
    while (top != 0 && steps > 0) {
        const Entry entry = stack[--top];
        if (entry.tag == Entry::Restore)
            registers[entry.index] = static_cast<int>(entry.a);
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
        setFailed(entry.index, a, b);
        return false;
    case Entry::Kept:
    case Entry::Restore:
        return false;
    }
    return false;
}

/// Takes the entries above `bottom` off, and every change of a register with them.
void Matcher::undo(std::uint32_t bottom)
{
    while (top != bottom) {
        const Entry& entry = stack[--top];
        if (entry.tag == Entry::Restore)
            registers[entry.index] = static_cast<int>(entry.a);
    }
}

// ---- elements

template <Direction kDirection>
bool Matcher::takeUnit(const Instruction& instruction, int& pos) const
{
    if (!hasNext<kDirection>(pos) || next<kDirection>(pos) != instruction.units[0])
        return false;
    pos = moved<kDirection>(pos, 1);
    return true;
}

template <Direction kDirection>
bool Matcher::takePair(const Instruction& instruction, int& pos) const
{
    if (!hasNext<kDirection>(pos))
        return false;
    const char16_t unit = next<kDirection>(pos);
    if (unit != instruction.units[0] && unit != instruction.units[1])
        return false;
    pos = moved<kDirection>(pos, 1);
    return true;
}

template <Direction kDirection>
bool Matcher::takeSet(const Instruction& instruction, int& pos) const
{
    if (!isNext<kDirection>(instruction, pos))
        return false;
    pos = moved<kDirection>(pos, 1);
    return true;
}

template <Direction kDirection>
bool Matcher::isNext(const Instruction& instruction, int pos) const
{
    return hasNext<kDirection>(pos) && program.tables[instruction.a].has(next<kDirection>(pos));
}

template <Direction kDirection>
bool Matcher::takeText(const Instruction& instruction, int& pos) const
{
    const auto units = static_cast<int>(instruction.b);
    if (units > (kDirection == kForward ? length - pos : pos))
        return false;
    const char16_t* const begin = text + (kDirection == kForward ? pos : pos - units);
    if (!std::equal(begin, begin + units, program.texts.data() + instruction.a))
        return false;
    pos = moved<kDirection>(pos, units);
    return true;
}

template <Direction kDirection>
bool Matcher::takeBackreference(const Instruction& instruction, int& pos)
{
    if (!tookPart(instruction.a))
        return false;
    const char16_t* const group = text + registers[2 * instruction.a];
    const int units = registers[2 * instruction.a + 1] - registers[2 * instruction.a];
    if (units > (kDirection == kForward ? length - pos : pos) || !spend(units / kUnitsPerStep))
        return false;
    const char16_t* const begin = text + (kDirection == kForward ? pos : pos - units);
    const bool same = instruction.flag ? std::equal(begin, begin + units, group,
                                                    [](char16_t a, char16_t b) {
                                                        return a == b || foldCase(a) == foldCase(b);
                                                    })
                                       : std::equal(begin, begin + units, group);
    pos = moved<kDirection>(pos, units);
    return same;
}

/// CR LF is one line end: nothing begins or ends between the two.
bool Matcher::isLineBegin(int pos) const
{
    if (pos == 0 || text[pos - 1] == u'\n')
        return true;
    return text[pos - 1] == u'\r' && !(pos < length && text[pos] == u'\n');
}

bool Matcher::isLineEnd(int pos) const
{
    if (pos == length || text[pos] == u'\r')
        return true;
    return text[pos] == u'\n' && !(pos > 0 && text[pos - 1] == u'\r');
}

bool Matcher::isLastLineEnd(int pos) const
{
    const int left = length - pos;
    return isLineEnd(pos) &&
           (left <= 1 || (left == 2 && text[pos] == u'\r' && text[pos + 1] == u'\n'));
}

bool Matcher::isWordBoundary(int pos) const
{
    const bool before = pos > 0 && isWord(text[pos - 1]);
    const bool behind = pos < length && isWord(text[pos]);
    return before != behind;
}

bool Matcher::tookPart(std::uint32_t group) const
{
    return registers[2 * group] >= 0 && registers[2 * group + 1] >= 0;
}

template <Direction kDirection>
bool Matcher::closeGroup(const Instruction& instruction, int pos)
{
    if (!ensureRoom(2))
        return false;
    const int opened = registers[instruction.b];
    setRegister(2 * instruction.a, kDirection == kForward ? opened : pos);
    setRegister(2 * instruction.a + 1, kDirection == kForward ? pos : opened);
    return true;
}

// ---- runs

template <Direction kDirection>
int Matcher::skip(std::uint32_t table, int from, int limit) const
{
    const UnitTable& units = program.tables[table];
    if constexpr (kDirection == kForward)
        return static_cast<int>(units.skip(text + from, text + limit) - text);
    while (from > limit && units.has(text[from - 1]))
        --from;
    return from;
}

template <Direction kDirection>
int Matcher::find(std::uint32_t table, int from, int limit) const
{
    const UnitTable& units = program.tables[table];
    if constexpr (kDirection == kForward)
        return static_cast<int>(units.find(text + from, text + limit) - text);
    while (from > limit && !units.has(text[from - 1]))
        --from;
    return from;
}

/// How far a run from here may go at most.
template <Direction kDirection>
int Matcher::limitOf(int pos, int most) const
{
    if constexpr (kDirection == kForward)
        return most < length - pos ? pos + most : length;
    return most < pos ? pos - most : 0;
}

template <Direction kDirection>
bool Matcher::enterGreedy(std::uint32_t pc, int& pos)
{
    const Run& run = program.runs[code[pc].a];
    if (isInFailedStretch(run, pos) || !ensureRoom(2))
        return false;
    int limit = limitOf<kDirection>(pos, run.max);
    const bool remembered = remembering && run.memory != 0;
    const bool unlimited = kDirection == kForward && run.max == kUnlimited;
    bool shortestOnly = false;
    if (remembered) {
        if (isFailed(run.memory, pos))
            return false;
        // All ends of this run but the shortest were ends of the run that failed one unit on.
        shortestOnly = unlimited && pos < length && isFailed(run.memory, pos + 1);
        if (shortestOnly)
            limit = limitOf<kDirection>(pos, run.min);
    }
    const int end = skip<kDirection>(run.set, pos, limit);
    noteStretch(run, pos, end);
    if (distance<kDirection>(pos, end) < run.min)
        return false;
    const int shortest = moved<kDirection>(pos, run.min);
    if (remembered)
        push(Entry::Failed, run.memory, static_cast<std::uint32_t>(pos),
             static_cast<std::uint32_t>(unlimited && !shortestOnly ? end : pos));
    const int held = heldBack<kDirection>(run, end, shortest);
    if (held != shortest)
        push(kDirection == kForward ? Entry::Greedy : Entry::GreedyBack, pc,
             static_cast<std::uint32_t>(held), static_cast<std::uint32_t>(shortest));
    const int taken = distance<kDirection>(pos, end);
    pos = held;
    return spend(taken / kUnitsPerStep);
}

/// The farthest end, not behind `held`, before which something stands that may follow the run.
template <Direction kDirection>
int Matcher::heldBack(const Run& run, int held, int shortest) const
{
    if (run.follow == kNone)
        return held;
    const UnitTable& follow = program.tables[run.follow];
    while (held != shortest && hasNext<kDirection>(held) && !follow.has(next<kDirection>(held)))
        held = moved<kDirection>(held, -1);
    return held;
}

template <Direction kDirection>
bool Matcher::giveBack(const Entry& entry, int& pos)
{
    const Run& run = program.runs[code[entry.index].a];
    const auto shortest = static_cast<int>(entry.b);
    const int most = moved<kDirection>(static_cast<int>(entry.a), -1);
    pos = heldBack<kDirection>(run, most, shortest);
    if (pos != shortest)
        push(static_cast<Entry::Tag>(entry.tag), entry.index, static_cast<std::uint32_t>(pos),
             entry.b);
    return spend(1 + distance<kDirection>(pos, most) / kUnitsPerStep);
}

template <Direction kDirection>
bool Matcher::enterReluctant(std::uint32_t pc, int& pos)
{
    const Run& run = program.runs[code[pc].a];
    if (isInFailedStretch(run, pos) || !ensureRoom(2))
        return false;
    if (remembering && run.memory != 0) {
        if (isFailed(run.memory, pos))
            return false;
        push(Entry::Failed, run.memory, static_cast<std::uint32_t>(pos),
             static_cast<std::uint32_t>(pos));
    }
    const int begun = pos;
    const int shortest = skip<kDirection>(run.set, begun, limitOf<kDirection>(begun, run.min));
    if (distance<kDirection>(begun, shortest) < run.min)
        return false;
    return takeMore<kDirection>(pc, begun, shortest, pos);
}

/// The nearest end, not before `from`, before which something stands that may follow the run.
template <Direction kDirection>
bool Matcher::takeMore(std::uint32_t pc, int begun, int from, int& pos)
{
    const Run& run = program.runs[code[pc].a];
    const int limit = limitOf<kDirection>(begun, run.max);
    const int end = run.stop == kNone ? from : find<kDirection>(run.stop, from, limit);
    if (!spend(1 + distance<kDirection>(from, end) / kUnitsPerStep))
        return false;
    const bool more = end != limit && program.tables[run.set].has(next<kDirection>(end));
    if (!more)
        noteStretch(run, begun, end);
    if (run.follow != kNone && hasNext<kDirection>(end) &&
        !program.tables[run.follow].has(next<kDirection>(end)))
        return false;
    if (more)
        push(kDirection == kForward ? Entry::Reluctant : Entry::ReluctantBack, pc,
             static_cast<std::uint32_t>(end), static_cast<std::uint32_t>(begun));
    pos = end;
    return true;
}

template <Direction kDirection>
bool Matcher::enterPossessive(const Run& run, int& pos)
{
    if (isInFailedStretch(run, pos))
        return false;
    const int end = skip<kDirection>(run.set, pos, limitOf<kDirection>(pos, run.max));
    noteStretch(run, pos, end);
    const int taken = distance<kDirection>(pos, end);
    pos = end;
    return taken >= run.min && spend(taken / kUnitsPerStep);
}

bool Matcher::isInFailedStretch(const Run& run, int pos) const
{
    if (run.stretch == kNone)
        return false;
    const Stretch& stretch = state.stretches[run.stretch];
    return stretch.first <= pos && pos <= stretch.last && stretch.attempt != state.attempt;
}

/// If this attempt fails, it fails from every place where the run could have been entered.
void Matcher::noteStretch(const Run& run, int first, int last)
{
    if (run.stretch != kNone)
        state.stretches[run.stretch] = {state.attempt, first, last};
}

// ---- choices and loops

template <Direction kDirection>
bool Matcher::branch(std::uint32_t& pc, int pos)
{
    const Instruction& at = code[pc];
    if (hasNext<kDirection>(pos)) {
        const unsigned bit = next<kDirection>(pos) & 63u;
        const bool here = ((at.here >> bit) & 1) != 0;
        const bool there = ((at.there >> bit) & 1) != 0;
        if (!here || !there) {
            pc = here ? pc + 1 : at.a;
            return (here || there) && spend(1);
        }
    }
    if (!ensureRoom(2))
        return false;
    if (remembering && at.c != 0) {
        if (isFailed(at.c, pos))
            return false;
        push(Entry::Failed, at.c, static_cast<std::uint32_t>(pos), static_cast<std::uint32_t>(pos));
    }
    return at.flag ? choose(pc, at.a, pc + 1, pos) : choose(pc, pc + 1, at.a, pos);
}

bool Matcher::choose(std::uint32_t& pc, std::uint32_t first, std::uint32_t second, int pos)
{
    push(Entry::Choice, second, static_cast<std::uint32_t>(pos), 0);
    pc = first;
    return spend(1);
}

bool Matcher::enterTurn(std::uint32_t& pc, int pos)
{
    const Instruction& at = code[pc];
    const auto turns = static_cast<std::uint64_t>(registers[at.b]);
    if (turns < at.here || turns >= at.there) {
        pc = turns < at.here ? pc + 1 : at.a;
        return true;
    }
    if (!ensureRoom(1))
        return false;
    return at.flag ? choose(pc, at.a, pc + 1, pos) : choose(pc, pc + 1, at.a, pos);
}

/// Once enough turns were made, one that took nothing is the last.
bool Matcher::endTurn(std::uint32_t& pc, int pos)
{
    const Instruction& at = code[pc];
    const Instruction& head = code[at.a];
    const int turns = registers[at.b] + 1;
    if (at.c != kNone && registers[at.c] == pos && static_cast<std::uint64_t>(turns) >= head.here) {
        pc = head.a;
        return true;
    }
    if (!ensureRoom(1))
        return false;
    setRegister(at.b, turns);
    pc = at.a;
    return spend(1);
}

// ---- parts that are cut

bool Matcher::enterPart(std::uint32_t pc, int pos)
{
    if (!ensureRoom(1))
        return false;
    push(Entry::Barrier, pc, static_cast<std::uint32_t>(pos), barrier);
    barrier = top - 1;
    return true;
}

/// Forgets the choices of the innermost part; what its registers were before stays known. The
/// position at its Enter.
int Matcher::cut()
{
    const Entry opened = stack[barrier];
    std::uint32_t to = barrier;
    for (std::uint32_t from = barrier + 1; from != top; ++from)
        if (stack[from].tag == Entry::Restore)
            stack[to++] = stack[from];
    top = to;
    barrier = opened.b;
    return static_cast<int>(opened.a);
}

bool Matcher::leaveNegated(std::uint32_t& pc, int& pos)
{
    undo(barrier + 1);
    const Entry opened = stack[--top];
    barrier = opened.b;
    pos = static_cast<int>(opened.a);
    pc = code[pc].a;
    return pc != kNone;
}

// ---- calls

bool Matcher::call(std::uint32_t& pc, int pos)
{
    const Instruction& at = code[pc];
    if (isLeftRecursive(at.a, pos) || !ensureRoom(1 + at.c) || !spend(1 + at.c / kUnitsPerStep))
        return false;
    push(Entry::Frame, pc, frame, static_cast<std::uint32_t>(pos));
    frame = top - 1;
    for (std::uint32_t i = 0; i < at.c; ++i) {
        const std::uint32_t place = program.keptRegisters[at.b + i];
        push(Entry::Kept, place, static_cast<std::uint32_t>(registers[place]), 0);
    }
    pc = at.a;
    return true;
}

/// Back behind the call, with the registers that it keeps. The frame's entry stays: a choice within
/// the call may be returned to.
bool Matcher::returnFromCall(std::uint32_t& pc)
{
    const Entry called = stack[frame];
    const Instruction& at = code[called.index];
    if (!ensureRoom(1 + at.c))
        return false;
    for (std::uint32_t i = 0; i < at.c; ++i) {
        const Entry keptRegister = stack[frame + 1 + i];
        setRegister(keptRegister.index, static_cast<int>(keptRegister.a));
    }
    push(Entry::FrameBefore, frame, 0, 0);
    frame = called.a;
    pc = called.index;
    return true;
}

/// The same subroutine is already running and nothing was taken since it was called.
bool Matcher::isLeftRecursive(std::uint32_t target, int pos)
{
    for (std::uint32_t at = frame; at != kNone; at = stack[at].a) {
        if (static_cast<int>(stack[at].b) != pos || !spend(1))
            return false;
        if (code[stack[at].index].a == target)
            return true;
    }
    return false;
}

// ---- the stack

bool Matcher::ensureRoom(std::uint32_t entries)
{
    if (room - top >= entries)
        return true;
    const std::size_t most = std::min<std::size_t>(state.stackBytes / sizeof(Entry), 1u << 28);
    const std::size_t wanted = std::max<std::size_t>(std::size_t{room} * 2, top + entries);
    if (top + entries > most) {
        steps = 0;
        return false;
    }
    state.stack.resize(std::min(wanted, most));
    stack = state.stack.data();
    room = static_cast<std::uint32_t>(state.stack.size());
    return true;
}

void Matcher::push(Entry::Tag tag, std::uint32_t index, std::uint32_t a, std::uint32_t b)
{
    Entry& entry = stack[top++];
    entry.tag = tag;
    entry.index = index & 0x0FFFFFFF;
    entry.a = a;
    entry.b = b;
}

void Matcher::setRegister(std::uint32_t place, int value)
{
    push(Entry::Restore, place, static_cast<std::uint32_t>(registers[place]), 0);
    registers[place] = value;
}

// ---- the budget and the memory of failures

bool Matcher::spend(std::int64_t count)
{
    steps -= count;
    if (steps > alarm)
        return true;
    if (steps <= 0)
        return false;
    startMemory();
    alarm = 0;
    return true;
}

void Matcher::startMemory()
{
    const std::size_t words = memoryRow * program.memoryCount;
    if (remembering || words == 0 || words > kLargestMemory / sizeof(std::uint64_t))
        return;
    state.memory.assign(words, 0);
    remembering = true;
}

bool Matcher::isFailed(std::uint32_t memory, int pos) const
{
    const auto place = static_cast<std::size_t>(pos);
    return ((state.memory[(memory - 1) * memoryRow + place / 64] >> (place % 64)) & 1) != 0;
}

void Matcher::setFailed(std::uint32_t memory, int first, int last)
{
    std::uint64_t* const row = state.memory.data() + (memory - 1) * memoryRow;
    for (auto place = static_cast<std::size_t>(first); place <= static_cast<std::size_t>(last);) {
        const std::size_t wordLast = std::min(static_cast<std::size_t>(last), place | 63);
        row[place / 64] |= (~std::uint64_t{0} >> (63 - (wordLast - place))) << (place % 64);
        place = wordLast + 1;
    }
}

} // namespace

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
