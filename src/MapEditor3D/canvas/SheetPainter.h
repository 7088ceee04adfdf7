#pragma once

#include "Game/Map/View/WizMapImage.h"
#include "MapEditor3D/canvas/AreaLabels.h"
#include "MapEditor3D/canvas/CanvasOptions.h"
#include "MapEditor3D/canvas/CanvasPalette.h"
#include "MapEditor3D/canvas/EdgeTiles.h"
#include "MapEditor3D/canvas/TileStrip.h"

#include <optional>
#include <span>
#include <vector>

namespace varn {

/// All that one painting of the sheet reads, and the pictures that it makes on its way.
struct SheetScene
{
    const WizMapEditor& editor;
    const CanvasView& view;
    const CanvasPalette& palette;
    const CanvasOptions& options;
    const WizMapImage& images;
    TileStrip& floorTiles;
    TileStrip& eventTiles;
    EdgeTiles& edges;
    std::span<const AreaLabel> labels;
    std::optional<CanvasCell> hover;
};

/// Paints a part of the sheet: everything that falls into it, from the desk up to the rulers.
class SheetPainter
{
  public:
    /// @param target  holds at least the part, its corner at (0, 0)
    /// @param part    device pixels of the whole surface
    SheetPainter(const SheetScene& scene, Graphics& target, const Rect& part);

    void paint();

  private:
    // Cells, columns and rows here run from -1 to the size: those around the map show its other
    // side.
    template <class Visit>
    void forEachCell(Visit visit) const;
    const WizMapData& cellAt(int x, int y) const;
    Rect placeOf(int x, int y) const;
    Point middleOf(int x, int y) const;
    bool isBeyond(int x, int y) const;
    int thin() const; ///< device pixels of the thinnest line
    void fill(const Rect& rect, ColourRef colour, int opacity = 255);
    /// A hollow rectangle, its lines inside.
    void frame(const Rect& rect, int width, ColourRef colour, int opacity = 255);

    void paintPaper();
    void paintGridLines(const Rect& place, int x, int y, int opacity);
    void paintFloor();
    void paintAreas();
    void paintArea(const AreaModel& area);
    void paintEvents();
    void paintEvent(const GameEvent& event, const Rect& place, double opacity);
    void paintWalls();
    template <class Visit>
    void forEachWall(Visit visit) const;
    void paintAreaNames();
    void paintVeil();
    void paintWarp();
    void paintHover();
    void paintHoveredEdge(const CanvasCell& place, bool erases);
    void paintBand();
    void paintWalker();
    void paintRulers();
    void paintRuler(EdgeRun run);

    const SheetScene& scene;
    const WizMap& map;
    const CanvasView& view;
    const CanvasPalette& palette;
    Graphics& target;
    Rect part;
    Point origin;                   ///< of cell (0, 0), in pixels of the target
    int side;                       ///< of a cell
    int firstX, endX, firstY, endY; ///< cells that touch the part
};

} // namespace varn
