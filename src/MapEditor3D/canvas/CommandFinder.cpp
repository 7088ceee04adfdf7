#include "MapEditor3D/canvas/CommandFinder.h"

#include <algorithm>

namespace varn {

namespace {

// What a letter that was found is worth, and where it stands.
constexpr int kLetter = 10, kInARow = 12, kWordStart = 18, kTextStart = 10;
constexpr int kLongerText = 1; ///< for each unit of the text
constexpr int kOtherName = 15; ///< a name in another language, or the menus above

char16_t folded(char16_t unit)
{
    const char32_t code = foldCase(unit);
    return code < 0x10000 ? static_cast<char16_t>(code) : unit;
}

bool isBlank(char16_t unit)
{
    return unit == u' ' || unit == u'\t' || unit == u'\u3000';
}

bool startsWord(WStringView text, std::size_t at)
{
    return at == 0 || !isLetter(text[at - 1]) ||
           (toSmallLetter(text[at - 1]) == text[at - 1] && toSmallLetter(text[at]) != text[at]);
}

/// A title without the marks of its mnemonic: "&File", and "(&F)" behind a title that has no such
/// letter.
WString withoutMnemonic(const WString& title)
{
    WString text;
    for (std::size_t i = 0; i < title.size(); ++i) {
        const bool inBrackets = title[i] == u'(' && i + 3 < title.size() && title[i + 1] == u'&' &&
                                title[i + 3] == u')';
        if (inBrackets)
            i += 3;
        else if (title[i] == u'&' && i + 1 < title.size())
            text += title[++i];
        else
            text += title[i];
    }
    return text;
}

} // namespace

/// The best way to take the letters is found row by row: `best[j]` is the score of the letters so
/// far with the last of them at place j.
std::optional<FuzzyMatch> fuzzyMatch(WStringView query, WStringView text)
{
    WString letters;
    for (const char16_t unit : query)
        if (!isBlank(unit))
            letters += folded(unit);
    if (letters.empty())
        return FuzzyMatch{};
    if (letters.size() > text.size())
        return std::nullopt;

    constexpr int kNone = -1;
    const std::size_t width = text.size();
    std::vector<int> best(width, kNone);
    std::vector<std::vector<std::size_t>> from; // where the letter before stands
    for (std::size_t i = 0; i < letters.size(); ++i) {
        std::vector<int> next(width, kNone);
        from.emplace_back(width, 0);
        int reach = kNone; // the best of all places before j
        std::size_t reachAt = 0;
        for (std::size_t j = 0; j < width; ++j) {
            if (folded(text[j]) == letters[i]) {
                const int here =
                    kLetter + (startsWord(text, j) ? kWordStart : 0) + (j == 0 ? kTextStart : 0);
                if (i == 0) {
                    next[j] = here;
                } else {
                    if (reach != kNone) {
                        next[j] = reach + here;
                        from[i][j] = reachAt;
                    }
                    if (j > 0 && best[j - 1] != kNone && best[j - 1] + here + kInARow > next[j]) {
                        next[j] = best[j - 1] + here + kInARow;
                        from[i][j] = j - 1;
                    }
                }
            }
            if (i > 0 && best[j] > reach) {
                reach = best[j];
                reachAt = j;
            }
        }
        best = std::move(next);
    }
    const auto end = std::max_element(best.begin(), best.end());
    if (*end == kNone)
        return std::nullopt;

    FuzzyMatch match;
    match.score = *end - kLongerText * static_cast<int>(width);
    match.places.resize(letters.size());
    auto at = static_cast<std::size_t>(end - best.begin());
    for (std::size_t i = letters.size(); i-- > 0;) {
        match.places[i] = at;
        at = from[i][at];
    }
    return match;
}

CommandFinder::CommandFinder(std::span<const MenuEntry> menu,
                             std::span<const std::vector<MenuEntry>> others)
{
    collect(menu, {});
    for (const std::vector<MenuEntry>& other : others)
        collectOther(other);
}

void CommandFinder::add(int command, WString title, WString shortcut)
{
    Known known;
    known.shown.command = command;
    known.shown.title = std::move(title);
    known.shown.shortcut = std::move(shortcut);
    commands.push_back(std::move(known));
}

void CommandFinder::collect(std::span<const MenuEntry> entries, const WString& path)
{
    for (const MenuEntry& entry : entries) {
        if (!entry.children.empty()) {
            const WString title = withoutMnemonic(entry.title);
            collect(entry.children, path.empty() ? title : path + u" > " + title);
        } else if (entry.command != 0) {
            add(entry.command, withoutMnemonic(entry.title), entry.shortcut);
            commands.back().shown.path = path;
            commands.back().shown.argument = entry.argument;
        }
    }
}

void CommandFinder::collectOther(std::span<const MenuEntry> entries)
{
    for (const MenuEntry& entry : entries) {
        collectOther(entry.children);
        const WString title = withoutMnemonic(entry.title);
        for (Known& known : commands)
            if (known.shown.command == entry.command && known.shown.argument == entry.argument &&
                known.shown.title != title)
                known.otherNames.push_back(title);
    }
}

std::vector<FoundCommand> CommandFinder::find(WStringView query, std::size_t limit) const
{
    std::vector<FoundCommand> found;
    for (const Known& known : commands) {
        FoundCommand one = known.shown;
        bool matches = false;
        if (auto match = fuzzyMatch(query, one.title)) {
            one.score = match->score;
            one.matched = std::move(match->places);
            matches = true;
        }
        const auto tryOther = [&](const WString& name) {
            const auto match = fuzzyMatch(query, name);
            if (!match || (matches && match->score - kOtherName <= one.score))
                return;
            one.score = match->score - kOtherName;
            one.matched.clear();
            matches = true;
        };
        for (const WString& name : known.otherNames)
            tryOther(name);
        if (!known.shown.path.empty())
            tryOther(known.shown.path + u" " + known.shown.title);
        if (matches)
            found.push_back(std::move(one));
    }
    std::stable_sort(found.begin(), found.end(), [](const FoundCommand& a, const FoundCommand& b) {
        return a.score > b.score;
    });
    if (found.size() > limit)
        found.resize(limit);
    return found;
}

} // namespace varn
