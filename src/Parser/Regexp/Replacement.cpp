#include "Parser/Regexp/Replacement.h"

#include "Parser/Regexp/PatternReader.h"

namespace varn::regexp {

namespace {

constexpr std::size_t kMostDigits = 3;

int highestGroup(const MatchResultT& match)
{
    int group = match.getGroupCount();
    while (group > 0 && match.getGroupStart(group) < 0)
        --group;
    return group;
}

WStringView groupText(WStringView text, const MatchResultT& match, int group)
{
    const int start = match.getGroupStart(group);
    if (start < 0)
        return {};
    return text.substr(static_cast<std::size_t>(start),
                       static_cast<std::size_t>(match.getGroupEnd(group) - start));
}

} // namespace

Replacement::Replacement(WStringView text, int groupCount,
                         const std::map<WString, int>& groupNumbers)
    : groupCount(groupCount), groupNumbers(groupNumbers)
{
    while (!text.empty()) {
        const std::size_t dollar = std::min(text.find(u'$'), text.size());
        addLiteral(text.substr(0, dollar));
        text.remove_prefix(dollar);
        if (text.empty())
            return;
        std::size_t taken = addForm(text.substr(1));
        if (taken == 0)
            addLiteral(u"$");
        text.remove_prefix(1 + taken);
    }
}

void Replacement::addLiteral(WStringView text)
{
    if (text.empty())
        return;
    if (pieces.empty() || pieces.back().form != Form::Literal)
        pieces.push_back({Form::Literal});
    pieces.back().literal += text;
}

/// How many units behind the dollar sign belong to the form; 0: it is none.
std::size_t Replacement::addForm(WStringView rest)
{
    switch (rest.empty() ? u'\0' : rest[0]) {
    case u'$':
        addLiteral(u"$");
        return 1;
    case u'&':
        pieces.push_back({Form::Group});
        return 1;
    case u'`':
        pieces.push_back({Form::Before});
        return 1;
    case u'\'':
        pieces.push_back({Form::Behind});
        return 1;
    case u'+':
        pieces.push_back({Form::HighestGroup});
        return 1;
    case u'_':
        pieces.push_back({Form::WholeText});
        return 1;
    case u'{':
        return addName(rest);
    default:
        return addNumber(rest);
    }
}

std::size_t Replacement::addNumber(WStringView rest)
{
    int number = 0;
    std::size_t digits = 0;
    while (digits < kMostDigits && digits < rest.size() && isDigit(rest[digits]) &&
           number * 10 + (rest[digits] - u'0') <= groupCount)
        number = number * 10 + (rest[digits++] - u'0');
    if (digits > 0)
        pieces.push_back({Form::Group, number});
    return digits;
}

std::size_t Replacement::addName(WStringView rest)
{
    const std::size_t close = rest.find(u'}');
    if (close == WStringView::npos)
        return 0;
    const WStringView name = rest.substr(1, close - 1);
    if (!name.empty() && isDigit(name[0]) && name.find_first_not_of(u"0123456789") == name.npos) {
        const int number = parseDecimal(name);
        if (number > groupCount)
            return 0;
        pieces.push_back({Form::Group, number});
        return close + 1;
    }
    const auto group = groupNumbers.find(WString(name));
    if (group == groupNumbers.end())
        return 0;
    pieces.push_back({Form::Group, group->second});
    return close + 1;
}

bool Replacement::appendTo(WString& result, WStringView text, const MatchResultT& match) const
{
    const std::size_t before = result.size();
    for (const Piece& piece : pieces) {
        const WStringView inserted = textOf(piece, text, match);
        if (result.size() + inserted.size() > kLongestResult) {
            result.resize(before);
            return false;
        }
        result += inserted;
    }
    return true;
}

WStringView Replacement::textOf(const Piece& piece, WStringView text, const MatchResultT& match)
{
    switch (piece.form) {
    case Form::Literal:
        return piece.literal;
    case Form::Group:
        return groupText(text, match, piece.group);
    case Form::HighestGroup:
        return groupText(text, match, highestGroup(match));
    case Form::Before:
        return text.substr(0, static_cast<std::size_t>(match.getStart()));
    case Form::Behind:
        return text.substr(static_cast<std::size_t>(match.getEnd()));
    case Form::WholeText:
        return text;
    }
    return {};
}

} // namespace varn::regexp
