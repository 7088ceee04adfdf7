#pragma once

#include "Parser/Regexp/MatchState.h"
#include "Parser/Regexp/Program.h"

namespace varn::regexp {

/// What is known of failures that depend on nothing but the program's state and the position, so
/// that no search goes the same way twice. Two kinds: for each run the last stretch of text where
/// it failed, which costs nothing to keep; and a bit for each state and position, kept once a
/// search proves laborious.
class FailureMemory
{
  public:
    FailureMemory(const Program& program, MatchState& state)
        : program(program), state(state), row(state.text.size() / 64 + 1),
          remembering(!state.memory.empty())
    {}

    /// Starts with the bits, unless the program has no such states or they would pass 64 MiB.
    void start();
    /// Whether the bits are kept for a state; state 0 is none.
    bool remembers(std::uint32_t memory) const { return remembering && memory != 0; }
    bool isFailed(std::uint32_t memory, int pos) const
    {
        const auto place = static_cast<std::size_t>(pos);
        return ((state.memory[(memory - 1) * row + place / 64] >> (place % 64)) & 1) != 0;
    }
    /// @param first, last  positions, both included
    void setFailed(std::uint32_t memory, int first, int last);

    /// An earlier attempt that failed entered the run here, or could have.
    bool isInFailedStretch(const Run& run, int pos) const
    {
        if (run.stretch == kNone)
            return false;
        const Stretch& stretch = state.stretches[run.stretch];
        return stretch.first <= pos && pos <= stretch.last && stretch.attempt != state.attempt;
    }
    /// If this attempt fails, it fails from every place of the stretch.
    void noteStretch(const Run& run, int first, int last)
    {
        if (run.stretch != kNone)
            state.stretches[run.stretch] = {state.attempt, first, last};
    }
    /// This attempt did not fail.
    void forgetAttempt();

  private:
    const Program& program;
    MatchState& state;
    std::size_t row; // words a state
    bool remembering;
};

} // namespace varn::regexp
