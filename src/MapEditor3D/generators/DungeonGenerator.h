#pragma once

#include "Game/Map/WizMap.h"
#include "MapEditor3D/generators/Array2D.h"
#include "Util/Random.h"
#include "Util/Rect.h"

#include <optional>
#include <vector>

namespace varn::generator {

enum class Layout
{
    Random = 0,
    Symmetric = 1
};
enum class DeadEnds
{
    None = 0,
    Door = 1,
    AsIs = 2
};

/// What a run is told. The dialog and the driver set the first three.
struct GeneratorOptions
{
    Layout layout = Layout::Random;     ///< Symmetric: rooms mirrored on the middle column
    DeadEnds deadEnds = DeadEnds::None; ///< filled up, closed with a door, or left
    int passageway = 40;                ///< 0 to 100; the higher, the straighter the passages
    int roomTries = 100;                ///< rooms drawn; those that overlap another are refused
    int roomExtraSize = 0;              ///< cells a room may be larger each way
    int extraConnectorChance = 20;      ///< kept with the options, read by nothing
};

/// A cell with the edges behind which another region lies.
struct ConnectorRegion
{
    struct Connector
    {
        Direction direction;
        int region = 0; ///< of the neighbour
    };
    int x = 0, y = 0;
    int region = 0;
    std::vector<Connector> connectors;
};

/// Fills a floor with rooms and winding passages. Walls stand on edges, so no cell is given up for
/// a wall: every cell is carved, and any two neighbouring regions are joined by exactly one door,
/// which makes loops. During a run the floor byte is 1 for solid rock and 0 for a carved cell.
///
/// The order of the random draws is fixed, so a seed names a dungeon.
/// After B. Nystrom, "Rooms and Mazes: A Procedural Dungeon Generator", 2014.
class DungeonGenerator
{
  public:
    explicit DungeonGenerator(const GeneratorOptions& options = {},
                              Random& random = programRandom());
    virtual ~DungeonGenerator() = default;

    /// How often, of a hundred, a passage takes a new direction: `100 - value`.
    void setPassageway(int value) { windingPercent = 100 - value; }
    void setLayout(Layout value) { layout = value; }
    void setDeadEnds(DeadEnds value) { deadEnds = value; }

    /// Replaces all cells of the map's `cols` by `rows`; settings, events and areas stay.
    void generate(WizMap& target);

    /// Of the last run: the rooms in the order they were taken, and the region of each cell. The
    /// rooms' regions come first, in the same order.
    const std::vector<Rect>& getRooms() const { return rooms; }
    const Array2D<int>& getRegions() const { return regions; }

  private:
    void fillWithRock();
    void addRooms();
    void placeRoom(int x, int y, int width, int height);
    void addRoom(const Rect& room);
    void growMazes();
    void growMaze(int x, int y);
    Direction chooseDirection(const std::vector<Direction>& candidates, Direction last);
    std::vector<ConnectorRegion> findConnectors() const;
    void connectRegions();
    void closeDeadEnds();
    void fillDeadEnds();
    std::optional<Direction> soleOpening(int x, int y) const;
    void openSolidRock();

    void setTile(int x, int y, Direction direction, int value);
    void carve(int x, int y, Direction direction, int value);
    bool isInside(int x, int y) const { return x >= 0 && x < cols && y >= 0 && y < rows; }
    bool isRock(int x, int y) const { return isInside(x, y) && map->cellAt(x, y).floor == 1; }
    std::size_t pick(std::size_t count);

    WizMap* map = nullptr; // of the run
    Random& random;
    std::vector<Rect> rooms;
    Array2D<int> regions;
    int currentRegion = -1;
    int cols = 0, rows = 0;
    Layout layout;
    DeadEnds deadEnds;
    int roomTries;
    int roomExtraSize;
    int windingPercent;
};

} // namespace varn::generator
