#include "Context.h"
#include "Game/GameResourceFile.h"
#include "Progress.h"
#include "Util/Exception.h"
#include "Util/Host.h"
#include "Util/ProjectPath.h"
#include "Util/TextFile.h"

#include <nlohmann/json.hpp>

namespace varn::driver {

namespace {

/// Reads an archive; a fault in it is told, and what was read before it stays.
bool loadArchive(GameResourceFile& archive, const WString& path)
{
    try {
        archive.load(path);
        return true;
    } catch (const Exception& fault) {
        host().showMessage(fault.getMessage());
        return false;
    }
}

Status list(Context& context, const Arguments& arguments)
{
    GameResourceFile archive;
    const bool isWhole = loadArchive(archive, arguments.text("FILE"));
    Json entries = Json::array();
    for (const GameResourceFile::ResourceData& entry : archive.getResources())
        entries.push_back({{"size", entry.size}, {"name", jsonText(entry.name)}});
    context.printRecords(entries);
    return isWhole ? Status::Done : Status::Failed;
}

Status get(Context& context, const Arguments& arguments)
{
    GameResourceFile archive;
    const bool isWhole = loadArchive(archive, arguments.text("FILE"));
    const GameResourceFile::ResourceData* const entry = archive.getResource(arguments.text("NAME"));
    if (!entry) {
        context.complain(arguments.utf8("FILE") + ": there is no entry '" + arguments.utf8("NAME") +
                         "'");
        return Status::Failed;
    }
    context.out().bytes(entry->data);
    return isWhole ? Status::Done : Status::Failed;
}

/// Adds the entry of one "NAME=PATH". False: the text of a TEXT entry cannot be read.
bool addEntry(Context& context, GameResourceFile& archive, const Arguments::Given& option)
{
    const std::size_t equals = option.value.find('=');
    if (equals == std::string::npos || equals == 0 || equals + 1 == option.value.size())
        throw UsageError(std::string(option.name) + ": '" + option.value +
                             "' is not of the form NAME=PATH",
                         findDriverCommand("archive make"));
    WString name = fromUtf8(option.value.substr(0, equals));
    WString path = fromUtf8(option.value.substr(equals + 1));
    if (option.name == "--file") {
        archive.addFile(std::move(name), std::move(path));
        return true;
    }
    auto file = readTextFile(resolveProjectPath(path));
    if (!file) {
        context.complainUnread(path);
        return false;
    }
    archive.addText(std::move(name), std::move(file->text));
    return true;
}

Status make(Context& context, const Arguments& arguments)
{
    GameResourceFile archive;
    for (const Arguments::Given& given : arguments.inOrder())
        if ((given.name == "--text" || given.name == "--file") &&
            !addEntry(context, archive, given))
            return Status::Failed;
    Progress progress(context.out());
    return archive.save(arguments.text("OUT"), progress.callback()) ? Status::Done : Status::Failed;
}

constexpr Argument kListWords[] = {{"FILE", "the archive", Takes::File}};
constexpr Argument kGetWords[] = {
    {"FILE", "the archive", Takes::File},
    {"NAME", "name of the entry: DATABASE, Dungeon/B1F.map"},
};
constexpr Argument kMakeWords[] = {{"OUT", "the archive to write", Takes::File}};
constexpr Option kMakeOptions[] = {
    {.name = "--text",
     .value = "NAME=FILE",
     .help = "an entry with the text of FILE",
     .repeated = true},
    {.name = "--file",
     .value = "NAME=PATH",
     .help = "an entry with the bytes of PATH",
     .repeated = true},
};

constexpr Command kCommands[] = {
    {.words = "archive list",
     .summary = "list the entries of an archive",
     .arguments = kListWords,
     .run = list,
     .details = "Prints the size of the data and the name of each, in the file's order.",
     .examples = "archive list out/GameData.gamedata"},
    {.words = "archive get",
     .summary = "print the bytes of an entry",
     .arguments = kGetWords,
     .run = get,
     .details = "The stored bytes: a text is UTF-8 and ends with a zero byte.",
     .examples = "archive get out/GameData.gamedata DATABASE"},
    {.words = "archive make",
     .summary = "write an archive of the entries given",
     .arguments = kMakeWords,
     .options = kMakeOptions,
     .run = make,
     .details = "The entries stand in the order of the options.",
     .examples =
         "archive make game.gamedata --text Game.ini=game.ini --file logo.png=art/logo.png"},
};

} // namespace

std::span<const Command> archiveCommands()
{
    return kCommands;
}

} // namespace varn::driver
