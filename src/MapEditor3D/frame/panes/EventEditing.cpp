#include "MapEditor3D/frame/panes/EventEditing.h"

#include "Game/Database/WizFloor.h"
#include "MapEditor3D/frame/panes/EventDialog.h"
#include "MapEditor3D/frame/panes/LoadedTable.h"
#include "Parser/XMLParser.h"
#include "Util/Host.h"

#include <algorithm>

namespace varn::eventEditing {

namespace {

/// What the text of an event's element begins with.
constexpr WStringView kClipboardStart = u"<Event ";

bool add(WizMapEditor& editor, std::unique_ptr<GameEvent> event)
{
    EventManager& events = editor.getMap().events;
    events.add(std::move(event));
    editor.eventsEdited();
    editor.setSelectedEvent(events.size() - 1);
    return true;
}

/// An event of the selected kind, as it starts.
GameEvent startOf(const WizMapEditor& editor, MapCell cell)
{
    GameEvent event = editor.getMap().eventTemplate;
    const WizFloorList& kinds = loadedTable<WizFloorList>();
    event.type = kinds.find(editor.getSelectedTile()) ? editor.getSelectedTile() : 0;
    event.x = cell.x;
    event.y = cell.y;
    event.script = defaultScript(event.type);
    const WizFloorData* const kind = kinds.find(event.type);
    event.names[0] = freeName(editor.getMap().events,
                              kind && !kind->getName().empty() ? kind->getName() : u"Event");
    return event;
}

} // namespace

WString defaultScript(std::int32_t kind)
{
    const WizFloorData* const row = loadedTable<WizFloorList>().find(kind);
    return row ? widen(row->getHeader()) + widen(row->getFooter()) : WString();
}

WString freeName(const EventManager& events, WStringView wanted)
{
    const auto isTaken = [&](WStringView name) {
        return std::ranges::any_of(events.list(),
                                   [&](const auto& event) { return event->names[0] == name; });
    };
    WStringView stem = wanted;
    while (!stem.empty() && stem.back() >= u'0' && stem.back() <= u'9')
        stem.remove_suffix(1);
    while (stem.ends_with(u' '))
        stem.remove_suffix(1);
    WString name(wanted);
    for (std::int32_t number = 2; isTaken(name); ++number)
        name = WString(stem) + u' ' + toDecimal(number);
    return name;
}

bool create(WizMapEditor& editor, MapCell cell, BaseWindow* parent)
{
    const GameEvent start = startOf(editor, cell);
    const WizFloorData* const kind = WizFloorList::instance().find(start.type);
    if (kind && !kind->getUseEditDialog())
        return add(editor, inClassOfKind(start));
    EventDialog dialog(editor.getMap(), start, nullptr);
    return dialog.doModal(parent) == Dialog::Ok && add(editor, dialog.takeEvent());
}

bool edit(WizMapEditor& editor, std::size_t event, BaseWindow* parent)
{
    EventManager& events = editor.getMap().events;
    if (event >= events.size())
        return false;
    EventDialog dialog(editor.getMap(), events.at(event), &events.at(event));
    if (dialog.doModal(parent) != Dialog::Ok)
        return false;
    events.replace(event, dialog.takeEvent());
    editor.eventsEdited();
    return true;
}

bool remove(WizMapEditor& editor, std::size_t event)
{
    EventManager& events = editor.getMap().events;
    if (event >= events.size())
        return false;
    editor.setSelectedEvent(std::nullopt);
    events.remove(event);
    editor.eventsEdited();
    return true;
}

bool copy(const WizMapEditor& editor, std::size_t event)
{
    const EventManager& events = editor.getMap().events;
    if (event >= events.size())
        return false;
    NodeArena arena;
    host().setClipboardText(events.at(event).toXml(arena)->toString());
    return true;
}

bool canPaste()
{
    return host().getClipboardText().starts_with(kClipboardStart);
}

bool paste(WizMapEditor& editor, MapCell cell)
{
    XMLParser parser;
    if (!canPaste() || !parser.loadText(host().getClipboardText(), u"clipboard") ||
        !parser.getRootElement())
        return false;
    EventManager pasted;
    pasted.addFromXml(*parser.getRootElement());
    std::unique_ptr<GameEvent> event = pasted.remove(0);
    event->x = cell.x;
    event->y = cell.y;
    event->names[0] = freeName(editor.getMap().events, event->names[0]);
    return add(editor, std::move(event));
}

} // namespace varn::eventEditing
