#include "Context.h"
#include "Game/Map/Direction.h"
#include "Game/Map/GameResourceManager.h"
#include "MapEditor3D/Menu.h"
#include "MapEditor3D/export/ProjectExport.h"
#include "Progress.h"
#include "Util/ProjectPath.h"

#include <nlohmann/json.hpp>

#include <set>

namespace varn::driver {

namespace {

Status start(Context& context, const Arguments&)
{
    Json list = Json::array();
    for (const LoadedTable& table : context.session().getStartTables())
        list.push_back({{"fileName", jsonText(table.fileName)}, {"rows", table.rows}});
    context.printRecords(list);
    return Status::Done;
}

Status getSetting(Context& context, const Arguments& arguments)
{
    context.out().line(context.session().getSettings().getSettingString(
        arguments.text("SECTION"), arguments.text("KEY"), arguments.text("DEFAULT")));
    return Status::Done;
}

Status setSetting(Context& context, const Arguments& arguments)
{
    Settings& settings = context.session().getSettings();
    if (settings.setSettingString(arguments.text("SECTION"), arguments.text("KEY"),
                                  arguments.text("VALUE")))
        return Status::Done;
    context.complain(settings.path().string() + ": the setting cannot be written");
    return Status::Failed;
}

Status listCommands(Context& context, const Arguments&)
{
    Json list = Json::array();
    for (const varn::Command& command : commandTable())
        if (!command.name.empty())
            list.push_back({{"number", command.number}, {"name", jsonText(command.name)}});
    context.printRecords(list);
    return Status::Done;
}

/// The number that the frame receives for "save" or "203".
std::uint32_t commandWord(const std::string& text)
{
    if (const auto number = parseInteger(text))
        return static_cast<std::uint32_t>(*number);
    if (const varn::Command* const command = varn::findCommand(fromUtf8(text)))
        return static_cast<std::uint32_t>(command->number);
    throw UsageError("there is no command '" + text + "'; 'varn commands' lists them",
                     findDriverCommand("command"));
}

/// What comes with a command: a side by name, or a number.
int commandArgument(const std::vector<WString>& words)
{
    if (words.empty())
        return 0;
    for (const Direction side : kSides)
        if (equalsIgnoringAsciiCase(words[0], side.toText()))
            return side.getValue();
    if (const auto number = parseInteger(toUtf8(words[0])))
        return static_cast<int>(*number);
    throw UsageError("'" + toUtf8(words[0]) + "' is neither a direction nor a number",
                     findDriverCommand("command"));
}

Status runCommand(Context& context, const Arguments& arguments)
{
    const std::uint32_t word = commandWord(arguments.utf8("NAME-or-NUMBER"));
    const int argument = commandArgument(arguments.texts("ARG"));
    return dispatchCommand(context.frame(), word, argument) ? Status::Done : Status::Failed;
}

void printMenu(Output& out, const std::vector<MenuEntry>& entries, std::size_t depth)
{
    for (const MenuEntry& entry : entries) {
        std::string line = std::string(2 * depth, ' ') + toUtf8(entry.title);
        if (entry.command != 0)
            line += " [" + std::to_string(entry.command) + "]";
        out.line(line);
        printMenu(out, entry.children, depth + 1);
    }
}

Json menuAsJson(const std::vector<MenuEntry>& entries)
{
    Json list = Json::array();
    for (const MenuEntry& entry : entries)
        list.push_back({{"title", jsonText(entry.title)},
                        {"text", jsonText(entry.text)},
                        {"command", entry.command},
                        {"argument", entry.argument},
                        {"checked", entry.checked},
                        {"children", menuAsJson(entry.children)}});
    return list;
}

Status menu(Context& context, const Arguments&)
{
    const std::vector<MenuEntry> entries = buildMenu(context.session().isSystemCoordinateEnabled());
    if (context.json())
        context.out().json(menuAsJson(entries));
    else
        printMenu(context.out(), entries, 0);
    return Status::Done;
}

Status hierarchy(Context& context, const Arguments&)
{
    const MapHierarchy& tree = context.session().getHierarchy();
    Json list = Json::array();
    for (std::size_t index = 0; index < tree.size(); ++index) {
        const MapHierarchy::Entry& entry = tree.at(index);
        list.push_back({{"index", index},
                        {"depth", entry.depth},
                        {"id", entry.id},
                        {"kind", entry.isFolder() ? "folder" : "map"},
                        {"name", jsonText(entry.name)}});
    }
    context.printRecords(list);
    return Status::Done;
}

Json resourceAsJson(const ResourceItem& item)
{
    Json fields = {{"id", item.id}, {"path", jsonText(item.path)}};
    if (const auto* const image = dynamic_cast<const ImageResourceItem*>(&item)) {
        fields["movementType"] = image->movementType;
        fields["scalingType"] = image->scalingType;
    }
    return fields;
}

Json catalogueAsJson(const GameResourceManager& catalogue)
{
    Json lists = Json::object();
    for (const ResourceCategoryInfo& info : resourceCategories()) {
        Json items = Json::array();
        for (const auto& item : catalogue.items(info.category))
            items.push_back(resourceAsJson(*item));
        lists[jsonText(info.listElement)] = std::move(items);
    }
    return {{"scale", catalogue.scale}, {"lists", std::move(lists)}};
}

Status catalogue(Context& context, const Arguments&)
{
    GameResourceManager& resources = GameResourceManager::instance();
    const bool isRefused = !resources.loadDefault() && isFile(u"Data/ResourceManager.xml");
    if (context.json())
        context.out().json(catalogueAsJson(resources));
    else
        context.out().text(resources.toDocument());
    return isRefused ? Status::Failed : Status::Done;
}

/// The maps to leave out, as the project spells them; a name that none has is told.
std::set<WString> mapsLeftOut(Context& context, const Arguments& arguments)
{
    const MapHierarchy& tree = context.session().getHierarchy();
    std::set<WString> names;
    for (const WString& name : arguments.texts("--without")) {
        if (const auto index = tree.findMap(name))
            names.insert(tree.at(*index).name);
        else
            context.complain("--without: the project has no map '" + toUtf8(name) + "'");
    }
    return names;
}

Status exportGame(Context& context, const Arguments& arguments)
{
    ProjectSession& session = context.session();
    ExportOptions options;
    options.target = arguments.text("DIR");
    options.without = mapsLeftOut(context, arguments);
    if (!canExportProject(session) || !confirmExportTarget(options.target))
        return Status::Failed;
    Progress progress(context.out());
    const auto archive = exportProject(session, options, progress.callback());
    if (!archive)
        return Status::Failed;
    context.out().line(*archive);
    return Status::Done;
}

constexpr Argument kGetWords[] = {
    {"SECTION", "section of the settings file"},
    {"KEY", "name of the setting"},
    {"DEFAULT", "what is printed where the setting is missing", Takes::Text, Occurs::Optional},
};
constexpr Argument kSetWords[] = {
    {"SECTION", "section of the settings file"},
    {"KEY", "name of the setting"},
    {"VALUE", "its new value"},
};
constexpr Argument kCommandWords[] = {
    {"NAME-or-NUMBER", "a command of the table; of a number the low 16 bits count"},
    {"ARG", "of \"shift\" a direction, of \"language\" a place in the list of languages",
     Takes::Text, Occurs::Any},
};
constexpr Argument kExportWords[] = {
    {"DIR", "folder for the finished game; it must exist", Takes::Folder},
};
constexpr Option kExportOptions[] = {
    {.name = "--without",
     .value = "NAME",
     .help = "leave this map out of the archive",
     .takes = Takes::Map,
     .repeated = true},
};

constexpr Command kCommands[] = {
    {.words = "start",
     .summary = "run the start-up sequence and list the tables that it loads",
     .run = start,
     .needs = Needs::Whole,
     .details = "Prints the file name and the number of rows of each table."},
    {.words = "settings get",
     .summary = "print a setting",
     .arguments = kGetWords,
     .run = getSetting,
     .examples = "settings get View Language\nsettings get Editor SelectedLayer 3"},
    {.words = "settings set",
     .summary = "change a setting",
     .arguments = kSetWords,
     .run = setSetting,
     .examples = "settings set View Language Languages/English.xml"},
    {.words = "commands",
     .summary = "list the editor's commands by number",
     .run = listCommands,
     .details = "Prints number and name."},
    {.words = "command",
     .summary = "do what the editor does on a command",
     .arguments = kCommandWords,
     .run = runCommand,
     .needs = Needs::Whole,
     .details = "It acts on the open map, where a batch has opened one. What would open a window "
                "does nothing; a number that no command has does nothing.",
     .examples = "command save --yes\ncommand 203 --yes"},
    {.words = "menu",
     .summary = "print the menu of the language in force",
     .run = menu,
     .needs = Needs::Texts,
     .details =
         "An item's title a line, two blanks a level, the number of its command in brackets. The "
         "language is that of the setting \"View Language\", else that of the system."},
    {.words = "hierarchy",
     .summary = "list the folders and maps of the project",
     .run = hierarchy,
     .needs = Needs::Project,
     .details = "Prints index, depth, id, \"folder\" or \"map\", and the name."},
    {.words = "catalogue",
     .summary = "print the document of the resource catalogue",
     .run = catalogue},
    {.words = "export",
     .summary = "make the finished game and print the path of its archive",
     .arguments = kExportWords,
     .options = kExportOptions,
     .run = exportGame,
     .needs = Needs::Project,
     .details = "Writes GameData.gamedata, and beside it the runtime if one stands beside this "
                "program. What cannot be read is told and left out. A project gives the same "
                "archive on every machine. Ctrl+C stops, and an old archive stays as it was.",
     .examples = "export out\nexport out --without Testing"},
};

} // namespace

std::span<const Command> sessionCommands()
{
    return kCommands;
}

} // namespace varn::driver
