#pragma once

#include "Parser/Regexp/MatchState.h"
#include "Parser/Regexp/Program.h"
#include "Parser/Regexp/Subject.h"

namespace varn::regexp {

/// Goes through the places of a text where a match may start, in the program's direction.
class StartSearch
{
  public:
    /// @param searchStart  where the search begins; what `\G` means
    StartSearch(const Program& program, const Subject& subject, int searchStart)
        : program(program), subject(subject), searchStart(searchStart)
    {}

    /// The nearest place from here on; -1: there is none any more.
    int next(int from) const
    {
        return program.direction == Direction::Forward ? nextForward(from) : nextBackward(from);
    }
    /// The nearest place behind one that failed. @param stretch  where the leading run failed, or
    /// null
    int nextBehind(int failed, const Stretch* stretch) const;

  private:
    int nextForward(int from) const;
    int nextBackward(int from) const;
    int nextLineBegin(int from) const;
    int nextWordBegin(int from) const;

    const Program& program;
    const Subject& subject;
    int searchStart;
};

} // namespace varn::regexp
