#include "Call.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <map>

namespace varn::driver {

namespace {

constexpr Option kGlobals[] = {
    {"--settings", "FILE",
     "read and write the settings in FILE, not in mapeditor.ini beside the program", Takes::File},
    {.name = "--yes", .help = "answer every question with Yes, not with No", .letter = 'y'},
    {.name = "--json", .help = "print records and lists as JSON"},
    {"--seed",
     "N",
     "make the run repeatable: the first word of the random source",
     Takes::Integer,
     {},
     0,
     UINT32_MAX},
    {.name = "--help", .help = "print help and end", .letter = 'h'},
    {.name = "--version", .help = "print the version and end"},
};

/// The first words of a call, global options left out: as many as a command's name can have.
std::vector<std::string> leadingWords(const std::vector<std::string>& words)
{
    std::vector<std::string> found;
    for (std::size_t at = 0; at < words.size() && found.size() < 2; ++at) {
        const std::string& word = words[at];
        if (word == "--")
            break;
        if (!word.starts_with('-')) {
            found.push_back(word);
            continue;
        }
        const auto global = std::ranges::find(kGlobals, word, &Option::name);
        if (global != std::end(kGlobals) && !global->value.empty())
            ++at;
    }
    return found;
}

bool startsGroup(std::string_view word)
{
    for (const Group& group : commandGroups())
        for (const Command& command : group.commands())
            if (command.words.starts_with(word) && command.words.size() > word.size() &&
                command.words[word.size()] == ' ')
                return true;
    return false;
}

/// What the first words of a call name.
struct Called
{
    const Command* command = nullptr;
    std::size_t ownWords = 0; ///< how many of the words are the command's own
    std::string group;        ///< of an unfinished name: "map"
};

Called findCalled(const std::vector<std::string>& leading)
{
    if (leading.empty())
        return {};
    if (const Command* const command = findDriverCommand(leading[0]))
        return {command, 1, {}};
    if (!startsGroup(leading[0]))
        throw UsageError("there is no command '" + leading[0] + "'");
    if (leading.size() < 2)
        return {nullptr, 1, leading[0]};
    const std::string both = leading[0] + " " + leading[1];
    if (const Command* const command = findDriverCommand(both))
        return {command, 2, {}};
    throw UsageError("there is no command '" + both + "'", nullptr, leading[0]);
}

int choiceOf(std::string_view value, std::string_view choices)
{
    int place = 0;
    for (std::size_t from = 0; from <= choices.size(); ++place) {
        const std::size_t end = std::min(choices.find('|', from), choices.size());
        if (choices.substr(from, end - from) == value)
            return place;
        from = end + 1;
    }
    return -1;
}

/// Checks a value against its row and adds it.
template <class Row>
void addChecked(Arguments& arguments, const Row& row, std::string value, const Command* command)
{
    const std::string name(row.name);
    int choice = -1;
    const auto check = [&](auto number, const char* kind) {
        if (!number)
            throw UsageError(name + ": '" + value + "' is not a " + kind, command);
        if (*number < static_cast<typename decltype(number)::value_type>(row.least) ||
            *number > static_cast<typename decltype(number)::value_type>(row.most))
            throw UsageError(name + ": " + value + " is not from " + std::to_string(row.least) +
                                 " to " + std::to_string(row.most),
                             command);
    };
    if (row.takes == Takes::Integer)
        check(parseInteger(value), "whole number");
    if (row.takes == Takes::Number)
        check(parseNumber(value), "number");
    if (row.takes == Takes::Choice) {
        choice = choiceOf(value, row.choices);
        if (choice < 0)
            throw UsageError(name + ": '" + value + "' is not one of " + std::string(row.choices),
                             command);
    }
    arguments.add(row.name, std::move(value), choice);
}

/// The library reads the options; what is no option comes back in order and is told apart here.
class OptionReader
{
  public:
    explicit OptionReader(const Command* command) : command(command)
    {
        app.set_help_flag();
        app.allow_extras();
        add(kGlobals);
        if (command)
            add(command->options);
    }

