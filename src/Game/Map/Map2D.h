#pragma once

#include "Game/Map/AbstractMap.h"
#include "Game/Map/AreaManager.h"
#include "Game/Map/GameEvent.h"
#include "Util/Bytes.h"

#include <vector>

namespace varn {

/// A layered map of 16-bit tile numbers with a ".map" file of its own kind (magic "MAP2") and a
/// side document; it also reads the map unit of a foreign maker. No command opens one.
class Map2D : public AbstractMap
{
  public:
    std::uint16_t col = 0, row = 0;
    std::uint8_t layer = 0;
    std::uint8_t endian = 0;
    std::uint8_t loop = 0;
    std::vector<std::uint16_t> tiles; ///< `layer * col * row`: by layer, then row, then column
    std::vector<WString> imageNames;  ///< one a layer
    EventManager events;
    AreaManager areas;

    std::uint16_t& tileAt(int layerIndex, int x, int y)
    {
        return tiles.at(indexOf(layerIndex, x, y));
    }
    std::uint16_t tileAt(int layerIndex, int x, int y) const
    {
        return tiles.at(indexOf(layerIndex, x, y));
    }

    /// Moves all layers, and the events with them, on the torus. Equal offsets do nothing.
    /// @throws Exception  "Error: Lack of Memory. Couldn't resize the map."
    void shift(int dx, int dy);
    /// A quarter turn counter-clockwise of all layers; `col` and `row` swap.
    /// @throws Exception  "Error: MapData is null. Couldn't rotete the map." without tiles,
    ///                    "Error: Lack of Memory. Couldn't rotete the map."
    void rotate();
    /// Mirrors each row of each layer.
    void reflect();

    WString toAttributes() const override;
    /// The text of the side document.
    WString toXml() const;
    /// Takes the attributes of a side document's root, its events and areas.
    void loadAttributes(const Element& root);
    /// No tiles, events or areas; the size is 0.
    void clear() override;
    /// Writes both files; a map without tiles first becomes 100 by 100 with one layer.
    bool save(WStringView fileName) override;

    /// Reads the path or "Project2D/" and the path, and the side document beside it where there is
    /// one. False: there is no such file, or it is neither kind of map; the map is then cleared.
    /// @throws Exception  as `fromBytes`; the map is then cleared
    bool load(WStringView fileName);
    /// The tiles off the bytes of either kind of file. False: neither kind; nothing has changed.
    /// @throws Exception  a file that ends within what it declares, or another size of tile, with
    /// the
    ///                    byte offset; nothing has changed
    bool fromBytes(ByteSpan bytes, WStringView subject);
    /// The bytes of the ".map".
    std::string toBytes() const;

  private:
    std::size_t indexOf(int layerIndex, int x, int y) const
    {
        return (static_cast<std::size_t>(layerIndex) * row + static_cast<std::size_t>(y)) * col +
               static_cast<std::size_t>(x);
    }
    void readOwn(ByteReader& in, WStringView subject);
    void readForeign(ByteReader& in, WStringView subject);
};

/// This program's tile number for one of a foreign map unit.
std::uint16_t translateForeignTile(std::uint16_t value);

} // namespace varn
