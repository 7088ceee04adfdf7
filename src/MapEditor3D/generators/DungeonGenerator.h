#pragma once

#include "Game/Map/WizMap.h"
#include "MapEditor3D/generators/Array2D.h"
#include "Util/Random.h"
#include "Util/Rect.h"

#include <cstdint>
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

/// What the dialog and the driver set; everything else of a run is fixed.
struct GeneratorOptions
{
    Layout layout = Layout::Random;     ///< Symmetric: rooms mirrored on the middle column
    DeadEnds deadEnds = DeadEnds::None; ///< filled up, closed with a door, or left
    int passageway = 40;                ///< 0 to 100; the higher, the straighter the passages
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
/// a wall: every cell is carved, and any two neighbouring regions are joined by exactly one door.
///
/// The order of the random draws is fixed, so a seed names a dungeon.
/// After B. Nystrom, "Rooms and Mazes: A Procedural Dungeon Generator", 2014.
class DungeonGenerator
{
  public:
    explicit DungeonGenerator(const GeneratorOptions& options = {},
                              Random& random = programRandom());
    virtual ~DungeonGenerator() = default;

    /// `100 - passageway`: how often, of a hundred, a passage takes a new direction.
    void setPassageway(int value) { windingPercent = 100 - value; }
    void setLayout(Layout value) { layout = value; }
    void setDeadEnds(DeadEnds value) { deadEnds = value; }

    /// Replaces all cells of the map's `cols` by `rows`; settings, events and areas stay.
    void generate(WizMap& target);

    /// Of the last run.
    const std::vector<Rect>& getRooms() const { return rooms; }
    const Array2D<int>& getRegions() const { return regions; }

  private:
    WizMap* map = nullptr;
    Random& random;
    std::vector<Rect> rooms;
    Array2D<int> regions;
    int currentRegion = -1;
    int cols = 0, rows = 0;
    Layout layout;
    DeadEnds deadEnds;
    int roomTries = 100;
    int roomExtraSize = 0;
    int windingPercent = 60;
};

} // namespace varn::generator
