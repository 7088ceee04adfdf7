#pragma once

#include "Game/Map/WizMap.h"
#include "MapEditor3D/CanvasGeometry.h"
#include "MapEditor3D/DungeonCursor.h"
#include "MapEditor3D/GameController.h"
#include "MapEditor3D/MapEditing.h"
#include "MapEditor3D/MapEditorListener.h"
#include "MapEditor3D/UndoManager.h"

#include <memory>
#include <optional>

namespace varn {

enum class MouseButton
{
    Left,
    Right
};

/// What strokes change.
enum class EditorMode
{
    Tile = 0,
    Event = 1,
    Area = 2
};

/// The editor of a floor without its window: tools and layers, pointer to cell and edge, strokes,
/// undo.
///
/// A stroke writes into the map at once. When its button goes up it is committed: what differs from
/// `mirror`, the last committed cells, becomes one step of undo. Undo works on the mirror and
/// copies it over the map, so it knows cells only: events, areas and settings are outside.
///
/// The left button writes the selected value. The right button picks the value under the pointer;
/// where that is the selected one already, it erases it along the way.
///
/// It also holds the walker of the preview, and tells its listeners of all that changes. Who writes
/// into the map beside it (a dialog, the generator) says so by one of the `...Edited` calls.
class WizMapEditor final : public MapEditing,
                           public GameController::Listener,
                           private AbstractUndoableEdit<WizMapData>
{
  public:
    WizMapEditor() : undoManager(*this) {}
    WizMapEditor(const WizMapEditor&) = delete;
    WizMapEditor& operator=(const WizMapEditor&) = delete;

    /// Borrowed until `removeListener`.
    void addListener(MapEditorListener& listener) { listeners.add(listener); }
    void removeListener(MapEditorListener& listener) { listeners.remove(listener); }

    WizMap& getMap() { return map; }
    const WizMap& getMap() const { return map; }

    /// Opens a map; tool, layer, selected value and zoom stay.
    /// @param fileName  the path with ".map"
    /// @throws Exception  as `WizMap::load`; the map that was open stays
    void load(WStringView fileName);
    /// No map is open any more; nothing is asked and nothing written.
    void close();
    /// Takes the map's cells as committed and forgets all steps of undo.
    void resetHistory();

    bool doSave() override;
    WString getMapName() const override;

    bool canUndo() const { return undoManager.canUndo(); }
    bool canRedo() const { return undoManager.canRedo(); }
    bool undo() override { return undoManager.undo(); }
    bool redo() override { return undoManager.redo(); }
    /// These commit nothing: the next commit sees what they did.
    void rotateMap() override;
    void reflectMap() override;
    void shiftMap(int dx, int dy) override;

    // What was written into the map beside the editor. Behind the first call `commitStroke` makes
    // it one step of undo; the others have none.
    void cellsEdited(const CellRect& cells);
    void cellsEdited() { cellsEdited(wholeMap()); }
    void eventsEdited();
    void areasEdited();
    /// Size, names, pictures, settings.
    void propertiesEdited();

    /// There is no point tool for a floor: asked for, the tool stays.
    void setTool(EditorTool next) override;
    EditorTool getTool() const { return tool; }
    bool setLayer(EditorLayer layer) override;
    EditorMode getMode() const { return mode; }
    /// Strokes of the mode `Tile` go to the floor; else to the walls.
    bool isFloorLayer() const { return floorLayer; }

    /// A wall kind, a floor tile or the number of an area.
    int getSelectedTile() const { return selectedTile; }
    void setSelectedTile(int tile);
    /// Place in the map's list of events; nothing: none is selected.
    std::optional<std::size_t> getSelectedEvent() const { return selectedEvent; }
    /// A place behind the list selects none.
    void setSelectedEvent(std::optional<std::size_t> event);
    /// The event of a cell, of several the one drawn last.
    std::optional<std::size_t> findEvent(MapCell cell) const;

    /// Pixels of a cell on the canvas: 20, 28, ... 60.
    int getTileSize() const { return tileSize; }
    /// Where the first cell of the canvas begins, in pixels across and down.
    int getOrigin() const { return tileSize + kMargin; }
    bool zoom(bool in) override;
    /// The cell in the canvas's corner. A band that is being drawn stays on its cells.
    void setScroll(MapCell cell);
    MapCell getScroll() const { return scroll; }

    // What the pointer does. Points outside the visible cells are dropped, but a release ends the
    // stroke wherever it happens. A double-click comes without a press.
    void press(MouseButton button, CanvasPoint point);
    void move(CanvasPoint point);
    void release(MouseButton button, CanvasPoint point);
    void doubleClick(MouseButton button, CanvasPoint point);
    /// Drops the gesture that is going on: cells and areas are what they were at its press. False:
    /// there is none.
    bool cancelGesture();
    bool isGestureGoingOn() const { return leftHeld || rightHeld; }
    /// The right button takes away what the selected value is.
    bool isErasing() const { return eraseStroke; }
    /// The event that is being dragged stands here until it is dropped.
    bool isEventHeld() const { return eventHeld; }

    /// The rectangle being drawn, in cells of the canvas.
    using Band = MapCursor::Band;
    const std::optional<Band>& getBand() const { return cursor.band; }
    /// Its ends are cells; else corners of cells.
    bool bandSnapsToCells() const { return mode == EditorMode::Area || floorLayer; }
    /// The cell of the map at a cell of the canvas: the first column and row behind the last are
    /// the first ones again. Nothing: outside.
    std::optional<MapCell> cellOfMap(MapCell canvasCell) const;
    /// What a pick would select there; the selected value outside the map.
    int valueUnder(const CanvasCell& place) const;

    // The walker of the preview.
    const DungeonCursor& getCursor() const { return cursor; }
    /// Brought onto the map's torus; no facing keeps the one before.
    void placeWalker(MapCell cell, Direction facing = Direction::None);
    bool controllerKey(ControllerKey key) override;

    /// Makes a step of undo of what differs from the last commit; nothing where nothing does.
    void commitStroke();

  private:
    static constexpr int kLeastTileSize = 16, kMostTileSize = 64, kZoomStep = 8;
    static constexpr int kMargin = 4;

    WizMapData* getData() override { return mirror.data(); }
    int getStride() const override { return kMapStride; }
    void undone() override { restoreMirror(); }
    void redone() override { restoreMirror(); }
    void restoreMirror();
    std::optional<CellRect> uncommitted() const;

    void changed() override;

    CellRect wholeMap() const { return {0, 0, map.cols, map.rows}; }
    void take(WizMap next);
    void tellBand() { listeners.tell(&MapEditorListener::bandChanged); }
    void tellCommitted() { listeners.tell(&MapEditorListener::committed); }
    void tellCell(MapCell cell);

    bool isVisible(CanvasPoint point) const;
    MapCell bandEnd(CanvasPoint point) const;

    void beginGesture(MouseButton button, CanvasPoint point);
    void endGesture(MouseButton button, CanvasPoint point);
    void writeTile(int value, const CanvasCell& place);
    void paint(const CanvasCell& place);
    bool pick(CanvasPoint point);
    void drawBand();
    void endStroke();
    void grabEvent(CanvasPoint point);
    void dropEvent(CanvasPoint point);

    WizMap map;
    WizMapCells mirror{}; // the last committed cells; between strokes it equals the map's
    UndoManager<WizMapData> undoManager;

    EditorTool tool = EditorTool::Pen;
    EditorMode mode = EditorMode::Tile;
    bool floorLayer = true;
    int selectedTile = 0;
    std::optional<std::size_t> selectedEvent;
    int tileSize = kLeastTileSize + 4;
    MapCell scroll;

    bool leftHeld = false, rightHeld = false;
    bool eraseStroke = false; // the right button paints
    bool eventHeld = false;
    DungeonCursor cursor;

    /// The map as it was at the press of the gesture that is going on.
    struct BeforeGesture
    {
        WizMapCells cells;
        AreaManager areas;
    };
    std::unique_ptr<BeforeGesture> before;
    bool areasPainted = false; // by the stroke that is going on

    MapEditorListeners listeners;
};

} // namespace varn
