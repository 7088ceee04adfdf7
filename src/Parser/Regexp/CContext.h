#pragma once

#include "Util/Text.h"

#include <cstdint>
#include <memory>

namespace varn {

class CRegexpT;

namespace regexp {
struct MatchState;
}

/// The state of repeated matches over one text: the text, where the next search begins, and the
/// matcher's stacks, which are kept from match to match so that a match allocates nothing. Made by
/// CRegexpT::prepareMatch; belongs to one thread; the text must outlive it.
class CContext
{
  public:
    CContext();
    CContext(CContext&&) noexcept;
    CContext& operator=(CContext&&) noexcept;
    ~CContext();

    /// Takes another text; the stacks are kept, the budgets are filled anew.
    /// @param start  where the search begins, in units; a place outside the text is moved to its
    /// nearest
    ///               end. -1: at the text's beginning, or at its end when matching from right to
    ///               left.
    void setText(WStringView text, int start = -1);

    /// What one pass over the text may cost, all its matches together. A step is about one return
    /// to an earlier choice, or a run of 32 units. 0 stands for the default, 100 million steps and
    /// 100 more for each unit of the text.
    void setStepBudget(std::uint64_t steps);
    /// Upper bound of the memory for pending choices; the default is 128 MiB.
    void setStackBudget(std::size_t bytes);

    /// True once a budget ended a search: what came back as "no match" is no answer then.
    bool isExhausted() const;
    /// Where the next search begins.
    int getIndex() const;

  private:
    friend class CRegexpT;
    std::unique_ptr<regexp::MatchState> state;
};

} // namespace varn
