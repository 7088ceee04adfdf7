#include "Parser/Regexp/StartSearch.h"

namespace varn::regexp {

int StartSearch::nextForward(int from) const
{
    const int last = subject.getLength() - program.minLength;
    if (from > last)
        return -1;
    int start = from;
    switch (program.start.kind) {
    case StartPlan::Kind::Everywhere:
        break;
    case StartPlan::Kind::TextBegin:
        return from == 0 ? 0 : -1;
    case StartPlan::Kind::SearchStart:
        return from == searchStart ? from : -1;
    case StartPlan::Kind::LineBegin:
        start = nextLineBegin(from);
        break;
    case StartPlan::Kind::FirstUnit: {
        const UnitTable& first = program.tables[program.start.firstUnits];
        start = static_cast<int>(first.find(subject.at(from), subject.end()) - subject.at(0));
        break;
    }
    case StartPlan::Kind::WordBegin:
        start = nextWordBegin(from);
        break;
    case StartPlan::Kind::Probe: {
        const char16_t* const found = program.start.probe.find(subject.at(from), subject.end());
        if (!found)
            return -1;
        start = static_cast<int>(found - subject.at(0));
        break;
    }
    }
    return start <= last ? start : -1;
}

int StartSearch::nextBackward(int from) const
{
    const UnitTable& first = program.tables[program.start.firstUnits];
    if (program.start.kind == StartPlan::Kind::FirstUnit)
        while (from > 0 && !first.has(subject.next<Direction::Backward>(from)))
            --from;
    return from >= program.minLength ? from : -1;
}

int StartSearch::nextLineBegin(int from) const
{
    static const UnitTable lineEnds(lineEndUnits());
    while (!subject.isLineBegin(from)) {
        from = static_cast<int>(lineEnds.find(subject.at(from), subject.end()) - subject.at(0)) + 1;
        if (from > subject.getLength())
            return from;
    }
    return from;
}

/// The first units are all word units here, and the match takes one at least.
int StartSearch::nextWordBegin(int from) const
{
    static const UnitTable words(wordUnits());
    const UnitTable& first = program.tables[program.start.firstUnits];
    const char16_t* const end = subject.end();
    const char16_t* at = subject.at(from);
    if (from > 0 && isWord(at[-1]))
        at = words.skip(at, end);
    for (;;) {
        at = words.find(at, end);
        if (at == end || first.has(*at))
            return static_cast<int>(at - subject.at(0));
        at = words.skip(at, end);
    }
}

/// Where the leading run failed once, it fails again.
int StartSearch::nextBehind(int failed, const Stretch* stretch) const
{
    if (program.direction == Direction::Backward)
        return next(failed - 1);
    const int from = failed + 1;
    const int run = from + program.start.leadingUnits;
    const bool inVain = stretch && stretch->first <= run && run <= stretch->last;
    return next(inVain ? stretch->last + 1 - program.start.leadingUnits : from);
}

} // namespace varn::regexp
