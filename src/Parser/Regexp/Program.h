#pragma once

#include "Parser/Regexp/Facts.h"
#include "Parser/Regexp/StartPlan.h"
#include "Parser/Regexp/UnitTable.h"

#include <map>

namespace varn::regexp {

/// Those with a twin walk toward the text's end, the twin (`...Back`) toward its beginning. `here`
/// and `there` are filters: bit n is set where a unit that is n modulo 64 may come next on that
/// road.
#define VARN_REGEXP_OPERATIONS(X)                                                                  \
    X(Unit) /* the unit `units[0]` */                                                              \
    X(UnitBack)                                                                                    \
    X(Pair) /* `units[0]` or `units[1]` */                                                         \
    X(PairBack)                                                                                    \
    X(Set) /* a unit of table a */                                                                 \
    X(SetBack)                                                                                     \
    X(Text) /* b units of the texts, from a */                                                     \
    X(TextBack)                                                                                    \
    X(Backreference) /* the text of group a again; flag: ignoring case */                          \
    X(BackreferenceBack)                                                                           \
    X(RunGreedy) /* run a, giving back what it took */                                             \
    X(RunGreedyBack)                                                                               \
    X(RunReluctant) /* run a, taking more on demand */                                             \
    X(RunReluctantBack)                                                                            \
    X(RunPossessive) /* run a, giving nothing back */                                              \
    X(RunPossessiveBack)                                                                           \
    X(PeekSet) /* a unit of table a comes next; nothing is taken */                                \
    X(PeekSetBack)                                                                                 \
    X(PeekNotSet) /* nothing comes next, or a unit that is not of table a */                       \
    X(PeekNotSetBack)                                                                              \
    X(Save)       /* register a = position */                                                      \
    X(CloseGroup) /* group a = register b to position */                                           \
    X(CloseGroupBack)                                                                              \
    X(Jump)   /* to a */                                                                           \
    X(Branch) /* on, or to a; flag: a is tried first; c: memory of failures, or 0 */               \
    X(BranchBack)                                                                                  \
    X(LeaveIfEmpty) /* to a when the position is still register b's */                             \
    X(SetCounter)   /* register a = 0 */                                                           \
    X(CountedHead)  /* another turn, or to a; counted in register b; flag: a is tried first */     \
    X(CountedNext)  /* ++register b, to a; register c, if any, tells an empty turn */              \
    X(Enter)        /* opens a part that is cut when it ends; to a when it fails, if any */        \
    X(LeaveLook)    /* cuts; the position is the one at Enter */                                   \
    X(LeaveNegated) /* undoes and cuts; to a, or fails */                                          \
    X(LeaveAtomic)  /* cuts; the position stays */                                                 \
    X(Call)         /* the subroutine at a; keeps c registers, listed from b */                    \
    X(Return)                                                                                      \
    X(TestGroup) /* to a where group b took no part */                                             \
    X(TextBegin)                                                                                   \
    X(TextEnd)                                                                                     \
    X(LastLineEnd)                                                                                 \
    X(LineBegin)                                                                                   \
    X(LineEnd)                                                                                     \
    X(WordBoundary)                                                                                \
    X(NoWordBoundary)                                                                              \
    X(SearchStart)                                                                                 \
    X(Accept)

enum class Op : std::uint8_t
{
#define X(name) name,
    VARN_REGEXP_OPERATIONS(X)
#undef X
};

inline constexpr std::uint32_t kNone = UINT32_MAX;

struct Instruction
{
    Op op;
    bool flag = false;
    char16_t units[2] = {0, 0};
    std::uint32_t a = kNone;
    std::uint32_t b = kNone;
    std::uint32_t c = 0;
    std::uint64_t here =
        ~std::uint64_t{0}; ///< Branch: filter of the road on; CountedHead: least turns
    std::uint64_t there =
        ~std::uint64_t{0}; ///< Branch: filter of the road to a; CountedHead: most turns
};

/// A loop over units of one set.
struct Run
{
    std::uint32_t set;            ///< table
    std::uint32_t follow = kNone; ///< table of the units that may come behind; kNone: any may
    std::uint32_t stop = kNone; ///< RunReluctant with `follow`: table of follow and all not of set
    int min;
    int max;
    std::uint32_t memory = 0;      ///< memory of failures, or 0
    std::uint32_t stretch = kNone; ///< place among the failed stretches, see MatchState
};

/// A compiled pattern. Registers: start and end of group 0, 1, ...; then what loops and groups
/// keep.
struct Program
{
    std::uint64_t serial = 0; ///< no two programs have the same
    Direction direction = Direction::Forward;
    int groupCount = 0;
    std::map<WString, int> groupNumbers;

    std::vector<Instruction> code;
    std::vector<Run> runs;
    std::vector<UnitTable> tables;
    WString texts;
    std::vector<std::uint32_t> keptRegisters; ///< lists of Call

    std::uint32_t registerCount = 0;
    std::uint32_t memoryCount = 0;  ///< states with a memory of failures, numbered from 1
    std::uint32_t stretchCount = 0; ///< runs with a failed stretch
    int minLength = 0;
    StartPlan start;
};

} // namespace varn::regexp