    /// Gives the words that belong to no option.
    std::vector<std::string> read(const std::vector<std::string>& words, Arguments& options)
    {
        try {
            std::vector<std::string> reversed(words.rbegin(), words.rend());
            app.parse(std::move(reversed));
        } catch (const CLI::ParseError& fault) {
            throw UsageError(fault.what(), command);
        }
        std::map<const CLI::Option*, std::size_t> taken;
        for (const CLI::Option* const option : app.parse_order()) {
            const Option& row = *rows.at(option);
            if (row.value.empty())
                options.add(row.name, {});
            else
                addChecked(options, row, option->results().at(taken[option]++), command);
        }
        return plainWords();
    }

  private:
    void add(std::span<const Option> options)
    {
        for (const Option& row : options) {
            std::string name(row.name);
            if (row.letter)
                name = std::string("-") + row.letter + "," + name;
            CLI::Option* const option =
                row.value.empty() ? app.add_flag(name) : addValued(name, row);
            rows[option] = &row;
        }
    }

    CLI::Option* addValued(const std::string& name, const Option& row)
    {
        CLI::Option* const option = app.add_option(name);
        option->type_name(std::string(row.value))->take_all();
        return option;
    }

    std::vector<std::string> plainWords() const
    {
        std::vector<std::string> plain;
        bool isMarked = false;
        for (std::string& word : app.remaining()) {
            if (!isMarked && word == "--") {
                isMarked = true;
                continue;
            }
            const bool isOption =
                !isMarked && word.size() > 1 && word[0] == '-' && (word[1] < '0' || word[1] > '9');
            if (isOption)
                throw UsageError("there is no option '" + word + "' here", command);
            plain.push_back(std::move(word));
        }
        return plain;
    }

    const Command* command;
    CLI::App app;
    std::map<const CLI::Option*, const Option*> rows;
};

void addArguments(Arguments& arguments, const Command& command, std::span<const std::string> values)
{
    std::size_t at = 0;
    for (const Argument& row : command.arguments) {
        const bool isNeeded = row.occurs == Occurs::Once || row.occurs == Occurs::Repeated;
        const bool isMany = row.occurs == Occurs::Repeated || row.occurs == Occurs::Any;
        if (at == values.size() && isNeeded)
            throw UsageError(std::string(row.name) + " is missing", &command);
        for (std::size_t taken = 0; at < values.size() && (taken == 0 || isMany); ++taken)
            addChecked(arguments, row, values[at++], &command);
    }
    if (at < values.size())
        throw UsageError("'" + values[at] + "' is one word too many", &command);
}

void applyGlobals(Call& call)
{
    const Arguments& given = call.arguments;
    call.globals.settingsFile = given.utf8("--settings", call.globals.settingsFile);
    call.globals.yes |= given.has("--yes");
    call.globals.json |= given.has("--json");
    if (given.has("--seed"))
        call.globals.seed = static_cast<std::uint32_t>(given.integer("--seed"));
    call.help = given.has("--help");
    call.version = given.has("--version");
}

} // namespace

std::span<const Option> globalOptions()
{
    return kGlobals;
}

const Command* findDriverCommand(std::string_view words)
{
    for (const Group& group : commandGroups())
        for (const Command& command : group.commands())
            if (command.words == words)
                return &command;
    return nullptr;
}

Call parseCall(const std::vector<std::string>& words, const GlobalOptions& globals)
{
    const Called called = findCalled(leadingWords(words));
    Call call{called.command, called.group, {}, globals};
    const std::vector<std::string> plain = OptionReader(called.command).read(words, call.arguments);
    applyGlobals(call);
    if (call.help || call.version)
        return call;
    if (!called.command)
        throw UsageError(called.group.empty() ? "a command is missing"
                                              : "'" + called.group + "' needs one more word",
                         nullptr, called.group);
    addArguments(call.arguments, *called.command, std::span(plain).subspan(called.ownWords));
    return call;
}

} // namespace varn::driver
