#pragma once

#include "MapEditor3D/canvas/Glyph.h"

#include <unordered_map>

namespace varn {

/// A picture at another size: each pixel is the mean of the part of the source that it covers, so
/// that pixel art keeps even strokes at any size. Colour keys become alpha.
Image scaledPart(const Image& source, const Rect& part, int width, int height);

/// The tiles of a strip picture (16 pixels each, counted left to right and down), brought to the
/// size at which they are painted, and kept.
class TileStrip
{
  public:
    static constexpr int kTile = 16;

    /// Takes a picture, borrowed, null for none; another one, or another size, empties what is
    /// kept.
    void use(const Image* strip, int side);
    /// For when the picture itself changed.
    void forget() { tiles.clear(); }
    /// False: there is no such tile.
    bool draw(Graphics& target, int index, Point corner, double opacity = 1);
    int getSide() const { return side; }
    /// How many the picture holds; 0 without one.
    int count() const;
    bool isEmpty() const { return !strip; }

  private:
    const Image* strip = nullptr;
    int side = 0;
    std::unordered_map<int, PlacedPicture> tiles;
};

} // namespace varn
