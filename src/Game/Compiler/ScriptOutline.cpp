#include "Game/Compiler/ScriptOutline.h"

#include "Parser/Regexp/CRegexpT.h"

#include <algorithm>

namespace varn {

std::vector<OutlineEntry> outlineOf(WStringView source)
{
    static const CRegexpT head(uR"(function ([A-Za-z].*\(.*\)))");
    std::vector<OutlineEntry> entries;
    for (int line = 1; !source.empty(); ++line) {
        const WStringView text = source.substr(0, source.find_first_of(u"\r\n"));
        CContext search = head.prepareMatch(text);
        for (MatchResultT match; head.match(search, match);)
            entries.push_back(
                {line, WString(text.substr(static_cast<std::size_t>(match.getGroupStart(1)),
                                           static_cast<std::size_t>(match.getGroupEnd(1) -
                                                                    match.getGroupStart(1))))});
        const WStringView lineEnd = source.substr(text.size());
        source.remove_prefix(
            std::min(source.size(), text.size() + (lineEnd.starts_with(u"\r\n") ? 2 : 1)));
    }
    return entries;
}

} // namespace varn
