#pragma once

#include "Parser/Regexp/BacktrackStack.h"
#include "Parser/Regexp/FailureMemory.h"
#include "Parser/Regexp/MatchResultT.h"
#include "Parser/Regexp/Program.h"
#include "Parser/Regexp/Subject.h"

namespace varn::regexp {

/// Searches for the next match of the state's text, from its index on. On success the result holds
/// the match and the index lies behind it; otherwise nothing is left to be found, or the state is
/// exhausted.
bool searchNext(const Program& program, MatchState& state, MatchResultT& result);

/// Comparing and skipping so many units costs a step.
inline constexpr int kUnitsPerStep = 32;

/// One search. `pos` is a position in the subject, `pc` an instruction's place. An operation that
/// returns false has failed; running out of steps or memory fails too, and leaves `steps` at 0 or
/// below, which ends the search.
class Matcher
{
  public:
    Matcher(const Program& program, MatchState& state)
        : program(program), state(state), code(program.code.data()), subject(state.text),
          stack(state), failures(program, state), steps(state.stepsLeft)
    {}
    ~Matcher() { state.stepsLeft = steps; }
    Matcher(const Matcher&) = delete;
    Matcher& operator=(const Matcher&) = delete;

    bool search(MatchResultT& result);

  private:
    void accept(int start, int end, MatchResultT& result);
    /// Tries to match at a place; where the match ends, or -1.
    int attempt(int start);
    bool backtrack(std::uint32_t& pc, int& pos);
    bool retry(const Entry& entry, std::uint32_t& pc, int& pos);

    // elements
    template <Direction kWay>
    bool takeUnit(const Instruction& at, int& pos) const;
    template <Direction kWay>
    bool takePair(const Instruction& at, int& pos) const;
    template <Direction kWay>
    bool takeSet(const Instruction& at, int& pos) const;
    template <Direction kWay>
    bool takeText(const Instruction& at, int& pos) const;
    template <Direction kWay>
    bool takeBackreference(const Instruction& at, int& pos);
    template <Direction kWay>
    bool isNext(const Instruction& at, int pos) const;
    template <Direction kWay>
    bool closeGroup(const Instruction& at, int pos);
    bool save(std::uint32_t place, int value);
    bool tookPart(std::uint32_t group) const;

    // runs
    template <Direction kWay>
    int skip(std::uint32_t table, int from, int limit) const;
    template <Direction kWay>
    int find(std::uint32_t table, int from, int limit) const;
    void pushFailed(const Run& run, int from, int to);
    template <Direction kWay>
    bool isShortestLeft(const Run& run, int pos) const;
    template <Direction kWay>
    bool enterGreedy(std::uint32_t pc, int& pos);
    template <Direction kWay>
    int heldBack(const Run& run, int held, int shortest) const;
    template <Direction kWay>
    bool giveBack(const Entry& entry, int& pos);
    template <Direction kWay>
    bool enterReluctant(std::uint32_t pc, int& pos);
    template <Direction kWay>
    bool takeMore(std::uint32_t pc, int begun, int from, int& pos);
    template <Direction kWay>
    bool enterPossessive(const Run& run, int& pos);

    // choices, loops, parts that are cut, calls
    template <Direction kWay>
    bool branch(std::uint32_t& pc, int pos);
    bool choose(std::uint32_t& pc, std::uint32_t first, std::uint32_t second, int pos);
    bool enterTurn(std::uint32_t& pc, int pos);
    bool endTurn(std::uint32_t& pc, int pos);
    bool enterPart(std::uint32_t pc, int pos);
    int leavePart();
    bool leaveNegated(std::uint32_t& pc, int& pos);
    bool call(std::uint32_t& pc, int pos);
    bool returnFromCall(std::uint32_t& pc);
    bool isLeftRecursive(std::uint32_t target, int pos);

    // the budgets
    bool spend(std::int64_t count);
    bool ensureRoom(std::uint32_t entries);

    const Program& program;
    MatchState& state;
    const Instruction* code;
    Subject subject;
    BacktrackStack stack;
    FailureMemory failures;
    std::uint32_t barrier = kNone; ///< place of the innermost Barrier entry that is still open
    std::uint32_t frame = kNone;   ///< place of the Frame entry of the innermost call
    std::int64_t steps;
    std::int64_t alarm = 0; ///< steps left at which the memory of failures starts
};

} // namespace varn::regexp
