#pragma once

#include "Util/Text.h"

namespace varn {

/// The drawing tools of the map editor, by their command numbers.
enum class EditorTool
{
    Pen = 3,
    Rectangle = 4,
    Point = 5
};

/// The layers a stroke goes to, in the order of the five layer tools (commands 9 to 13) and of the
/// settings' `SelectedLayer`.
enum class EditorLayer
{
    Floor = 0,
    Wall = 1,
    Third = 2,
    Event = 3,
    Area = 4
};

/// What session and commands ask of the editor of the open map. The editor of either program
/// implements it; without one there is no open map, and what would act on it does nothing.
class MapEditing
{
  public:
    virtual ~MapEditing() = default;

    /// Writes the open map. False: it could not be written, and the message was shown.
    virtual bool doSave() = 0;
    /// The open map's file, without folder and extension; empty while none is open.
    virtual WString getMapName() const = 0;

    virtual bool undo() = 0; ///< false: nothing to undo
    virtual bool redo() = 0;
    virtual void rotateMap() = 0;
    virtual void reflectMap() = 0;
    virtual void shiftMap(int dx, int dy) = 0;

    virtual void setTool(EditorTool tool) = 0;
    /// False: this editor has no such layer, and nothing changed.
    virtual bool setLayer(EditorLayer layer) = 0;
    /// One step; false: refused at either end.
    virtual bool zoom(bool in) = 0;
};

} // namespace varn
