#include "completion/Words.h"

namespace varn::driver {

namespace {

std::string zshAction(std::string_view offered)
{
    if (offered == "@file")
        return "_files";
    if (offered == "@folder")
        return "_files -/";
    if (offered == "@map")
        return "_varn_maps";
    if (offered == "@table")
        return "_varn_tables";
    return offered == "-" ? " " : "(" + std::string(offered) + ")";
}

/// A text inside a row of _arguments, where colons and brackets mean something.
std::string zshText(std::string_view text)
{
    std::string out;
    for (const char c : text) {
        if (c == ':' || c == '[' || c == ']' || c == '\\')
            out += '\\';
        out += c;
    }
    return out;
}

std::string zshOption(const Option& option)
{
    std::string row = option.repeated ? "*" : "";
    row += std::string(option.name) + "[" + zshText(option.help) + "]";
    if (!option.value.empty())
        row += ":" + zshText(option.value) + ":" + zshAction(offer(option));
    return quoted(row);
}

std::string zshArgument(const Argument& argument)
{
    const std::string place = isRepeated(argument)                  ? "*"
                              : argument.occurs == Occurs::Optional ? ":"
                                                                    : "";
    return quoted(place + ":" + zshText(argument.name) + ":" + zshAction(offer(argument)));
}

void addZshCommand(std::string& out, const Command& command)
{
    out += "        " + quoted(command.words) + ") _arguments $globals";
    for (const Option& option : command.options)
        out += " \\\n            " + zshOption(option);
    for (const Argument& argument : command.arguments)
        out += " \\\n            " + zshArgument(argument);
    out += " ;;\n";
}

} // namespace

std::string zshCompletion()
{
    std::string out = R"sh(#compdef varn
# zsh completion of varn; made by 'varn completion zsh'.

_varn_maps()
{
    local -a maps=(Dungeon/*.map(N:t:r))
    compadd -a maps
}

_varn_tables()
{
    local -a tables=(Data/*.(xml|dat)(N:t))
    compadd -a tables
}

_varn()
{
    local -a rows globals=()sh";
    for (const Option& option : globalOptions())
        out += "\n        " + zshOption(option);
    out += ")\n    local context state state_descr line command\n    typeset -A opt_args\n"
           "    _arguments -C $globals '1: :->command' '*:: :->words' && return\n"
           "    case $state in\n    command)\n        rows=(";
    for (const std::string& first : firstWords())
        out += "\n            " + quoted(first + ":" + firstWordText(first));
    out += ")\n        _describe 'command' rows\n        return ;;\n    esac\n"
           "    command=$words[1]\n    case $command in\n";
    for (const std::string& first : firstWords()) {
        const auto seconds = secondWords(first);
        if (seconds.empty())
            continue;
        out += "    " + quoted(first) + ")\n        if ((CURRENT == 2)); then\n            rows=(";
        for (const std::string& second : seconds) {
            const Command* const command = findDriverCommand(first + " " + second);
            out += "\n                " + quoted(second + ":" + std::string(command->summary));
        }
        out += ")\n            _describe 'command' rows\n            return\n        fi\n"
               "        command+=\" $words[2]\"\n        shift words\n        ((CURRENT--)) ;;\n";
    }
    out += "    esac\n    case $command in\n";
    for (const Command* const command : shellCommands())
        addZshCommand(out, *command);
    // Loaded by the completion system the file is the function's first call, sourced it is not.
    out += "    esac\n}\n\nif [[ $funcstack[1] == _varn ]]; then\n    _varn \"$@\"\nelse\n"
           "    compdef _varn varn\nfi\n";
    return out;
}

} // namespace varn::driver
