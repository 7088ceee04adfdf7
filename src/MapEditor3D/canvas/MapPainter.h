#pragma once

#include "Game/Map/View/WizMapImage.h"
#include "Graphics/Graphics.h"
#include "MapEditor3D/MapEditorListener.h"
#include "MapEditor3D/canvas/CanvasPalette.h"
#include "MapEditor3D/canvas/CanvasView.h"
#include "MapEditor3D/canvas/EdgeTiles.h"
#include "MapEditor3D/canvas/TileStrip.h"

#include <optional>
#include <vector>

namespace varn {

/// What the canvas shows beside floor and walls.
struct CanvasOptions
{
    WallLook walls = WallLook::Strip;
    bool grid = true;
    bool events = true;
    bool areas = true;
    bool walker = true;
    bool rowsFromBottom = true; ///< row numbers of the ruler as the game counts

    bool operator==(const CanvasOptions&) const = default;
};

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
    class Sheet;

    void mapLoaded() override { invalidate(); }
    void cellsChanged(const CellRect& cells) override { markCells(cells); }
    void eventsChanged() override;
    void areasChanged(const CellRect& cells) override;
    void tileSelected(int) override { markHover(); }
    void eventSelected(std::optional<std::size_t>) override;
    void toolChanged() override;
    void bandChanged() override;
    void walkerMoved() override;

    void markCells(CellRect cells);
    void markDevice(const Rect& rect);
    void markHover();
    void markBand();
    void markWarp();
    void markWalker();
    std::optional<Rect> bandOnDevice() const;

    WizMapEditor& editor;
    WizMapImage images{MapPictures::Plan};
    TileStrip floorTiles, eventTiles;
    EdgeTiles edges;
    CanvasView view;
    CanvasPalette palette = lightCanvasPalette();
    CanvasOptions options;
    std::optional<CanvasCell> hover;

    // What lies on the surface beside the cells, so that it can be taken off again.
    std::optional<Rect> bandShown, warpShown;
    MapCell walkerShown;
    std::vector<MapCell> eventsShown;

    bool allDirty = true;
    std::vector<Rect> dirty; ///< device pixels; few, and none inside another
    Graphics scratch;        ///< where a dirty part is composed
};

} // namespace varn
