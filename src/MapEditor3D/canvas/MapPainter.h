#pragma once

#include "Graphics/Graphics.h"
#include "MapEditor3D/MapEditorListener.h"
#include "MapEditor3D/canvas/SheetPainter.h"
#include "MapEditor3D/canvas/WarpWay.h"

#include <optional>
#include <vector>

namespace varn {

/// Paints the sheet of a map editor: paper, floor, grid, areas, events, walls, what a click would
/// write, rubber band, warp arrow, walker, rulers. It listens to the editor, notes what changed and
/// repaints only that, on a surface that its owner keeps from painting to painting.
///
/// Around the map one cell of its other side shows through a veil: the map is a torus.
class MapPainter final : private MapEditorListener
{
  public:
    explicit MapPainter(WizMapEditor& editor);
    ~MapPainter() override;
    MapPainter(const MapPainter&) = delete;
    MapPainter& operator=(const MapPainter&) = delete;

    void setView(const CanvasView& next);
    const CanvasView& getView() const { return view; }
    void setPalette(const CanvasPalette& next);
    const CanvasPalette& getPalette() const { return palette; }
    void setOptions(const CanvasOptions& next);
    const CanvasOptions& getOptions() const { return options; }
    /// The place under the pointer, whose edge or cell lights up; nothing: the pointer is
    /// elsewhere.
    void setHover(std::optional<CanvasCell> place);
    /// The pictures on the disk changed.
    void reloadImages();

    /// Everything is to be painted anew.
    void invalidate();
    bool isDirty() const { return allDirty || !dirty.empty(); }

    /// Brings the surface up to date. It takes the view's size in device pixels, and is painted as
    /// a whole where that is new.
    /// @returns what was painted, in device pixels of the surface; empty where nothing was
    std::vector<Rect> paint(Graphics& surface);

  private:
    void mapLoaded() override;
    void cellsChanged(const CellRect& cells) override { markCells(cells); }
    void eventsChanged() override;
    void areasChanged(const CellRect& cells) override;
    void tileSelected(int) override;
    void eventSelected(std::optional<std::size_t>) override;
    void toolChanged() override;
    void gestureChanged() override;
    void bandChanged() override;
    void walkerMoved() override;

    void markCells(const CellRect& cells);
    void mark(Rect device);
    /// The four lines of a frame, and so many pixels around them.
    void markFrame(const Rect& device, int around);
    void markHover();
    void markBand();
    void markWarp();
    void markWalker();
    void markEvents();
    void placeLabels();
    std::vector<MapCell> eventCells() const;
    Rect surfaceRect() const;

    WizMapEditor& editor;
    WizMapImage images{MapPictures::Plan};
    TileStrip floorTiles, eventTiles;
    EdgeTiles edges;
    CanvasView view;
    CanvasPalette palette = lightCanvasPalette();
    CanvasOptions options;
    std::optional<CanvasCell> hover;

    // What was marked last of things beside the cells, so that it is taken off where it stood.
    std::optional<MapCursor::Band> bandShown;
    std::optional<WarpWay> warpShown;
    MapCell walkerShown;
    std::vector<MapCell> eventsShown;
    std::vector<AreaLabel> labels;
    bool labelsCurrent = false;

    bool allDirty = true;
    std::vector<Rect> dirty; ///< device pixels; few, and none inside another
    Graphics scratch;        ///< where a dirty part is composed
};

} // namespace varn
