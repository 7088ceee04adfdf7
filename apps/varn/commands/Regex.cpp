#include "Context.h"
#include "Parser/Regexp/CRegexpT.h"

#include <nlohmann/json.hpp>

namespace varn::driver {

namespace {

std::string placeText(const MatchResultT& match, int group)
{
    return std::to_string(match.getGroupStart(group)) + " " +
           std::to_string(match.getGroupEnd(group));
}

Json placeJson(const MatchResultT& match, int group)
{
    return {{"start", match.getGroupStart(group)}, {"end", match.getGroupEnd(group)}};
}

void printMatches(Context& context, const std::vector<MatchResultT>& matches)
{
    Json list = Json::array();
    for (const MatchResultT& match : matches) {
        std::string line = placeText(match, 0);
        Json fields = placeJson(match, 0);
        fields["groups"] = Json::array();
        for (int group = 1; group <= match.getGroupCount(); ++group) {
            line += " " + placeText(match, group);
            fields["groups"].push_back(placeJson(match, group));
        }
        if (context.json())
            list.push_back(std::move(fields));
        else
            context.out().line(std::string_view(line));
    }
    if (context.json())
        context.out().json(list);
}

Status regex(Context& context, const Arguments& arguments)
{
    const CRegexpT regexp(arguments.text("PATTERN"),
                          static_cast<int>(arguments.integer("--flags")));
    if (regexp.isEmpty()) {
        context.complain("the pattern does not compile: " + toUtf8(regexp.getFault()));
        return Status::Failed;
    }
    const WString text = arguments.text("TEXT");
    CContext search = regexp.prepareMatch(text);
    if (arguments.has("--replace")) {
        const WString replaced = regexp.replace(search, arguments.text("--replace"));
        if (context.json())
            context.out().json(jsonText(replaced));
        else
            context.out().line(replaced);
    } else {
        std::vector<MatchResultT> matches;
        for (MatchResultT match; regexp.match(search, match);)
            matches.push_back(match);
        printMatches(context, matches);
    }
    if (!search.isExhausted())
        return Status::Done;
    context.complain("the search was given up: it takes too many steps");
    return Status::Failed;
}

constexpr Argument kWords[] = {
    {"PATTERN", "a regular expression"},
    {"TEXT", "the text to search"},
};
constexpr Option kOptions[] = {
    {.name = "--replace",
     .value = "TEXT",
     .help = "print the text with every match replaced; $1, ${name}, $& put in what matched"},
    {.name = "--flags",
     .value = "N",
     .help = "sum of 1 single-line, 2 multi-line, 4 global, 8 ignore case, 16 right to left, 32 "
             "extended",
     .takes = Takes::Integer,
     .least = 0,
     .most = 63},
};

constexpr Command kCommands[] = {
    {.words = "regex",
     .summary = "search a text with a regular expression, or replace its matches",
     .arguments = kWords,
     .options = kOptions,
     .run = regex,
     .details = "Prints a line a match: where it starts and ends, then the same for each group, in "
                "UTF-16 units; -1 -1 stands for a group that took no part.",
     .examples = "regex '(\\w+)@(\\w+)' 'sword@armoury'\n"
                 "regex '<(\\w+)>' 'a <b> c' --replace '[$1]'"},
};

} // namespace

std::span<const Command> regexCommands()
{
    return kCommands;
}

} // namespace varn::driver
