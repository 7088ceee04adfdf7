#pragma once

#include "Util/Text.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace varn::driver {

class Arguments;
class Context;

/// What a call ends with; the driver's exit status.
enum class Status : int
{
    Done = 0,
    Failed = 1, ///< the operation reported a failure
    Usage = 2,  ///< the words of the call are wrong
};

/// What a word stands for: how it is checked, and what the shell offers for it.
enum class Takes
{
    Text,      ///< anything
    Integer,   ///< decimal or 0x..., from `least` to `most`
    Number,    ///< decimal with a fraction, from `least` to `most`
    Choice,    ///< one of `choices`
    File,      ///< the path of a file; not checked
    Folder,    ///< the path of a folder; not checked
    Map,       ///< the name of a map of the project; not checked
    TableFile, ///< a file name of the data folder; not checked
};

enum class Occurs
{
    Once,
    Optional,
    Repeated, ///< once or more; the last argument only
    Any,      ///< never or more; the last argument only
};

inline constexpr std::int64_t kLeastInteger = INT32_MIN;
inline constexpr std::int64_t kMostInteger = INT32_MAX;

/// A word behind the command's own, by its place. What a call gives is asked by `name`.
struct Argument
{
    std::string_view name; ///< "COLS"
    std::string_view help; ///< a few words, no full stop
    Takes takes = Takes::Text;
    Occurs occurs = Occurs::Once;
    std::string_view choices = {}; ///< of Takes::Choice: "north|east|south|west"
    std::int64_t least = kLeastInteger;
    std::int64_t most = kMostInteger;
};

/// A named word. What a call gives is asked by `name`.
struct Option
{
    std::string_view name;       ///< "--tile"
    std::string_view value = {}; ///< what stands behind it, "N"; empty: nothing does
    std::string_view help = {};  ///< a few words, no full stop
    Takes takes = Takes::Text;
    std::string_view choices = {};
    std::int64_t least = kLeastInteger;
    std::int64_t most = kMostInteger;
    bool repeated = false; ///< every one counts; of others the last
    char letter = 0;       ///< "-h" for "--help"; 0: none
};

/// How far the session must have come before a command runs. What costs nothing asks for nothing:
/// only `Whole` takes the lock of the one instance, makes the temporary folder and loads tables.
enum class Needs
{
    Nothing,
    Project, ///< the folder of the maps, as the settings tell it
    Texts,   ///< and the language document and the string tables
    Whole,   ///< the start-up sequence to its end
};

enum class Where
{
    Anywhere,
    BatchOnly
};

/// One command: its words, what it takes and what it does. The parser, `--help`, the man page and
/// the shells' completion all read this.
///
/// `run` prints its result through `Context::out()` and tells a refusal by its status. Whatever a
/// person must be told goes through `host()`, or as an `Exception` thrown: the driver shows its
/// sentence, and the status is `Failed`.
struct Command
{
    std::string_view words;   ///< "map wall"
    std::string_view summary; ///< one line, no full stop
    std::span<const Argument> arguments = {};
    std::span<const Option> options = {};
    Status (*run)(Context&, const Arguments&) = nullptr;
    Needs needs = Needs::Nothing;
    Where where = Where::Anywhere;
    std::string_view details = {};  ///< sentences for the help and the man page
    std::string_view examples = {}; ///< calls, one a line, as typed behind "varn "
};

/// The groups of commands, in the order of the help: function of `commands/<File>.cpp`, heading.
/// A new group is a file that defines the function, and a line here.
#define VARN_COMMAND_GROUPS(X)                                                                     \
    X(sessionCommands, "Project and session")                                                      \
    X(mapCommands, "Maps")                                                                         \
    X(editingCommands, "Editing in a batch")                                                       \
    X(pictureCommands, "Pictures, views and printed maps")                                         \
    X(tableCommands, "Tables and texts")                                                           \
    X(soundCommands, "Sounds and songs")                                                           \
    X(scriptCommands, "Scripts")                                                                   \
    X(regexCommands, "Regular expressions")                                                        \
    X(fileCommands, "Documents and text files")                                                    \
    X(archiveCommands, "Game archives")                                                            \
    X(batchCommands, "Many commands at once")                                                      \
    X(helpCommands, "About the driver")

#define X(function, heading) std::span<const Command> function();
VARN_COMMAND_GROUPS(X)
#undef X

struct Group
{
    std::string_view heading;
    std::span<const Command> (*commands)();
};
std::span<const Group> commandGroups();

/// What is accepted before and behind the words of every command.
std::span<const Option> globalOptions();

/// What a call gave for the arguments and options of its command. Values were checked against the
/// table: an integer is one and in range, a choice is among its choices.
class Arguments
{
  public:
    struct Given
    {
        std::string_view name; ///< of the table's row
        std::string value;     ///< UTF-8; empty for an option without value
        int choice = -1;       ///< place among the row's choices, from 0
    };

    bool has(std::string_view name) const { return find(name) != nullptr; }
    /// The last value given, or the fallback.
    WString text(std::string_view name, WStringView fallback = {}) const;
    /// The same as it was written, in UTF-8; for paths of this machine.
    std::string utf8(std::string_view name, std::string_view fallback = {}) const;
    std::int64_t integer(std::string_view name, std::int64_t fallback = 0) const;
    /// Of a `Takes::Number`.
    std::optional<double> number(std::string_view name) const;
    /// Place of the value among the choices of its row, from 0; or the fallback.
    int choice(std::string_view name, int fallback = 0) const;
    /// All values of a repeated argument or option.
    std::vector<WString> texts(std::string_view name) const;
    /// Everything in the order it was given, for options whose order means something.
    const std::vector<Given>& inOrder() const { return given; }

    void add(std::string_view name, std::string value, int choice = -1);

  private:
    const Given* find(std::string_view name) const;

    std::vector<Given> given;
};

/// A whole number as people write it, decimal or 0x...; nothing for anything else.
std::optional<std::int64_t> parseInteger(std::string_view text);
/// A decimal number, with a fraction or without.
std::optional<double> parseNumber(std::string_view text);

} // namespace varn::driver
