#pragma once

#include "Game/Map/AbstractMap.h"
#include "Game/Map/AreaManager.h"
#include "Game/Map/GameEvent.h"
#include "Game/Map/ImageType.h"
#include "Game/Map/Torus.h"
#include "Game/Map/WizMapData.h"

#include <filesystem>
#include <vector>

namespace varn {

/// The party's light. While it is active the view reaches 5 cells.
struct LightSource
{
    bool active = false;
    std::int32_t power = 255; ///< 0 to 255; below 255 a dark cell shows through a veil

    std::int32_t percentage() const { return power * 100 / 255; }
};

/// What the property dialog sets and the property copy carries, beside the fields of `AbstractMap`.
struct WizMapProperties
{
    std::int32_t level = 0;
    std::int32_t encounterSteps = 100; ///< steps between encounter checks
    bool teleportable = true;
    bool displayable = true;
    bool skipViewImages = false; ///< while false a load takes the pictures of the view
    bool fogEnabled = true;
    bool rowsTopDown = true; ///< false mirrors the rows in `cellAt`
    bool fillDistantView = false;
    std::uint32_t backgroundColor = 255; ///< colours are 0x00BBGGRR
    std::uint32_t fogColor = 0;          ///< also the colour of the distance
    std::uint32_t spareColor = 0xFFFFFF; ///< carried with the properties, read by nothing
    std::int32_t eyeHeight = 128;
};

/// An attribute of the side document's root, as it is written.
struct MapAttribute
{
    WStringView key;
    WString value;  ///< before escaping
    char16_t quote; ///< `"` around names, `'` around settings
};

/// A dungeon floor: a grid of cells with walls on their edges, its settings, events and areas, read
/// from and written to the pair `<name>.map` and `<name>.xml`.
///
/// The grid is a torus: what lies beyond an edge is the opposite edge. Changing the size touches
/// only `cols` and `rows`: cells outside keep their bytes and come back when the map grows again.
class WizMap : public AbstractMap, public WizMapProperties
{
  public:
    static constexpr int kMaxVisibleDistance = 5;

    WizMap() { tileSize = 24; }

    std::int32_t rows = 20, cols = 20; ///< 1 to 100 each
    WizMapCells cells{};
    EventManager events;
    AreaManager areas;
    GameEvent eventTemplate; ///< what the editor makes a new event from
    LightSource light;

    /// The cell at `x % cols`, `y % rows`; both are not negative.
    WizMapData& cellAt(int x, int y)
    {
        const int row = wrapOnRing(y, rows);
        const int line = rowsTopDown ? row : rows - 1 - row;
        return cells[static_cast<std::size_t>(line * kMapStride + wrapOnRing(x, cols))];
    }
    const WizMapData& cellAt(int x, int y) const { return const_cast<WizMap*>(this)->cellAt(x, y); }

    /// Puts a wall kind on one of the four sides of a cell, and on the same edge as its neighbour
    /// beyond stores it, across the seam of the torus where need be. False: nothing changed, or `x`
    /// and `y` are both out of range. Out of range on one axis wraps.
    bool setWall(int kind, Direction side, int x, int y);

    /// Moves the cells, and the events with them, by whole cells on the torus; areas stay.
    void shiftMap(int dx, int dy);
    /// A quarter turn counter-clockwise of the cells; `cols` and `rows` swap, cells outside the new
    /// size are lost, events and areas stay.
    void rotateMap();
    /// Mirrors the cells left to right. Of an odd number of columns the middle one is not visited:
    /// its east and west walls stay as they are. Events and areas stay.
    void reflectMap();

    /// 0 to 5, below 1: the project's default. A larger value stores 5 and gives false.
    bool setVisibleDistance(std::int32_t distance);
    std::int32_t getStoredVisibleDistance() const { return visibleDistance; }
    /// The distance in use: 5 by light, else the stored one, else the default of the system table's
    /// first row, else 2.
    std::int32_t getVisibleDistance() const;
    /// How much a step of distance takes from 255: `255 / (distance in use when it was set + 1)`.
    std::int32_t getFogStep() const { return fogStep; }

    /// The file of a picture, as the side document names it; empty: the map has none of this kind.
    const WString& getImageName(ImageType type) const { return imageNames[indexOf(type)]; }
    void setImageName(ImageType type, WString name) { imageNames[indexOf(type)] = std::move(name); }

    /// Takes over names, sounds, pictures, settings and size, not the cells, events and areas.
    void copyPropertiesFrom(const WizMap& other);

    /// The attributes of the side document in its order, with the values in use.
    std::vector<MapAttribute> attributes() const;
    WString toAttributes() const override;
    /// The text of the side document, from declaration to "</Map>" and its line end.
    WString toXml() const;
    /// Takes settings from the root of a side document, and adds its events and areas.
    void fromXml(const Element& root);

    /// Empties events and areas and zeroes all 50,000 bytes of the cells; size and settings stay.
    void clear() override;
    /// Writes both files, the side document behind the grid. True also where only the side document
    /// could not be written. A side document that the load could not read is kept beside the new
    /// one, with ".bak" behind its name.
    bool save(WStringView fileName) override;
    /// Refills this map. A side document that cannot be read is told in a message and leaves the
    /// defaults. @param fileName  the path with ".map"; looked for as MapFile.h tells
    /// @throws Exception  "Couldn't open " and the name, or where the grid ends early; the map is
    /// then
    ///                    cleared
    void load(WStringView fileName);

  private:
    static std::size_t indexOf(ImageType type)
    {
        return static_cast<std::size_t>(static_cast<int>(type) - kFirstImageType);
    }
    void loadSideDocument(WStringView base);

    std::array<WString, kImageTypes> imageNames;
    std::int32_t visibleDistance = 0;
    std::int32_t fogStep = 0;
    bool sideDocumentUnread = false; // it stands there and was refused: a save must not lose it
};

} // namespace varn
