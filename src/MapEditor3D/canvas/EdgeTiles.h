#pragma once

#include "MapEditor3D/canvas/CanvasPalette.h"
#include "MapEditor3D/canvas/Glyph.h"

#include <unordered_map>

namespace varn {

enum class WallLook
{
    Strip, ///< the project's own wall strip, where it is loaded
    Glyphs ///< our shapes, drawn for the size they are shown at
};

/// Which way an edge runs: between two rows of cells, or between two columns.
enum class EdgeRun
{
    Level,
    Upright
};

/// How thick a wall is drawn, in device pixels, between cells of a side of so many.
int wallThickness(int side);

/// The pictures of the wall kinds at one size, made when they are first asked for: a column of the
/// project's wall strip, or a shape of our own. Kinds that no one knows have a shape too.
class EdgeTiles
{
  public:
    /// @param strip  the project's wall strip (14 kinds left to right, level edges above upright
    ///               ones, 16 pixels each), borrowed; null: our shapes
    /// @param side   device pixels of a cell
    void use(const Image* strip, int side, const CanvasPalette& palette);
    /// For when the strip's pixels changed.
    void forget() { tiles.clear(); }

    /// The halo of an edge, which keeps its stroke off the floor. Paint those of all edges before
    /// the first stroke, or a halo cuts its neighbour.
    void drawHalo(Graphics& target, int kind, EdgeRun run, Point middle);
    /// @param middle  of the edge, in pixels of the target
    void draw(Graphics& target, int kind, EdgeRun run, Point middle, double opacity = 1);

  private:
    struct Tile
    {
        PlacedPicture stroke, halo;
    };

    Tile& tile(int kind, EdgeRun run);
    Tile makeFromStrip(int kind, EdgeRun run) const;

    const Image* strip = nullptr;
    int side = 0;
    CanvasPalette palette = lightCanvasPalette();
    std::unordered_map<int, Tile> tiles;
};

} // namespace varn
