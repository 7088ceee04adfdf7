#include "Context.h"
#include "Game/Map/MapTree.h"
#include "MapCells.h"
#include "MapEditor3D/WizMapEditor.h"

#include <nlohmann/json.hpp>

namespace varn::driver {

namespace {

int number(const Arguments& arguments, std::string_view name)
{
    return static_cast<int>(arguments.integer(name));
}

CanvasPoint pointOf(const Arguments& arguments)
{
    return {number(arguments, "PX"), number(arguments, "PY")};
}

MouseButton buttonOf(const Arguments& arguments)
{
    return arguments.choice("BUTTON") == 0 ? MouseButton::Left : MouseButton::Right;
}

Status open(Context& context, const Arguments& arguments)
{
    const WString file = mapTree::pathOf(arguments.text("NAME")) + u".map";
    if (WizMapEditor* const editor = context.editor()) {
        editor->load(file);
        return Status::Done;
    }
    auto editor = std::make_unique<WizMapEditor>();
    editor->load(file);
    context.keepEditor(std::move(editor));
    return Status::Done;
}

/// A command that works on the open map.
template <auto Edit>
Status onOpenMap(Context& context, const Arguments& arguments)
{
    if (WizMapEditor* const editor = context.editor())
        return Edit(context, *editor, arguments);
    context.complain("no map is open");
    return Status::Failed;
}

Status setTool(Context&, WizMapEditor& editor, const Arguments& arguments)
{
    editor.setTool(static_cast<EditorTool>(number(arguments, "N")));
    return Status::Done;
}

Status setLayer(Context& context, WizMapEditor&, const Arguments& arguments)
{
    constexpr EditorLayer kLayers[] = {EditorLayer::Floor, EditorLayer::Wall, EditorLayer::Event,
                                       EditorLayer::Area};
    context.session().selectLayer(kLayers[arguments.choice("N")]);
    return Status::Done;
}

Status selectTile(Context&, WizMapEditor& editor, const Arguments& arguments)
{
    editor.setSelectedTile(number(arguments, "N"));
    return Status::Done;
}

Status press(Context&, WizMapEditor& editor, const Arguments& arguments)
{
    editor.press(buttonOf(arguments), pointOf(arguments));
    return Status::Done;
}

Status move(Context&, WizMapEditor& editor, const Arguments& arguments)
{
    editor.move(pointOf(arguments));
    return Status::Done;
}

Status release(Context&, WizMapEditor& editor, const Arguments& arguments)
{
    editor.release(buttonOf(arguments), pointOf(arguments));
    return Status::Done;
}

Status doubleClick(Context&, WizMapEditor& editor, const Arguments& arguments)
{
    editor.doubleClick(buttonOf(arguments), pointOf(arguments));
    return Status::Done;
}

Status shift(Context&, WizMapEditor& editor, const Arguments& arguments)
{
    editor.shiftMap(number(arguments, "DX"), number(arguments, "DY"));
    return Status::Done;
}

Status rotate(Context&, WizMapEditor& editor, const Arguments&)
{
    editor.rotateMap();
    return Status::Done;
}

Status reflect(Context&, WizMapEditor& editor, const Arguments&)
{
    editor.reflectMap();
    return Status::Done;
}

Status zoom(Context& context, WizMapEditor&, const Arguments& arguments)
{
    context.session().zoom(arguments.choice("STEP") == 0);
    return Status::Done;
}

Status printAnswer(Context& context, bool answer)
{
    context.out().line(std::string_view(answer ? "true" : "false"));
    return Status::Done;
}

Status undo(Context& context, WizMapEditor& editor, const Arguments&)
{
    return printAnswer(context, editor.undo());
}

Status redo(Context& context, WizMapEditor& editor, const Arguments&)
{
    return printAnswer(context, editor.redo());
}

Status cells(Context& context, WizMapEditor& editor, const Arguments&)
{
    printCells(context, editor.getMap());
    return Status::Done;
}

Status state(Context& context, WizMapEditor& editor, const Arguments&)
{
    context.out().json({{"tool", static_cast<int>(editor.getTool())},
                        {"layer", editor.isFloorLayer() ? 1 : 0},
                        {"mode", static_cast<int>(editor.getMode())},
                        {"selectedTile", editor.getSelectedTile()},
                        {"tileSize", editor.getTileSize()},
                        {"canUndo", editor.canUndo()},
                        {"canRedo", editor.canRedo()}});
    return Status::Done;
}

Status save(Context&, WizMapEditor& editor, const Arguments&)
{
    return editor.doSave() ? Status::Done : Status::Failed;
}

constexpr Argument kName[] = {{"NAME", "the map's name, without folder and extension", Takes::Map}};
constexpr Argument kTool[] = {
    {"N", "3 the pen, 4 the rectangle", Takes::Integer, Occurs::Once, {}, 3, 4}};
constexpr Argument kLayer[] = {
    {"N", "9 floor, 10 walls, 12 events, 13 areas", Takes::Choice, Occurs::Once, "9|10|12|13"}};
constexpr Argument kTile[] = {
    {"N", "wall kind, floor tile or number of an area", Takes::Integer, Occurs::Once, {}, 0}};
constexpr Argument kX = {"PX", "pixels to the right of the canvas's first cell", Takes::Integer};
constexpr Argument kY = {"PY", "pixels below its top", Takes::Integer};
constexpr Argument kPoint[] = {kX, kY};
constexpr Argument kClick[] = {
    {"BUTTON", "the mouse button", Takes::Choice, Occurs::Once, "left|right"}, kX, kY};
constexpr Argument kShift[] = {
    {"DX", "cells to the right; negative to the left", Takes::Integer},
    {"DY", "cells down; negative up", Takes::Integer},
};
constexpr Argument kStep[] = {
    {"STEP", "to larger or smaller cells", Takes::Choice, Occurs::Once, "in|out"}};

constexpr Command kCommands[] = {
    {.words = "open",
     .summary = "open a map in the editor",
     .arguments = kName,
     .run = open,
     .needs = Needs::Project,
     .where = Where::BatchOnly,
     .details = "Tool, layer, selected tile and zoom stay as the map before left them."},
    {.words = "tool",
     .summary = "take up a drawing tool",
     .arguments = kTool,
     .run = onOpenMap<setTool>,
     .where = Where::BatchOnly},
    {.words = "layer",
     .summary = "choose what strokes change",
     .arguments = kLayer,
     .run = onOpenMap<setLayer>,
     .where = Where::BatchOnly},
    {.words = "tile",
     .summary = "choose what strokes write",
     .arguments = kTile,
     .run = onOpenMap<selectTile>,
     .where = Where::BatchOnly},
    {.words = "press",
     .summary = "press a mouse button on the canvas",
     .arguments = kClick,
     .run = onOpenMap<press>,
     .where = Where::BatchOnly,
     .details = "The left button writes the selected tile; the right one picks the tile under the "
                "pointer, or erases it along the way where it is the selected one.",
     .examples = "press left 30 8"},
    {.words = "move",
     .summary = "move the pointer on the canvas",
     .arguments = kPoint,
     .run = onOpenMap<move>,
     .where = Where::BatchOnly,
     .details =
         "While a button is held with the pen, the cell or edge under the pointer is written; "
         "what lies between two moves is not."},
    {.words = "release",
     .summary = "let a mouse button go",
     .arguments = kClick,
     .run = onOpenMap<release>,
     .where = Where::BatchOnly,
     .details = "Ends the stroke and makes it a step of undo; outside the canvas too."},
    {.words = "doubleclick",
     .summary = "double-click on the canvas",
     .arguments = kClick,
     .run = onOpenMap<doubleClick>,
     .where = Where::BatchOnly,
     .details =
         "With the pen it drops the stroke that is under way, with the rectangle the rectangle."},
    {.words = "shift",
     .summary = "move the open map's cells and events, around its edges",
     .arguments = kShift,
     .run = onOpenMap<shift>,
     .where = Where::BatchOnly},
    {.words = "rotate",
     .summary = "turn the open map's cells a quarter counter-clockwise",
     .run = onOpenMap<rotate>,
     .where = Where::BatchOnly},
    {.words = "reflect",
     .summary = "mirror the open map's cells left to right",
     .run = onOpenMap<reflect>,
     .where = Where::BatchOnly},
    {.words = "zoom",
     .summary = "make the cells of the canvas larger or smaller",
     .arguments = kStep,
     .run = onOpenMap<zoom>,
     .where = Where::BatchOnly},
    {.words = "undo",
     .summary = "undo the last stroke",
     .run = onOpenMap<undo>,
     .where = Where::BatchOnly,
     .details = "Prints \"true\", or \"false\" where there is nothing to undo."},
    {.words = "redo",
     .summary = "do again what was undone",
     .run = onOpenMap<redo>,
     .where = Where::BatchOnly,
     .details = "Prints \"true\", or \"false\" where there is nothing to do again."},
    {.words = "cells",
     .summary = "print the open map's cells, as \"map cells\" does",
     .run = onOpenMap<cells>,
     .where = Where::BatchOnly},
    {.words = "state",
     .summary = "print the state of the editor as JSON",
     .run = onOpenMap<state>,
     .where = Where::BatchOnly,
     .details =
         "\"mode\" is 0 where strokes write, 1 on the events, 2 on the areas; \"layer\" is 1 "
         "for the floor, 0 for the walls; \"tileSize\" is the width of a cell in pixels."},
    {.words = "save",
     .summary = "save the open map",
     .run = onOpenMap<save>,
     .where = Where::BatchOnly,
     .details = "What is not saved at the end of the batch, or when another map is opened, is "
                "dropped."},
};

} // namespace

std::span<const Command> editingCommands()
{
    return kCommands;
}

} // namespace varn::driver
