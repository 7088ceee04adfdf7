#pragma once

#include "Util/Text.h"

#include <cstdint>
#include <vector>

namespace varn::regexp {

struct Program;

/// What a failure returns to, newest last. `index` is an instruction unless told otherwise.
struct Entry
{
    enum Tag : std::uint32_t
    {
        Choice,  ///< go on at `index`, at position a
        Restore, ///< register `index` was a
        Greedy,  ///< the run at `index` holds up to a, may give back to b
        GreedyBack,
        Reluctant, ///< the run at `index`, begun at b, holds up to a, may take more
        ReluctantBack,
        Barrier,     ///< the Enter at `index`, at position a; the enclosing barrier is b
        Frame,       ///< the Call at `index`, at position b; the calling frame is a
        Kept,        ///< register `index` had a at the frame's call
        FrameBefore, ///< the frame was `index` before a Return
        Failed,      ///< state `index` of the memory failed, from position a to b
    };

    std::uint32_t tag : 4;
    std::uint32_t index : 28;
    std::uint32_t a;
    std::uint32_t b;
};

/// Positions from which a run was entered, or might have been, in an attempt that failed.
struct Stretch
{
    std::uint64_t attempt = 0; ///< 0: none
    int first = 0;
    int last = -1;
};

/// A longer text matches nothing: positions are of 32 bits.
inline constexpr std::size_t kLongestText = (std::size_t{1} << 31) - 64;
inline constexpr std::size_t kDefaultStackBytes = std::size_t{128} << 20;
inline constexpr std::uint64_t kDefaultSteps = 20'000'000;
inline constexpr std::uint64_t kDefaultStepsPerUnit = 64;

/// What CContext keeps from match to match.
struct MatchState
{
    WStringView text;
    int start = -1; ///< as it was given
    int index = 0;
    bool placed = false;   ///< the index is set for the direction of the program
    bool finished = false; ///< nothing is left to search
    bool exhausted = false;

    std::uint64_t stepBudget = 0; ///< 0: the default
    std::int64_t stepsLeft = 0;
    std::size_t stackBytes = kDefaultStackBytes;
    /// A search is laborious once it took so many steps, and so many more for each unit it went
    /// through.
    std::int64_t patience = 4096;
    std::int64_t patiencePerUnit = 16;

    std::uint64_t serial = 0; ///< of the program that what follows is laid out for
    std::vector<int> registers;
    std::vector<Entry> stack = std::vector<Entry>(256); ///< its size is the room there is
    std::vector<Stretch> stretches;
    std::uint64_t attempt = 0;
    /// A bit for each state with a memory and each position: it failed there. Kept only once
    /// matching has proved laborious, and never beyond kLargestMemory.
    std::vector<std::uint64_t> memory;

    void setText(WStringView newText, int newStart);
    void fillSteps();
    /// Room for a program's registers and stretches, and the index for its direction.
    void prepareFor(const Program& program);
};

} // namespace varn::regexp
