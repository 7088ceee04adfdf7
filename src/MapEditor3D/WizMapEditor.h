#pragma once

#include "Game/Map/WizMap.h"
#include "MapEditor3D/CanvasGeometry.h"
#include "MapEditor3D/MapEditing.h"
#include "MapEditor3D/UndoManager.h"

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
class WizMapEditor final : public MapEditing, private AbstractUndoableEdit<WizMapData>
{
  public:
    WizMapEditor() : undoManager(*this) {}
    WizMapEditor(const WizMapEditor&) = delete;
    WizMapEditor& operator=(const WizMapEditor&) = delete;

    WizMap& getMap() { return map; }
    const WizMap& getMap() const { return map; }

    /// Opens a map; tool, layer, selected value and zoom stay.
    /// @param fileName  the path with ".map"
    /// @throws Exception  as `WizMap::load`; the map that was open stays
    void load(WStringView fileName);
    /// Takes the map's cells as committed and forgets all steps of undo.
    void resetHistory();

    bool doSave() override;
    WString getMapName() const override;

    bool canUndo() const { return undoManager.canUndo(); }
    bool canRedo() const { return undoManager.canRedo(); }
    bool undo() override { return undoManager.undo(); }
    bool redo() override { return undoManager.redo(); }
    /// These commit nothing: the next commit sees what they did.
    void rotateMap() override { map.rotateMap(); }
    void reflectMap() override { map.reflectMap(); }
    void shiftMap(int dx, int dy) override { map.shiftMap(dx, dy); }

    /// There is no point tool for a floor: asked for, the tool stays.
    void setTool(EditorTool next) override;
    EditorTool getTool() const { return tool; }
    bool setLayer(EditorLayer layer) override;
    EditorMode getMode() const { return mode; }
    /// Strokes of the mode `Tile` go to the floor; else to the walls.
    bool isFloorLayer() const { return floorLayer; }

    /// A wall kind, a floor tile or the number of an area.
    int getSelectedTile() const { return selectedTile; }
    void setSelectedTile(int tile) { selectedTile = tile; }
    /// Place in the map's list of events; nothing: none is selected.
    std::optional<std::size_t> getSelectedEvent() const { return selectedEvent; }

    /// Pixels of a cell on the canvas: 20, 28, ... 60.
    int getTileSize() const { return tileSize; }
    /// Where the first cell of the canvas begins, in pixels across and down.
    int getOrigin() const { return tileSize + kMargin; }
    bool zoom(bool in) override;
    /// The cell in the canvas's corner.
    void setScroll(MapCell cell) { scroll = cell; }
    MapCell getScroll() const { return scroll; }

    // What the pointer does. Points outside the visible cells are dropped, but a release ends the
    // stroke wherever it happens. A double-click comes without a press.
    void press(MouseButton button, CanvasPoint point);
    void move(CanvasPoint point);
    void release(MouseButton button, CanvasPoint point);
    void doubleClick(MouseButton button, CanvasPoint point);

    /// The rectangle being drawn, from corner to corner: cells on the floor and of areas, corners
    /// of cells on the walls.
    struct Band
    {
        MapCell from, to;
    };
    const std::optional<Band>& getBand() const { return band; }

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

    bool isVisible(CanvasPoint point) const;
    bool bandSnapsToCells() const { return mode == EditorMode::Area || floorLayer; }
    MapCell bandEnd(CanvasPoint point) const;
    std::optional<MapCell> cellOfMap(MapCell canvasCell) const;
    int valueUnder(const CanvasCell& place) const;

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
    std::optional<Band> band;
};

} // namespace varn
