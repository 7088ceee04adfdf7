#pragma once

#include "Game/Map/View/WizMapImage.h"
#include "MapEditor3D/WizMapEditor.h"
#include "MapEditor3D/canvas/EdgeTiles.h"
#include "MapEditor3D/canvas/TileStrip.h"

#include <optional>
#include <vector>

namespace varn {

/// A value that strokes of the layer in force can write.
struct PaletteEntry
{
    int value = 0;
    WString name; ///< in the tool's language; of a floor tile its number

    bool operator==(const PaletteEntry&) const = default;
};

/// The layers as a palette shows them.
enum class PaletteKind
{
    Walls,
    Floor,
    Events,
    Areas
};
PaletteKind paletteKindOf(const WizMapEditor& editor);

/// What can be picked in the layer in force, with a small picture each: wall kinds, floor tiles,
/// kinds of events, areas (0 takes a cell out of all of them; the last entry is the next free
/// number).
class TilePalette
{
  public:
    explicit TilePalette(const WizMapEditor& editor) : editor(editor) {}

    std::vector<PaletteEntry> entries();
    /// Paints the picture of an entry of the layer in force into a square; the paper below it too.
    void drawPicture(Graphics& target, const Rect& square, int value, const CanvasPalette& colours,
                     WallLook look = WallLook::Strip);
    /// The pictures on the disk changed.
    void reloadImages() { images.clear(); }

  private:
    void drawWall(Graphics& target, const Rect& square, int kind);

    const WizMapEditor& editor;
    WizMapImage images{MapPictures::Plan};
    TileStrip floorTiles, eventTiles;
    EdgeTiles edges;
};

/// What a digit key picks: 1 to 9 the value of that number, 0 the value 0; nothing where the layer
/// has no such value.
std::optional<int> valueOfDigit(const std::vector<PaletteEntry>& entries, int digit);
/// The value some entries further, around the end; a value that is no entry counts as the first.
int cycledValue(const std::vector<PaletteEntry>& entries, int value, int by);

} // namespace varn
