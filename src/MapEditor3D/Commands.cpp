#include "MapEditor3D/Commands.h"

#include "Game/Database/LanguageManager.h"
#include "Game/Map/Direction.h"
#include "MapEditor3D/export/ProjectExport.h"
#include "Util/File.h"
#include "Util/Host.h"
#include "Util/ProjectPath.h"

#include <algorithm>

namespace varn {

namespace {

bool showWindow(CommandTarget& target, const Command& command, int)
{
    target.showWindow(command.number);
    return true;
}

bool doNothing(CommandTarget&, const Command&, int)
{
    return true;
}

bool save(CommandTarget& target, const Command&, int)
{
    return target.getSession().saveAllEdits();
}

bool exportGame(CommandTarget& target, const Command& command, int)
{
    if (!canExportProject(target.getSession()))
        return false;
    target.showWindow(command.number);
    return true;
}

bool close(CommandTarget& target, const Command&, int)
{
    target.close();
    return true;
}

bool runGame(CommandTarget& target, const Command&, int)
{
    const WString game = toWide(programFolder() / "Game.exe");
    if (!isFile(game)) {
        host().showMessage(u"Couldn't run " + game);
        return false;
    }
    ProjectSession& session = target.getSession();
    if (!session.saveCurrentMap())
        return false;
    WString words;
    if (const MapEditing* const editor = session.getEditor())
        words = u'"' + toWide(session.getTempFolder() / "") + editor->getMapName() + u".map\"";
    host().runProgram(game, words); // its end is not waited for, nor a refusal told
    return true;
}

/// Runs `Action` on the editor of the open map; without one there is nothing to act on.
template <auto Action>
bool edit(CommandTarget& target, const Command&, int argument)
{
    if (MapEditing* const editor = target.getEditor())
        Action(*editor, argument);
    return true;
}

bool selectTool(CommandTarget& target, const Command& command, int)
{
    if (MapEditing* const editor = target.getEditor())
        editor->setTool(static_cast<EditorTool>(command.number));
    return true;
}

template <EditorLayer Layer>
bool selectLayer(CommandTarget& target, const Command&, int)
{
    target.getSession().selectLayer(Layer);
    return true;
}

template <bool In>
bool zoom(CommandTarget& target, const Command&, int)
{
    target.getSession().zoom(In);
    return true;
}

bool toggleAlwaysOnTop(CommandTarget& target, const Command&, int)
{
    target.toggleAlwaysOnTop();
    return true;
}

bool toggleCoordinates(CommandTarget& target, const Command&, int)
{
    ProjectSession& session = target.getSession();
    session.setSystemCoordinateEnabled(!session.isSystemCoordinateEnabled());
    target.rebuildMenus();
    return true;
}

bool chooseLanguage(CommandTarget& target, const Command&, int place)
{
    const std::vector<WString> files = LanguageManager::instance().getLanguageFiles();
    if (place < 0 || static_cast<std::size_t>(place) >= files.size())
        return true;
    if (!target.getSession().changeLanguage(files[static_cast<std::size_t>(place)]))
        return false;
    target.rebuildMenus();
    return true;
}

constexpr auto kUndo = [](MapEditing& editor, int) { editor.undo(); };
constexpr auto kRedo = [](MapEditing& editor, int) { editor.redo(); };
constexpr auto kRotate = [](MapEditing& editor, int) { editor.rotateMap(); };
constexpr auto kReflect = [](MapEditing& editor, int) { editor.reflectMap(); };
constexpr auto kShift = [](MapEditing& editor, int direction) {
    const Direction side(direction);
    if (side.dx() != 0 || side.dy() != 0)
        editor.shiftMap(side.dx(), side.dy());
};

// clang-format off
constexpr Command kCommands[] = {
    {3,   u"", selectTool},
    {4,   u"", selectTool},
    {5,   u"", selectTool},
    {6,   u"", zoom<true>},
    {7,   u"", zoom<false>},
    {9,   u"", selectLayer<EditorLayer::Floor>},
    {10,  u"", selectLayer<EditorLayer::Wall>},
    {11,  u"", selectLayer<EditorLayer::Third>},
    {12,  u"", selectLayer<EditorLayer::Event>},
    {13,  u"", selectLayer<EditorLayer::Area>},
    {14,  u"", toggleAlwaysOnTop},
    {17,  u"", runGame},
    {200, u"create", showWindow},
    {201, u"open", doNothing},
    {202, u"close", doNothing},
    {203, u"save", save},
    {204, u"saveAsImage", showWindow},
    {205, u"exportProject", exportGame},
    {207, u"exit", close},
    {208, u"undo", edit<kUndo>},
    {209, u"redo", edit<kRedo>},
    {210, u"replace", showWindow},
    {211, u"photoMapping", showWindow},
    {212, u"rotate", edit<kRotate>},
    {213, u"reflect", edit<kReflect>},
    {215, u"absoluteCoordinate", toggleCoordinates},
    {216, u"layer1", selectLayer<EditorLayer::Floor>},
    {217, u"layer2", selectLayer<EditorLayer::Wall>},
    {218, u"layer3", selectLayer<EditorLayer::Third>},
    {219, u"eventLayer", selectLayer<EditorLayer::Event>},
    {220, u"areaLayer", selectLayer<EditorLayer::Area>},
    {221, u"openDatabase", showWindow},
    {222, u"openResourceManager", showWindow},
    {223, u"openFlagManager", showWindow},
    {224, u"openStringTableManager", showWindow},
    {225, u"tileSettings", showWindow},
    {226, u"openTreasureBox", showWindow},
    {227, u"openSystemDialog", showWindow},
    {228, u"visitSite", showWindow},
    {229, u"onlineHelp", showWindow},
    {230, u"about", showWindow},
    {232, u"openNpcDatabase", showWindow},
    {233, u"openMessageTable", showWindow},
    {234, u"openScriptDatabase", showWindow},
    {235, u"openNovelScriptDatabase", showWindow},
    {236, u"openFormulaDatabase", showWindow},
    {237, u"openMarkerDatabase", showWindow},
    {238, u"openTypeDatabase", showWindow},
    {kLanguageCommand, u"language", chooseLanguage},
    {kShiftCommand, u"shift", edit<kShift>},
    {251, u"mapGenerator", showWindow},
};
// clang-format on
static_assert(std::ranges::is_sorted(kCommands, {}, &Command::number));

} // namespace

void CommandTarget::close()
{
    closed = session.shutdown();
}

std::span<const Command> commandTable()
{
    return kCommands;
}

const Command* findCommand(int number)
{
    const auto found = std::ranges::lower_bound(kCommands, number, {}, &Command::number);
    return found != std::end(kCommands) && found->number == number ? found : nullptr;
}

const Command* findCommand(WStringView name)
{
    if (name.empty())
        return nullptr;
    const auto found = std::ranges::find(kCommands, name, &Command::name);
    return found != std::end(kCommands) ? found : nullptr;
}

int commandNumber(WStringView name)
{
    const Command* const command = findCommand(name);
    return command ? command->number : 0;
}

bool dispatchCommand(CommandTarget& target, std::uint32_t word, int argument)
{
    const Command* const command = findCommand(static_cast<int>(word & 0xFFFF));
    return !command || command->action(target, *command, argument);
}

} // namespace varn
