#pragma once

#include "Parser/Regexp/MatchResultT.h"
#include "Parser/Regexp/MatchState.h"
#include "Parser/Regexp/Program.h"

namespace varn::regexp {

/// Searches for the next match of the state's text, from its index on. On success the result holds
/// the match and the index lies behind it; otherwise nothing is left to be found, or the state is
/// exhausted.
bool searchNext(const Program& program, MatchState& state, MatchResultT& result);

} // namespace varn::regexp
