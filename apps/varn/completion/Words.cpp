#include "completion/Words.h"

#include <algorithm>

namespace varn::driver {

namespace {

template <class Row>
std::string offerOf(const Row& row)
{
    switch (row.takes) {
    case Takes::Text:
    case Takes::Integer:
    case Takes::Number:
        break;
    case Takes::File:
        return "@file";
    case Takes::Folder:
        return "@folder";
    case Takes::Map:
        return "@map";
    case Takes::TableFile:
        return "@table";
    case Takes::Choice:
        std::string words(row.choices);
        std::ranges::replace(words, '|', ' ');
        return words;
    }
    return "-";
}

void addOnce(std::vector<std::string>& words, std::string_view word)
{
    if (std::ranges::find(words, word) == words.end())
        words.emplace_back(word);
}

} // namespace

std::string offer(const Argument& argument)
{
    return offerOf(argument);
}

std::string offer(const Option& option)
{
    return offerOf(option);
}

bool isRepeated(const Argument& argument)
{
    return argument.occurs == Occurs::Repeated || argument.occurs == Occurs::Any;
}

std::string quoted(std::string_view text)
{
    std::string out = "'";
    for (const char c : text)
        out += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return out + "'";
}

std::string joined(const std::vector<std::string>& words, std::string_view separator)
{
    std::string text;
    for (const std::string& word : words)
        text.append(text.empty() ? "" : separator).append(word);
    return text;
}

std::vector<const Command*> shellCommands()
{
    std::vector<const Command*> commands;
    for (const Group& group : commandGroups())
        for (const Command& command : group.commands())
            if (command.where == Where::Anywhere)
                commands.push_back(&command);
    return commands;
}

std::vector<std::string> firstWords()
{
    std::vector<std::string> words;
    for (const Command* const command : shellCommands())
        addOnce(words, command->words.substr(0, command->words.find(' ')));
    return words;
}

std::vector<std::string> secondWords(std::string_view first)
{
    std::vector<std::string> words;
    for (const Command* const command : shellCommands()) {
        const std::size_t blank = command->words.find(' ');
        if (blank != std::string_view::npos && command->words.substr(0, blank) == first)
            words.emplace_back(command->words.substr(blank + 1));
    }
    return words;
}

std::string firstWordText(std::string_view first)
{
    const Command* const command = findDriverCommand(first);
    return command ? std::string(command->summary) : joined(secondWords(first), ", ");
}

std::vector<std::string> valuedOptions()
{
    std::vector<std::string> names;
    const auto collect = [&](std::span<const Option> options) {
        for (const Option& option : options)
            if (!option.value.empty())
                addOnce(names, option.name);
    };
    collect(globalOptions());
    for (const Command* const command : shellCommands())
        collect(command->options);
    return names;
}

std::vector<std::string> optionNames(std::span<const Option> options)
{
    std::vector<std::string> names;
    for (const Option& option : options)
        names.emplace_back(option.name);
    return names;
}

} // namespace varn::driver
