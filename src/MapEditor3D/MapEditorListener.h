#pragma once

#include "MapEditor3D/UndoManager.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

namespace varn {

/// What a map editor tells those who show or keep its map. Each call comes behind the change, on
/// the main thread, and may come many times in one gesture: note what to do and do it once, at the
/// next painting.
class MapEditorListener
{
  public:
    virtual ~MapEditorListener() = default;

    /// Another map is open: nothing that was shown of the one before holds.
    virtual void mapLoaded() {}
    /// The open map has another size, other pictures, names or settings. Nothing that was shown of
    /// it holds either, so who does not tell the two apart is told that it was loaded.
    virtual void propertiesChanged() { mapLoaded(); }
    /// The open map stands on the disk as it is.
    virtual void mapSaved() {}
    /// Cells of the map, never beyond its size. A stroke over the seam of the torus comes in two
    /// rectangles.
    virtual void cellsChanged(const CellRect& /*cells*/) {}
    /// Events were moved, added, edited or taken away.
    virtual void eventsChanged() {}
    /// Areas were painted, edited or taken away; the cells whose tint may differ.
    virtual void areasChanged(const CellRect& /*cells*/) {}
    /// A gesture ended and changed the map: what now stands is worth keeping.
    virtual void committed() {}
    virtual void historyChanged(bool /*canUndo*/, bool /*canRedo*/) {}

    /// Another value is selected, by the right button or by the editor's owner.
    virtual void tileSelected(int /*tile*/) {}
    /// Place in the map's list of events; nothing: none is selected.
    virtual void eventSelected(std::optional<std::size_t> /*event*/) {}
    /// Another tool or layer is in force.
    virtual void toolChanged() {}
    /// A button went down or up: what is erased, held or painted may be another.
    virtual void gestureChanged() {}
    /// The rubber band was begun, drawn on or dropped.
    virtual void bandChanged() {}
    virtual void walkerMoved() {}
    /// The size of the cells on the canvas, or the cell in its corner.
    virtual void viewChanged() {}
};

/// Those who are told; borrowed. One may take itself or others out while it is being told.
class MapEditorListeners
{
  public:
    void add(MapEditorListener& listener) { list.push_back(&listener); }
    void remove(MapEditorListener& listener)
    {
        // Its place stays until the walk that may be going on is over.
        std::replace(list.begin(), list.end(), &listener, static_cast<MapEditorListener*>(nullptr));
        if (!telling)
            std::erase(list, nullptr);
    }

    template <class... Parameters, class... Arguments>
    void tell(void (MapEditorListener::*what)(Parameters...), Arguments&&... arguments)
    {
        const bool outermost = !std::exchange(telling, true);
        for (std::size_t i = 0; i < list.size(); ++i)
            if (list[i])
                (list[i]->*what)(arguments...);
        if (!outermost)
            return;
        telling = false;
        std::erase(list, nullptr);
    }

  private:
    std::vector<MapEditorListener*> list; // null: taken out during a walk
    bool telling = false;
};

} // namespace varn
