#include "Help.h"
#include "Context.h"

namespace varn::driver {

namespace {

Status help(Context& context, const Arguments& arguments)
{
    std::string words;
    for (const WString& word : arguments.texts("COMMAND"))
        words += (words.empty() ? "" : " ") + toUtf8(word);
    const Command* const command = findDriverCommand(words);
    const std::string text = command ? commandHelp(*command) : driverHelp(words);
    if (text.empty())
        throw UsageError("there is no command '" + words + "'");
    context.out().line(std::string_view(text));
    return Status::Done;
}

Status completion(Context& context, const Arguments& arguments)
{
    constexpr std::string (*kScripts[])() = {bashCompletion, zshCompletion, fishCompletion};
    const auto shell = static_cast<std::size_t>(arguments.choice("SHELL"));
    context.out().bytes(asBytes(kScripts[shell]()));
    return Status::Done;
}

Status man(Context& context, const Arguments&)
{
    context.out().bytes(asBytes(manPage()));
    return Status::Done;
}

constexpr Argument kHelpWords[] = {
    {"COMMAND", "the command's words", Takes::Text, Occurs::Any},
};
constexpr Argument kCompletionWords[] = {
    {"SHELL", "the shell", Takes::Choice, Occurs::Once, "bash|zsh|fish"},
};

constexpr Command kCommands[] = {
    {.words = "help",
     .summary = "print the help of the driver or of a command",
     .arguments = kHelpWords,
     .run = help,
     .examples = "help map\nhelp map wall"},
    {.words = "completion",
     .summary = "print the script that makes a shell complete varn's words",
     .arguments = kCompletionWords,
     .run = completion,
     .examples = "completion bash > ~/.local/share/bash-completion/completions/varn"},
    {.words = "man", .summary = "print the manual page", .run = man},
};

} // namespace

std::span<const Command> helpCommands()
{
    return kCommands;
}

} // namespace varn::driver
