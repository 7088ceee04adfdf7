#include "Help.h"

#include <algorithm>

namespace varn::driver {

namespace {

/// A text as it is shown: no character of it is taken for one of the formatter's own.
std::string escaped(std::string_view text)
{
    std::string out;
    for (const char c : text) {
        if (c == '\\')
            out += "\\e";
        else if (c == '-')
            out += "\\-";
        else
            out += c;
    }
    if (out.starts_with('.') || out.starts_with('\''))
        out.insert(0, "\\&");
    return out;
}

std::string bold(std::string_view text)
{
    return "\\fB" + escaped(text) + "\\fR";
}

std::string italic(std::string_view text)
{
    return "\\fI" + escaped(text) + "\\fR";
}

std::string optionMarkup(const Option& option)
{
    std::string text;
    if (option.letter)
        text = bold(std::string("-") + option.letter) + ", ";
    text += bold(option.name);
    if (!option.value.empty())
        text += " " + italic(option.value);
    return text;
}

void addTerm(std::string& page, const std::string& term, std::string_view text)
{
    page += ".TP\n" + term + "\n" + escaped(text) + "\n";
}

void addCommand(std::string& page, const Command& command)
{
    page += ".TP\n" + bold(std::string(callPrefix(command)) + std::string(command.words));
    for (const Argument& argument : command.arguments)
        page += " " + withOccurrence(argument, italic(argument.name));
    for (const Option& option : command.options)
        page += " [" + optionMarkup(option) + (option.repeated ? "]..." : "]");
    page += "\n" + escaped(sentenceOf(command)) + "\n";
    if (command.arguments.empty() && command.options.empty())
        return;
    page += ".RS\n";
    for (const Argument& argument : command.arguments)
        addTerm(page, italic(argument.name), explanationOf(argument));
    for (const Option& option : command.options)
        addTerm(page, optionMarkup(option), explanationOf(option));
    page += ".RE\n";
}

void addExamples(std::string& page, std::string_view lines)
{
    while (!lines.empty()) {
        const std::size_t end = std::min(lines.find('\n'), lines.size());
        page += escaped("varn " + std::string(lines.substr(0, end))) + "\n";
        lines.remove_prefix(std::min(end + 1, lines.size()));
    }
}

constexpr std::string_view kDescription =
    R"(.SH DESCRIPTION
.B varn
is Varn's MapEditor without a window.
It serves build scripts, batch conversions and checks.
The project is the working folder; its folders
.IR Data ", " Dungeon ", " Graphics ", " Audio ", " Scripts " and " Languages
hold what the editor edits.
.PP
Results go to standard output as UTF\-8 with LF line ends.
What the editor would show in a message box goes to standard error, one block a box, with
.RB \(dq [Quillor] \(dq
in front.
A question is followed by
.RB \(dq "\-> Yes" \(dq
or
.RB \(dq "\-> No" \(dq;
the answer is No unless
.B \-\-yes
is given.
A word behind
.B \-\-
is never taken for an option.
)";

constexpr std::string_view kEnd =
    R"(.SH EXIT STATUS
.TP
.B 0
Done.
.TP
.B 1
The operation reported a failure.
.TP
.B 2
The words of the call are wrong; the usage is on standard error.
.SH FILES
.TP
.I mapeditor.ini
The settings, beside the program, or in the user's configuration folder where that cannot be written.
.TP
.I GameData.gamedata
The archive of a finished game. The loaders look into it where a plain file is missing.
.TP
.I log.log
Notes of the drawing, in the project. Nothing reads them.
.TP
.I *.bak
A file that could not be read whole, kept when the map or the hierarchy that it belongs to was saved.
)";

} // namespace

std::string manPage()
{
    std::string page = ".\\\" Made by 'varn man'.\n.TH VARN 1 \"\" \"" + escaped(versionLine()) +
                       "\" \"Varn's MapEditor\"\n" +
                       ".SH NAME\nvarn \\- make and check games of Varn's MapEditor without a "
                       "window\n.SH SYNOPSIS\n.B varn\n[\\fIOPTION\\fR...] \\fICOMMAND\\fR "
                       "[\\fIWORD\\fR...]\n";
    page += kDescription;
    page += ".SH OPTIONS\nThey stand before or behind the words of a command.\n";
    for (const Option& option : globalOptions())
        addTerm(page, optionMarkup(option), explanationOf(option));
    page += ".SH COMMANDS\n";
    for (const Group& group : commandGroups()) {
        page += ".SS " + escaped(group.heading) + "\n";
        for (const Command& command : group.commands())
            addCommand(page, command);
    }
    page += ".SH EXAMPLES\n.EX\n";
    for (const Group& group : commandGroups())
        for (const Command& command : group.commands())
            if (command.where == Where::Anywhere)
                addExamples(page, command.examples);
    page += ".EE\n";
    page += kEnd;
    return page;
}

} // namespace varn::driver
