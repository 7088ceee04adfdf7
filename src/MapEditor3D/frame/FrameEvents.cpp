// What the frame does for canvas and panes: events, areas, maps.
#include "Component/Translation.h"
#include "Game/Map/MapTree.h"
#include "MapEditor3D/frame/AppFrame.h"
#include "MapEditor3D/frame/panes/EventEditing.h"
#include "MapEditor3D/frame/panes/MapPropertyDialog.h"
#include "MapEditor3D/frame/panes/PrintMapDialog.h"
#include "Util/Host.h"

namespace varn {

namespace {

enum EventCommand
{
    kCreateEvent = 1,
    kEditEvent,
    kCopyEvent,
    kPasteEvent,
    kDeleteEvent
};

} // namespace

// Events

void AppFrame::eventMenuRequested(MapCell cell, int x, int y)
{
    const bool hasEvent = editor.getSelectedEvent().has_value();
    PopupMenu menu;
    menu.add(translate(u"Create"), kCreateEvent);
    menu.add(translate(u"Edit"), kEditEvent).enabled = hasEvent;
    menu.addSeparator();
    const auto addKeyed = [&](WStringView english, int command, WStringView keys, bool enabled) {
        MenuLine& line = menu.add(translate(english), command);
        line.shortcut = keys;
        line.enabled = enabled;
    };
    addKeyed(u"&Copy", kCopyEvent, u"Ctrl+C", hasEvent);
    addKeyed(u"&Paste", kPasteEvent, u"Ctrl+V", eventEditing::canPaste());
    addKeyed(u"&Delete", kDeleteEvent, u"Del", hasEvent);
    switch (menu.show(getCanvas(), x, y).value_or(0)) {
    case kCreateEvent:
        createRequested(cell);
        break;
    case kEditEvent:
        eventEditRequested(*editor.getSelectedEvent());
        break;
    case kCopyEvent:
        copyRequested();
        break;
    case kPasteEvent:
        pasteRequested(cell);
        break;
    case kDeleteEvent:
        deleteRequested();
        break;
    default:
        break;
    }
}

void AppFrame::eventEditRequested(std::size_t event)
{
    eventEditing::edit(editor, event, this);
}

void AppFrame::createRequested(MapCell cell)
{
    eventEditing::create(editor, cell, this);
}

void AppFrame::copyRequested()
{
    if (editor.getSelectedEvent())
        eventEditing::copy(editor, *editor.getSelectedEvent());
}

void AppFrame::pasteRequested(MapCell cell)
{
    eventEditing::paste(editor, cell);
}

void AppFrame::deleteRequested()
{
    if (editor.getSelectedEvent())
        eventDeleteRequested(*editor.getSelectedEvent());
}

void AppFrame::eventShown(std::size_t event)
{
    const GameEvent& shown = editor.getMap().events.at(event);
    getCanvas().reveal({shown.x, shown.y});
}

/// Where the walker stands: the one cell that a person without a pointer has chosen.
void AppFrame::eventCreateRequested()
{
    createRequested(editor.getCursor().cell);
}

/// Undo does not bring an event back, so it is asked.
void AppFrame::eventDeleteRequested(std::size_t event)
{
    const WString& name = editor.getMap().events.at(event).names[0];
    if (host().ask({translateWith(u"Delete the event \"%1\"?", {name})}) == Answer::Yes)
        eventEditing::remove(editor, event);
}

// Areas

void AppFrame::areaChosen(std::int32_t)
{
    constexpr int kAreaLayer = 13;
    if (editor.getMode() != EditorMode::Area)
        dispatch(kAreaLayer);
}

void AppFrame::areaShown(MapCell cell)
{
    getCanvas().reveal(cell);
}

// Maps

void AppFrame::mapOpenRequested(WStringView name)
{
    openMap(mapTree::pathOf(name));
}

void AppFrame::mapCreateRequested(std::optional<std::size_t> parent)
{
    const std::optional<WString> name = createMapByDialog(session, this, parent);
    treePane.refresh();
    if (name)
        mapOpenRequested(*name);
}

void AppFrame::mapEditRequested(WStringView name)
{
    if (name == editor.getMapName())
        editOpenMapByDialog(session, editor, this);
    else
        editMapFileByDialog(session, name, this);
    treePane.refresh();
}

void AppFrame::mapExportRequested(const std::vector<WString>& names)
{
    if (editor.getMap().fileName.empty() || session.saveCurrentMap())
        exportMapsAsHtmlByDialog(names, mapNames(), this);
}

void AppFrame::mapRenamed(WStringView before, WStringView after)
{
    const auto kept = state.floors.find(mapTree::pathOf(before));
    if (kept != state.floors.end())
        state.floors[mapTree::pathOf(after)] = kept->second;
    updateStatus();
}

void AppFrame::mapDeleted(WStringView name)
{
    state.floors.erase(mapTree::pathOf(name));
    if (mapTree::pathOf(name) != editor.getMap().fileName)
        return;
    editor.close();
    openFirstMap();
}

std::vector<WString> AppFrame::mapNames()
{
    std::vector<WString> names;
    for (const MapHierarchy::Entry& entry : session.getHierarchy().list())
        if (!entry.isFolder())
            names.push_back(entry.name);
    return names;
}

} // namespace varn
