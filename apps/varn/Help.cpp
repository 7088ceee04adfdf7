#include "Help.h"

#include <algorithm>
#include <cstdio>

namespace varn::driver {

namespace {

constexpr std::size_t kTextWidth = 79;
constexpr std::size_t kLongestTerm = 26;

/// Breaks a text at blanks into lines of at most `width` characters.
std::vector<std::string_view> wrap(std::string_view text, std::size_t width)
{
    std::vector<std::string_view> lines;
    while (text.size() > width) {
        std::size_t end = text.rfind(' ', width);
        if (end == std::string_view::npos)
            end = std::min(text.find(' '), text.size());
        lines.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    if (!text.empty())
        lines.push_back(text);
    return lines;
}

/// A list of terms, each with its explanation beside it or, where the term is long, below.
class TermList
{
  public:
    void add(std::string term, std::string_view explanation)
    {
        rows.emplace_back(std::move(term), explanation);
    }

    void print(std::string& out) const
    {
        std::size_t width = 0;
        for (const auto& [term, explanation] : rows)
            if (term.size() <= kLongestTerm)
                width = std::max(width, term.size());
        const std::size_t column = width + 4;
        for (const auto& [term, explanation] : rows) {
            out += "  " + term;
            std::size_t at = term.size() + 2;
            if (at + 2 > column && !explanation.empty()) {
                out += "\n";
                at = 0;
            }
            for (const std::string_view line : wrap(explanation, kTextWidth - column)) {
                out.append(column - at, ' ').append(line).append("\n");
                at = 0;
            }
            if (explanation.empty())
                out += "\n";
        }
    }

  private:
    std::vector<std::pair<std::string, std::string_view>> rows;
};

/// "--tile N", with its letter in front where it has one.
std::string termOf(const Option& option)
{
    std::string term;
    if (option.letter)
        term = std::string("-") + option.letter + ", ";
    term += option.name;
    if (!option.value.empty())
        term.append(" ").append(option.value);
    return term;
}

template <class Row>
std::string explain(const Row& row)
{
    std::string text(row.help);
    if (row.takes == Takes::Choice) {
        text += ": ";
        for (const char c : row.choices)
            text += c == '|' ? std::string(", ") : std::string(1, c);
    }
    const bool isBounded = row.least != kLeastInteger && row.most != kMostInteger;
    if ((row.takes == Takes::Integer || row.takes == Takes::Number) && isBounded)
        text += ", " + std::to_string(row.least) + " to " + std::to_string(row.most);
    return text;
}

void printOptions(std::string& out, std::string_view heading, std::span<const Option> options)
{
    std::vector<std::string> texts;
    texts.reserve(options.size());
    TermList list;
    for (const Option& option : options)
        list.add(termOf(option), texts.emplace_back(explanationOf(option)));
    out.append("\n").append(heading).append(":\n");
    list.print(out);
}

void printParagraph(std::string& out, std::string_view text)
{
    for (const std::string_view line : wrap(text, kTextWidth))
        out.append(line).append("\n");
}

void printLines(std::string& out, std::string_view prefix, std::string_view lines)
{
    while (!lines.empty()) {
        const std::size_t end = std::min(lines.find('\n'), lines.size());
        out.append(prefix).append(lines.substr(0, end)).append("\n");
        lines.remove_prefix(std::min(end + 1, lines.size()));
    }
}

bool isOfGroup(const Command& command, std::string_view group)
{
    return group.empty() || (command.words.starts_with(group) &&
                             command.words.substr(group.size()).starts_with(' '));
}

std::string trimmed(std::string text)
{
    while (text.ends_with('\n'))
        text.pop_back();
    return text;
}

} // namespace

std::string withOccurrence(const Argument& argument, const std::string& name)
{
    switch (argument.occurs) {
    case Occurs::Once:
        break;
    case Occurs::Optional:
        return "[" + name + "]";
    case Occurs::Repeated:
        return name + "...";
    case Occurs::Any:
        return "[" + name + "]...";
    }
    return name;
}

std::string explanationOf(const Argument& argument)
{
    return explain(argument);
}

std::string explanationOf(const Option& option)
{
    return explain(option);
}

std::string_view versionLine()
{
    return "varn " VARN_VERSION;
}

std::string synopsis(const Command& command)
{
    std::string line(command.words);
    for (const Argument& argument : command.arguments)
        line += " " + withOccurrence(argument, std::string(argument.name));
    for (const Option& option : command.options) {
        line += " [" + std::string(option.name);
        if (!option.value.empty())
            line.append(" ").append(option.value);
        line += option.repeated ? "]..." : "]";
    }
    return line;
}

std::string_view callPrefix(const Command& command)
{
    return command.where == Where::BatchOnly ? "" : "varn ";
}

std::string commandHelp(const Command& command)
{
    std::string out = "Usage: ";
    out.append(callPrefix(command)).append(synopsis(command)).append("\n\n");
    printParagraph(out, sentenceOf(command));
    if (!command.arguments.empty()) {
        std::vector<std::string> texts;
        texts.reserve(command.arguments.size());
        TermList list;
        for (const Argument& argument : command.arguments)
            list.add(std::string(argument.name), texts.emplace_back(explanationOf(argument)));
        out += "\nWords:\n";
        list.print(out);
    }
    if (!command.options.empty())
        printOptions(out, "Options", command.options);
    printOptions(out, "Options of every command", globalOptions());
    if (!command.examples.empty()) {
        out += "\nExamples:\n";
        printLines(out, "  " + std::string(callPrefix(command)), command.examples);
    }
    return trimmed(std::move(out));
}

std::string driverHelp(std::string_view group)
{
    std::string out = "Usage: varn [OPTION...] COMMAND [WORD...]\n";
    if (group.empty())
        out += "\nThe map editor without a window, on the project in the working folder.\n";
    bool isKnown = false;
    for (const Group& each : commandGroups()) {
        TermList list;
        bool isEmpty = true;
        for (const Command& command : each.commands()) {
            if (!isOfGroup(command, group))
                continue;
            list.add(std::string(command.words), command.summary);
            isEmpty = false;
        }
        if (isEmpty)
            continue;
        isKnown = true;
        out.append("\n").append(each.heading).append(":\n");
        list.print(out);
    }
    if (!isKnown)
        return {};
    printOptions(out, "Options of every command", globalOptions());
    out += "\n'varn COMMAND --help' tells more of one command.\n";
    return trimmed(std::move(out));
}

void printUsage(const UsageError& fault)
{
    std::string usage;
    if (fault.command) {
        usage = "Usage: ";
        usage.append(callPrefix(*fault.command)).append(synopsis(*fault.command)).append("\n");
    } else if (!fault.group.empty()) {
        for (const Group& group : commandGroups())
            for (const Command& command : group.commands())
                if (isOfGroup(command, fault.group))
                    usage += (usage.empty() ? "Usage: varn " : "       varn ") + synopsis(command) +
                             "\n";
    } else {
        usage = "Usage: varn [OPTION...] COMMAND [WORD...]\n'varn --help' lists the commands.\n";
    }
    std::fwrite(usage.data(), 1, usage.size(), stderr);
}

std::string sentenceOf(const Command& command)
{
    std::string sentence(command.summary);
    sentence[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(sentence[0])));
    sentence += ".";
    if (!command.details.empty())
        sentence.append(" ").append(command.details);
    if (command.where == Where::BatchOnly)
        sentence += " Works in a batch only.";
    return sentence;
}

} // namespace varn::driver
