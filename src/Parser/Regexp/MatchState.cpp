#include "Parser/Regexp/MatchState.h"

#include "Parser/Regexp/Program.h"

#include <algorithm>

namespace varn::regexp {

void MatchState::setText(WStringView newText, int newStart)
{
    text = newText;
    start = newStart;
    placed = exhausted = false;
    finished = text.size() > kLongestText;
    serial = 0;
    fillSteps();
}

void MatchState::fillSteps()
{
    const std::uint64_t steps =
        stepBudget != 0 ? stepBudget : kDefaultSteps + kDefaultStepsPerUnit * text.size();
    stepsLeft = static_cast<std::int64_t>(std::min<std::uint64_t>(steps, INT64_MAX));
}

void MatchState::prepareFor(const Program& program)
{
    if (!placed) {
        const auto length = static_cast<int>(text.size());
        const int natural = program.direction == Direction::Forward ? 0 : length;
        index = start < 0 ? natural : std::min(start, length);
        placed = true;
    }
    if (serial == program.serial)
        return;
    serial = program.serial;
    registers.assign(program.registerCount, -1);
    stretches.assign(program.stretchCount, {});
    memory.clear();
}

} // namespace varn::regexp
