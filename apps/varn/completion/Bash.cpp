#include "completion/Words.h"

namespace varn::driver {

namespace {

void addValueCases(std::string& out, std::string_view indent, std::span<const Option> options)
{
    for (const Option& option : options)
        if (!option.value.empty())
            out.append(indent)
                .append("    ")
                .append(option.name)
                .append(") value=")
                .append(quoted(offer(option)) + " ;;\n");
}

void addBashCommand(std::string& out, const Command& command)
{
    out += "        " + quoted(command.words) + ")\n";
    if (!command.arguments.empty()) {
        out += "            places=(";
        for (const Argument& argument : command.arguments)
            out += (&argument == command.arguments.data() ? "" : " ") + quoted(offer(argument));
        out += ")\n";
        if (isRepeated(command.arguments.back()))
            out += "            many=1\n";
    }
    if (!command.options.empty()) {
        out += "            options=" + quoted(joined(optionNames(command.options))) + "\n";
        out += "            case $prev in\n";
        addValueCases(out, "            ", command.options);
        out += "            esac\n";
    }
    out += "            ;;\n";
}

constexpr std::string_view kBashHead =
    R"sh(# bash completion of varn; made by 'varn completion bash'.

# The maps, quoted for the shell where the word has no quote in front.
_varn_maps()
{
    local name quote=''
    [[ $cur == [\"\']* ]] && quote=1 cur=${cur:1}
    cur=${cur//\\/}
    for name in Dungeon/*.map; do
        [[ -e $name ]] || continue
        name=${name#Dungeon/} name=${name%.map}
        [[ $name == "$cur"* ]] || continue
        [[ -n $quote ]] || printf -v name %q "$name"
        COMPREPLY+=("$name")
    done
}

_varn_offer()
{
    local IFS=$'\n'
    case $1 in
        @file) COMPREPLY=($(compgen -f -- "$cur")); compopt -o filenames ;;
        @folder) COMPREPLY=($(compgen -d -- "$cur")); compopt -o filenames ;;
        @map) _varn_maps ;;
        @table) COMPREPLY=($(compgen -W "$(cd Data 2>/dev/null && printf '%s\n' *.xml *.dat)" -- "$cur")) ;;
        -) ;;
        *) IFS=' '; COMPREPLY=($(compgen -W "$1" -- "$cur")) ;;
    esac
}

_varn()
{
    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD - 1]}
    local command='' place=0 value='' options='' many='' seconds='' word i
    local -a places=()
    COMPREPLY=()
    for ((i = 1; i < COMP_CWORD; i++)); do
        word=${COMP_WORDS[i]}
        case $word in
)sh";

constexpr std::string_view kBashMiddle = R"sh(            -*) continue ;;
        esac
        if [[ -z $command ]]; then
            command=$word
        elif [[ -n $seconds ]]; then
            command+=" $word"
            seconds=''
        else
            ((place++))
            continue
        fi
        case $command in
)sh";

std::string bashTail()
{
    return R"sh(    if [[ -n $value ]]; then
        _varn_offer "$value"
    elif [[ $cur == -* ]]; then
        _varn_offer "$options )sh" +
           joined(optionNames(globalOptions())) + R"sh("
    elif [[ -z $command ]]; then
        _varn_offer )sh" +
           quoted(joined(firstWords())) + R"sh(
    elif [[ -n $seconds ]]; then
        _varn_offer "$seconds"
    elif ((${#places[@]} > 0)); then
        ((many && place >= ${#places[@]})) && place=$((${#places[@]} - 1))
        _varn_offer "${places[place]:--}"
    fi
}

complete -F _varn varn
)sh";
}

} // namespace

std::string bashCompletion()
{
    std::string out(kBashHead);
    out += "            " + joined(valuedOptions(), "|") + ") ((i++)); continue ;;\n";
    out += kBashMiddle;
    for (const std::string& first : firstWords())
        if (const auto seconds = secondWords(first); !seconds.empty())
            out +=
                "            " + quoted(first) + ") seconds=" + quoted(joined(seconds)) + " ;;\n";
    out += "        esac\n    done\n    case $prev in\n";
    addValueCases(out, "    ", globalOptions());
    out += "    esac\n    case $command in\n";
    for (const Command* const command : shellCommands())
        addBashCommand(out, *command);
    out += "    esac\n";
    return out + bashTail();
}

} // namespace varn::driver
