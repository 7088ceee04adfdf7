#include "Parser/Regexp/CRegexpT.h"

#include "Parser/Regexp/CBuilderT.h"
#include "Parser/Regexp/Matcher.h"
#include "Parser/Regexp/PatternParser.h"
#include "Parser/Regexp/Replacement.h"

#include <algorithm>

namespace varn {

using regexp::Direction;
using regexp::MatchState;
using regexp::Replacement;

CContext::CContext() : state(std::make_unique<MatchState>()) {}
CContext::CContext(CContext&&) noexcept = default;
CContext& CContext::operator=(CContext&&) noexcept = default;
CContext::~CContext() = default;

void CContext::setText(WStringView text, int start)
{
    state->setText(text, start);
}

void CContext::setStepBudget(std::uint64_t steps)
{
    state->stepBudget = steps;
    state->fillSteps();
}

void CContext::setStackBudget(std::size_t bytes)
{
    state->stackBytes = bytes;
}

bool CContext::isExhausted() const
{
    return state->exhausted;
}

int CContext::getIndex() const
{
    return state->index;
}

bool CRegexpT::compile(WStringView pattern, int flags)
{
    program = nullptr;
    fault.clear();
    const Direction direction =
        (flags & kRightToLeft) != 0 ? Direction::Backward : Direction::Forward;
    try {
        const regexp::Pattern tree = regexp::parsePattern(pattern, flags);
        program =
            std::make_shared<const regexp::Program>(regexp::CBuilderT(tree, direction).build());
    } catch (const regexp::PatternException& exception) {
        fault = exception.getMessage() + u" (at " +
                toDecimal(static_cast<std::int64_t>(exception.getPosition())) + u")";
    }
    return program != nullptr;
}

int CRegexpT::getGroupCount() const
{
    return program ? program->groupCount : 0;
}

int CRegexpT::namedGroupNumber(WStringView name) const
{
    if (!program)
        return -1;
    const auto group = program->groupNumbers.find(WString(name));
    return group == program->groupNumbers.end() ? -1 : group->second;
}

CContext CRegexpT::prepareMatch(WStringView text, int start) const
{
    CContext context;
    context.setText(text, start);
    if (program)
        context.state->prepareFor(*program);
    return context;
}

bool CRegexpT::match(CContext& context, MatchResultT& result) const
{
    if (!program) {
        result.clear(0);
        return false;
    }
    context.state->prepareFor(*program);
    return regexp::searchNext(*program, *context.state, result);
}

MatchResultT CRegexpT::match(WStringView text) const
{
    MatchResultT result;
    CContext context = prepareMatch(text);
    match(context, result);
    return result;
}

WString CRegexpT::replace(WStringView text, WStringView replacement, int startIndex,
                          int times) const
{
    CContext context = prepareMatch(text, startIndex);
    return replace(context, replacement, times);
}

WString CRegexpT::replace(CContext& context, WStringView replacement, int times) const
{
    if (!program)
        return {};
    const Replacement inserted(replacement, program->groupCount, program->groupNumbers);
    return program->direction == Direction::Forward ? replaceForward(context, inserted, times)
                                                    : replaceBackward(context, inserted, times);
}

WString CRegexpT::replaceForward(CContext& context, const Replacement& inserted, int times) const
{
    const WStringView text = context.state->text;
    WString result;
    std::size_t copied = 0;
    MatchResultT found;
    for (; times != 0 && match(context, found); --times) {
        const auto start = static_cast<std::size_t>(found.getStart());
        result += text.substr(copied, start - copied);
        if (!inserted.appendTo(result, text, found)) {
            copied = start;
            break;
        }
        copied = static_cast<std::size_t>(found.getEnd());
    }
    return result += text.substr(copied);
}

/// The matches come last first, so what is put in waits until the text is put together.
WString CRegexpT::replaceBackward(CContext& context, const Replacement& inserted, int times) const
{
    struct Piece
    {
        std::size_t start;
        std::size_t end;
        std::size_t inserted; ///< where its text ends among the insertions
    };
    const WStringView text = context.state->text;
    std::vector<Piece> pieces;
    WString insertions;
    MatchResultT found;
    for (; times != 0 && match(context, found) && inserted.appendTo(insertions, text, found);
         --times)
        pieces.push_back({static_cast<std::size_t>(found.getStart()),
                          static_cast<std::size_t>(found.getEnd()), insertions.size()});
    WString result;
    std::size_t copied = 0;
    for (std::size_t i = pieces.size(); i-- > 0;) {
        const std::size_t begun = i == 0 ? 0 : pieces[i - 1].inserted;
        result += text.substr(copied, pieces[i].start - copied);
        result.append(insertions, begun, pieces[i].inserted - begun);
        copied = pieces[i].end;
    }
    return result += text.substr(copied);
}

} // namespace varn
