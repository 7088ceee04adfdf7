#include "Context.h"
#include "Game/Map/MapFile.h"
#include "Game/Map/MapTree.h"
#include "Game/Map/WizMap.h"
#include "MapAsJson.h"
#include "MapCells.h"
#include "MapEditor3D/generators/DungeonGenerator.h"
#include "Util/File.h"
#include "Util/Host.h"
#include "Util/ProjectPath.h"

#include <nlohmann/json.hpp>

#include <array>
#include <memory>

namespace varn::driver {

namespace {

std::unique_ptr<WizMap> loadMap(const Arguments& arguments)
{
    auto map = std::make_unique<WizMap>();
    map->load(mapTree::pathOf(arguments.text("NAME")) + u".map");
    return map;
}

Status saveMap(WizMap& map)
{
    if (map.save(map.fileName))
        return Status::Done;
    host().showMessage(u"Couldn't save the .map file: " + map.fileName);
    return Status::Failed;
}

/// Loads the map of the call, changes it and saves it; tells whether it changed.
template <class Change>
Status editMap(Context& context, const Arguments& arguments, Change change)
{
    const auto map = loadMap(arguments);
    const bool isChanged = change(*map);
    const Status status = saveMap(*map);
    if (status == Status::Done)
        context.out().line(std::string_view(isChanged ? "changed" : "unchanged"));
    return status;
}

/// The same for a change that does not tell: what counts is the grid and the places of the events.
template <class Change>
Status transformMap(Context& context, const Arguments& arguments, Change change)
{
    return editMap(context, arguments, [&](WizMap& map) {
        const WizMap before = map;
        change(map);
        return map.cols != before.cols || map.rows != before.rows || map.cells != before.cells ||
               !std::equal(
                   map.events.list().begin(), map.events.list().end(), before.events.list().begin(),
                   [](const auto& a, const auto& b) { return a->x == b->x && a->y == b->y; });
    });
}

int number(const Arguments& arguments, std::string_view name, int fallback = 0)
{
    return static_cast<int>(arguments.integer(name, fallback));
}

/// The cell that a stroke at (X, Y) reaches: the first column and row behind the last are the first
/// ones. Nothing: it lies outside the map.
std::optional<MapCell> strokeCell(const WizMap& map, const Arguments& arguments)
{
    MapCell cell{number(arguments, "X"), number(arguments, "Y")};
    if (cell.x == map.cols)
        cell.x = 0;
    if (cell.y == map.rows)
        cell.y = 0;
    if (cell.x > map.cols || cell.y > map.rows)
        return std::nullopt;
    return cell;
}

Status newMap(Context& context, const Arguments& arguments)
{
    const WString name = arguments.text("NAME");
    WizMap map;
    map.cols = number(arguments, "COLS");
    map.rows = number(arguments, "ROWS");
    createDirectories(resolveProjectPath(kDungeonFolder));
    if (arguments.has("--add")) {
        MapHierarchy& tree = context.session().getHierarchy();
        if (!mapTree::createMap(tree, std::nullopt, name, map))
            return Status::Failed;
        return context.session().saveHierarchy() ? Status::Done : Status::Failed;
    }
    if (const WStringView fault = mapTree::nameFault(name); !fault.empty()) {
        host().showMessage(fault);
        return Status::Failed;
    }
    map.fileName = mapTree::pathOf(name);
    return saveMap(map);
}

Status showMap(Context& context, const Arguments& arguments)
{
    context.out().json(mapAsJson(*loadMap(arguments)));
    return Status::Done;
}

Status showCells(Context& context, const Arguments& arguments)
{
    printCells(context, *loadMap(arguments));
    return Status::Done;
}

Status setWall(Context& context, const Arguments& arguments)
{
    const auto side = static_cast<std::size_t>(arguments.choice("DIRECTION"));
    return editMap(context, arguments, [&](WizMap& map) {
        return map.setWall(number(arguments, "KIND"), kSides[side], number(arguments, "X"),
                           number(arguments, "Y"));
    });
}

Status setFloor(Context& context, const Arguments& arguments)
{
    return editMap(context, arguments, [&](WizMap& map) {
        const auto cell = strokeCell(map, arguments);
        if (!cell)
            return false;
        std::uint8_t& floor = map.cellAt(cell->x, cell->y).floor;
        const auto tile = static_cast<std::uint8_t>(number(arguments, "TILE"));
        return std::exchange(floor, tile) != tile;
    });
}

Status paintArea(Context& context, const Arguments& arguments)
{
    return editMap(context, arguments, [&](WizMap& map) {
        const auto cell = strokeCell(map, arguments);
        return cell && map.areas.paint(number(arguments, "NUMBER"), cell->x, cell->y);
    });
}

Status shiftMap(Context& context, const Arguments& arguments)
{
    return transformMap(context, arguments, [&](WizMap& map) {
        map.shiftMap(number(arguments, "DX"), number(arguments, "DY"));
    });
}

Status rotateMap(Context& context, const Arguments& arguments)
{
    return transformMap(context, arguments, [](WizMap& map) { map.rotateMap(); });
}

Status reflectMap(Context& context, const Arguments& arguments)
{
    return transformMap(context, arguments, [](WizMap& map) { map.reflectMap(); });
}

Status generate(Context&, const Arguments& arguments)
{
    generator::GeneratorOptions options;
    options.layout = static_cast<generator::Layout>(arguments.choice("--layout"));
    options.deadEnds = static_cast<generator::DeadEnds>(arguments.choice("--deadends"));
    options.passageway = number(arguments, "--passageway", options.passageway);
    const auto map = loadMap(arguments);
    generator::DungeonGenerator(options).generate(*map);
    return saveMap(*map);
}

constexpr Argument kName = {"NAME", "the map's name, without folder and extension", Takes::Map};
constexpr Argument kX = {"X", "column, from 0 at the left", Takes::Integer, Occurs::Once, {}, 0};
constexpr Argument kY = {"Y", "row, from 0 at the top", Takes::Integer, Occurs::Once, {}, 0};

constexpr Argument kNameWords[] = {kName};
constexpr Argument kNewWords[] = {
    {"NAME", "name of the map's files"},
    {"COLS", "columns", Takes::Integer, Occurs::Once, {}, 1, kMapStride},
    {"ROWS", "rows", Takes::Integer, Occurs::Once, {}, 1, kMapStride},
};
constexpr Option kNewOptions[] = {
    {.name = "--add",
     .help = "enter the map into the project's hierarchy, from which the game is exported"},
};
constexpr Argument kWallWords[] = {
    kName,
    {"KIND", "wall kind", Takes::Integer, Occurs::Once, {}, 0, 255},
    {"DIRECTION", "side of the cell", Takes::Choice, Occurs::Once, "north|east|south|west"},
    kX,
    kY,
};
constexpr Argument kFloorWords[] = {
    kName,
    {"TILE", "floor tile; 0 is none", Takes::Integer, Occurs::Once, {}, 0, 255},
    kX,
    kY,
};
constexpr Argument kAreaWords[] = {
    kName,
    {"NUMBER", "the area; 0 takes the cell out of all areas", Takes::Integer},
    kX,
    kY,
};
constexpr Argument kShiftWords[] = {
    kName,
    {"DX", "cells to the right; negative to the left", Takes::Integer},
    {"DY", "cells down; negative up", Takes::Integer},
};
constexpr Option kGenerateOptions[] = {
    {"--layout", "LAYOUT", "how rooms are placed", Takes::Choice, "random|symmetric"},
    {"--deadends", "KIND", "what becomes of dead ends", Takes::Choice, "none|door|asis"},
    {"--passageway",
     "N",
     "how straight passages run, 40 where not given",
     Takes::Integer,
     {},
     0,
     100},
};

constexpr std::string_view kEditDetails =
    "The map is loaded, changed and saved; prints \"changed\" or \"unchanged\".";

constexpr std::string_view kWallDetails =
    "The map is loaded, changed and saved; prints \"changed\" or \"unchanged\". Kinds of wall: "
    "0 none, 1 wall, 2 door, 3 SW door, 4 NE door, 5 secret door, 6 SW secret door, 7 NE secret "
    "door, 8 half door, 9 half SW door, 10 half NE door, 11 invisible wall, 12 SW shutter, 13 NE "
    "shutter. A column or a row beyond the map counts around its edges.";

constexpr Command kCommands[] = {
    {.words = "map new",
     .summary = "write the files of a new map",
     .arguments = kNewWords,
     .options = kNewOptions,
     .run = newMap,
     .needs = Needs::Project,
     .details = "A name that is taken is refused.",
     .examples = "map new B1F 20 20 --add"},
    {.words = "map show",
     .summary = "print a map's size, attributes, events and areas as JSON",
     .arguments = kNameWords,
     .run = showMap,
     .needs = Needs::Project},
    {.words = "map cells",
     .summary = "print a map's cells",
     .arguments = kNameWords,
     .run = showCells,
     .needs = Needs::Project,
     .details = "A line a row from the top; of each cell the bytes of north, east, south, west and "
                "floor as ten hexadecimal digits."},
    {.words = "map wall",
     .summary = "put a wall on an edge",
     .arguments = kWallWords,
     .run = setWall,
     .needs = Needs::Project,
     .details = kWallDetails,
     .examples = "map wall B1F 2 north 3 0"},
    {.words = "map floor",
     .summary = "put a floor tile into a cell",
     .arguments = kFloorWords,
     .run = setFloor,
     .needs = Needs::Project,
     .details = kEditDetails},
    {.words = "map area",
     .summary = "add a cell to an area",
     .arguments = kAreaWords,
     .run = paintArea,
     .needs = Needs::Project,
     .details = kEditDetails},
    {.words = "map shift",
     .summary = "move a map's cells and events, around its edges",
     .arguments = kShiftWords,
     .run = shiftMap,
     .needs = Needs::Project,
     .details = kEditDetails,
     .examples = "map shift B1F 1 -2"},
    {.words = "map rotate",
     .summary = "turn a map's cells a quarter counter-clockwise",
     .arguments = kNameWords,
     .run = rotateMap,
     .needs = Needs::Project,
     .details = kEditDetails},
    {.words = "map reflect",
     .summary = "mirror a map's cells left to right",
     .arguments = kNameWords,
     .run = reflectMap,
     .needs = Needs::Project,
     .details = kEditDetails},
    {.words = "generate",
     .summary = "fill a map with a random dungeon and save it",
     .arguments = kNameWords,
     .options = kGenerateOptions,
     .run = generate,
     .needs = Needs::Project,
     .examples = "generate B1F --layout symmetric --seed 7"},
};

} // namespace

std::span<const Command> mapCommands()
{
    return kCommands;
}

} // namespace varn::driver
