#include "MapEditor3D/generators/PhotoToMap.h"

#include "Game/Map/WizMap.h"
#include "Util/Settings.h"

#include <gtest/gtest.h>

namespace varn {
namespace {

constexpr std::uint32_t kPaper = 0xFFFFFF, kInk = 0x101010, kGrid = 0xC0D0FF;

/// A sheet of cells of 16 pixels, with lines drawn along the inside of cell edges.
class Photo
{
  public:
    Photo(int columns, int rows)
    {
        sheet.create(columns * 16, rows * 16);
        for (int y = 0; y < rows * 16; ++y)
            for (int x = 0; x < columns * 16; ++x)
                sheet.setPixelRgb(x, y, kPaper);
    }

    /// @param depth  pixels from the edge, 0 on the line itself
    Photo& line(Direction side, int column, int row, int depth, std::uint32_t colour = kInk)
    {
        for (int i = 0; i < 16; ++i) {
            int x = column * 16 + i, y = row * 16 + i;
            if (side == Direction::North)
                y = row * 16 + depth;
            if (side == Direction::South)
                y = row * 16 + 15 - depth;
            if (side == Direction::West)
                x = column * 16 + depth;
            if (side == Direction::East)
                x = column * 16 + 15 - depth;
            sheet.setPixelRgb(x, y, colour);
        }
        return *this;
    }

    Bitmap sheet;
};

struct PhotoCase
{
    const char* name;
    void (*draw)(Photo&);
    PhotoOptions options;
    int north, east, south, west; ///< of the cell in the middle of 3 by 3
};

const PhotoCase kPhotoCases[] = {
    {"blank paper", [](Photo&) {}, {}, 0, 0, 0, 0},
    {"a line seen from both cells is a wall",
     [](Photo& p) { p.line(Direction::North, 1, 1, 0).line(Direction::South, 1, 0, 0); },
     {},
     1,
     0,
     0,
     0},
    {"a line and one inside are a door, met from both sides",
     [](Photo& p) {
         p.line(Direction::West, 1, 1, 0).line(Direction::West, 1, 1, 2);
         p.line(Direction::East, 0, 1, 0).line(Direction::East, 0, 1, 2);
     },
     {},
     0,
     0,
     0,
     2},
    // Neighbours that disagree: the cell's own 1 or not decides the way.
    {"a wall here and nothing above",
     [](Photo& p) { p.line(Direction::North, 1, 1, 0); },
     {},
     3,
     0,
     0,
     0},
    {"nothing here and a wall above",
     [](Photo& p) { p.line(Direction::South, 1, 0, 0); },
     {},
     4,
     0,
     0,
     0},
    {"a door here and a wall at the left",
     [](Photo& p) { p.line(Direction::West, 1, 1, 2).line(Direction::East, 0, 1, 0); },
     {},
     0,
     0,
     0,
     3},
    {"a wall here and a door at the left",
     [](Photo& p) { p.line(Direction::West, 1, 1, 0).line(Direction::East, 0, 1, 2); },
     {},
     0,
     0,
     0,
     4},
    {"masked colours are no walls",
     [](Photo& p) {
         p.line(Direction::East, 1, 1, 0, kGrid).line(Direction::South, 1, 1, 0);
         p.line(Direction::North, 1, 2, 0);
     },
     {.maskedColours = {kGrid}},
     0,
     0,
     1,
     0},
    {"without thickness only north and west are written, and no doors",
     [](Photo& p) {
         p.line(Direction::North, 1, 1, 0).line(Direction::North, 1, 1, 1);
         p.line(Direction::South, 1, 1, 0).line(Direction::East, 1, 1, 0);
     },
     {.wallThickness = 0},
     1,
     0,
     0,
     0},
    {"small cells with thick walls have no samples",
     [](Photo& p) { p.line(Direction::North, 1, 1, 0).line(Direction::West, 1, 1, 0); },
     {.tileSize = 8, .wallThickness = 2},
     0,
     0,
     0,
     0},
};

TEST(PhotoToMap, ReadsLinesAlongTheEdges)
{
    for (const PhotoCase& c : kPhotoCases) {
        Photo photo(3, 3);
        c.draw(photo);
        WizMap map;
        map.cols = map.rows = 3;
        photoToMap(photo.sheet, c.options, map);
        const WizMapData& cell = map.cellAt(1, 1);
        EXPECT_EQ(cell.north, c.north) << c.name;
        EXPECT_EQ(cell.east, c.east) << c.name;
        EXPECT_EQ(cell.south, c.south) << c.name;
        EXPECT_EQ(cell.west, c.west) << c.name;
    }
}

TEST(PhotoToMap, ReachesOnlyTheCellsThatBothHave)
{
    Photo photo(2, 2);
    photo.line(Direction::North, 1, 1, 0).line(Direction::South, 1, 0, 0);
    WizMap map;
    map.cols = map.rows = 4;
    map.setWall(2, Direction::North, 3, 3);
    map.cellAt(0, 0).floor = 7;
    EXPECT_TRUE(photoToMap(photo.sheet, {}, map));
    EXPECT_EQ(map.cellAt(1, 1).north, 1);
    EXPECT_EQ(map.cellAt(3, 3).north, 2);
    EXPECT_EQ(map.cellAt(0, 0).floor, 7);
    EXPECT_FALSE(photoToMap(photo.sheet, {}, map)); // the same again
    // The grid begins farther in: one cell is left, and an offset past the picture leaves none.
    EXPECT_TRUE(photoToMap(photo.sheet, {.offsetX = 16, .offsetY = 16}, map));
    EXPECT_EQ(map.cellAt(0, 0).north, 1);
    EXPECT_FALSE(photoToMap(photo.sheet, {.offsetX = 200, .offsetY = 200}, map));
    EXPECT_FALSE(photoToMap(Bitmap(), {}, map));
}

} // namespace
} // namespace varn
