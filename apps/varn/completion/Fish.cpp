#include "completion/Words.h"

namespace varn::driver {

namespace {

constexpr std::string_view kHead = R"sh(# fish completion of varn; made by 'varn completion fish'.

function __varn_words --description 'The words of the call so far, options left out'
    set -l skips 0
    for token in (commandline -opc)[2..-1]
        if test $skips = 1
            set skips 0
            continue
        end
        switch $token
            case )sh";

constexpr std::string_view kFunctions = R"sh(
                set skips 1
            case '-*'
            case '*'
                echo $token
        end
    end
end

function __varn_at --description 'The words so far are these and, behind them, COUNT more'
    set -l words (__varn_words)
    set -l own $argv[2..-1]
    test (count $words) -eq (math (count $own) + $argv[1]); or return 1
    test (count $own) -eq 0; or test "$words[1..$(count $own)]" = "$own"
end

function __varn_beyond --description 'The same with COUNT or more behind them'
    set -l words (__varn_words)
    set -l own $argv[2..-1]
    test (count $words) -ge (math (count $own) + $argv[1]); or return 1
    test "$words[1..$(count $own)]" = "$own"
end

function __varn_maps
    for file in Dungeon/*.map
        string replace -r '^.*/(.*)\.map$' '$1' $file
    end
end

function __varn_tables
    for file in Data/*.xml Data/*.dat
        string replace -r '^.*/' '' $file
    end
end

)sh";

/// The options of `complete` that offer what a value can be.
std::string action(const std::string& offered)
{
    if (offered == "@file")
        return " -F";
    if (offered == "@folder")
        return " -f -a '(__fish_complete_directories)'";
    if (offered == "@map")
        return " -f -a '(__varn_maps)'";
    if (offered == "@table")
        return " -f -a '(__varn_tables)'";
    return offered == "-" ? " -f" : " -f -a " + quoted(offered);
}

std::string row(const std::string& condition)
{
    return "complete -c varn" + (condition.empty() ? "" : " -n " + quoted(condition));
}

void addOption(std::string& out, const std::string& condition, const Option& option)
{
    out += row(condition) + " -l " + std::string(option.name.substr(2));
    if (option.letter)
        out += std::string(" -s ") + option.letter;
    if (!option.value.empty())
        out += " -r" + action(offer(option));
    out += " -d " + quoted(option.help) + "\n";
}

void addCommand(std::string& out, const Command& command)
{
    const std::string words(command.words);
    std::size_t place = 0;
    for (const Argument& argument : command.arguments) {
        const std::string test = isRepeated(argument) ? "__varn_beyond " : "__varn_at ";
        out += row(test + std::to_string(place++) + " " + words) + action(offer(argument)) +
               " -d " + quoted(argument.help) + "\n";
    }
    for (const Option& option : command.options)
        addOption(out, "__varn_beyond 0 " + words, option);
}

} // namespace

std::string fishCompletion()
{
    std::string out(kHead);
    out += joined(valuedOptions()) + std::string(kFunctions) + "complete -c varn -f\n";
    for (const Option& option : globalOptions())
        addOption(out, {}, option);
    for (const std::string& first : firstWords()) {
        out += row("__varn_at 0") + " -a " + first + " -d " + quoted(firstWordText(first)) + "\n";
        for (const std::string& second : secondWords(first))
            out += row("__varn_at 0 " + first) + " -a " + second + " -d " +
                   quoted(findDriverCommand(first + " " + second)->summary) + "\n";
    }
    for (const Command* const command : shellCommands())
        addCommand(out, *command);
    return out;
}

} // namespace varn::driver
