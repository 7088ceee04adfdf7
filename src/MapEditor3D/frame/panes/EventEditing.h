#pragma once

#include "MapEditor3D/WizMapEditor.h"

namespace varn {

class BaseWindow;

/// What the event layer's menu does, with its dialogs and questions. Each tells the editor of what
/// it changed. False: nothing was, the person changed their mind or it was refused.
namespace eventEditing {

/// Makes an event of the selected kind (`WizMapEditor::getSelectedTile`) at a cell: by the event
/// dialog, or at once with the kind's own script where the kind does without the dialog.
bool create(WizMapEditor& editor, MapCell cell, BaseWindow* parent);
/// @param event  place in the map's list
bool edit(WizMapEditor& editor, std::size_t event, BaseWindow* parent);
/// Without a question.
bool remove(WizMapEditor& editor, std::size_t event);
/// Puts the event on the clipboard, as the text of its element.
bool copy(const WizMapEditor& editor, std::size_t event);
/// Puts the clipboard's event at a cell, under a name that is free.
bool paste(WizMapEditor& editor, MapCell cell);
/// The clipboard holds an event.
bool canPaste();

/// The script that an event of a kind starts with: its header and footer.
WString defaultScript(std::int32_t kind);
/// "Treasure 3": a name like @p wanted that no event of the map has.
WString freeName(const EventManager& events, WStringView wanted);

} // namespace eventEditing
} // namespace varn
