#include "Game/Map/View/MapPicture.h"

#include "Game/Database/WizFloor.h"
#include "Game/Map/View/ViewWalk.h"

#include <algorithm>

namespace varn {

namespace {

/// Side of a tile in the strips of floors, walls and events.
constexpr int kStripTile = 16;
constexpr int kNumberHeight = 12;

/// Paints the cells of one sheet; columns and rows here are those of the map.
class SheetPainter
{
  public:
    SheetPainter(Graphics& graphics, const WizMap& map, const WizMapImage& images,
                 const MapSheet& sheet)
        : graphics(graphics), map(map), images(images), sheet(sheet)
    {
        endColumn = std::min(sheet.firstColumn + sheet.columns, map.cols);
        endRow = std::min(sheet.firstRow + sheet.rows, map.rows);
    }

    void paint()
    {
        forEachCell([&](int x, int y) {
            if (map.cellAt(x, y).floor == 0)
                paintGrid(x, y);
        });
        forEachCell([&](int x, int y) {
            if (const int tile = map.cellAt(x, y).floor)
                paintTile(ImageType::Floor2D, tile, x, y);
        });
        if (sheet.events)
            paintEvents();
        forEachCell([&](int x, int y) { paintWalls(x, y); });
        if (sheet.numbers)
            paintNumbers();
    }

  private:
    template <class Paint>
    void forEachCell(Paint paintCell)
    {
        for (int y = sheet.firstRow; y < endRow; ++y)
            for (int x = sheet.firstColumn; x < endColumn; ++x)
                paintCell(x, y);
    }

    Rect placeOf(int x, int y) const
    {
        return {sheet.x + (x - sheet.firstColumn) * sheet.tileSize,
                sheet.y + (y - sheet.firstRow) * sheet.tileSize, sheet.tileSize, sheet.tileSize};
    }

    /// A tile of a strip, counted left to right and down.
    void paintTile(ImageType strip, int tile, int x, int y)
    {
        const Image* const image = images.find(strip);
        if (!image || tile < 0)
            return;
        const int perRow = std::max(1, image->getWidth() / kStripTile);
        graphics.drawImage(
            *image, placeOf(x, y),
            {tile % perRow * kStripTile, tile / perRow * kStripTile, kStripTile, kStripTile});
    }

    void paintGrid(int x, int y)
    {
        paintTile(ImageType::Floor2D, 0, x, y);
        paintEdge(0, Direction::North, x, y);
        paintEdge(0, Direction::West, x, y);
        if (x == map.cols - 1)
            paintEdge(0, Direction::East, x, y);
        if (y == map.rows - 1)
            paintEdge(0, Direction::South, x, y);
    }

    /// An edge of the wall strip: a column a kind, upper row for level edges, lower for upright
    /// ones. A strip tile is centred on its edge.
    void paintEdge(int kind, Direction side, int x, int y)
    {
        const Image* const strip = images.find(ImageType::Wall2D);
        if (!strip)
            return;
        Rect place = placeOf(x, y);
        const bool level = side == Direction::North || side == Direction::South;
        const int half = sheet.tileSize / 2;
        if (level)
            place = Rect(place.x, place.y - half + (side == Direction::South ? sheet.tileSize : 0),
                         place.width, place.height);
        else
            place = Rect(place.x - half + (side == Direction::East ? sheet.tileSize : 0), place.y,
                         place.width, place.height);
        graphics.drawImage(*strip, place,
                           {kind * kStripTile, level ? 0 : kStripTile, kStripTile, kStripTile});
    }

    void paintEvents()
    {
        const WizFloorList& types = WizFloorList::instance();
        for (const auto& event : map.events.list()) {
            const bool onSheet = event->x >= sheet.firstColumn && event->x < endColumn &&
                                 event->y >= sheet.firstRow && event->y < endRow;
            const bool known =
                event->type >= 0 && static_cast<std::size_t>(event->type) < types.size();
            if (onSheet && known &&
                types.at(static_cast<std::size_t>(event->type)).getVisibility2D())
                paintTile(ImageType::EventFloor, event->type, event->x, event->y);
        }
    }

    void paintWalls(int x, int y)
    {
        const WizMapData& cell = map.cellAt(x, y);
        const auto edge = [&](int kind, Direction side) {
            if (kind != 0)
                paintEdge(kind, side, x, y);
        };
        edge(cell.north, Direction::North);
        edge(cell.west, Direction::West);
        if (y == map.rows - 1)
            edge(cell.south, Direction::South);
        if (x == map.cols - 1)
            edge(cell.east, Direction::East);
    }

    void paintNumbers()
    {
        graphics.selectFont({.family = u"MS Gothic", .height = kNumberHeight});
        const auto twoDigits = [](int number) {
            WString text = toDecimal(number);
            return number < 10 && number >= 0 ? u"0" + text : text;
        };
        const int inCell = (sheet.tileSize - kNumberHeight) / 2;
        constexpr int kInMargin = (kPrintedCell - kNumberHeight) / 2;
        const int step = sheet.tileSize < kNumberHeight ? 2 : 1; // else they run into each other
        for (int x = sheet.firstColumn; x < endColumn; x += step)
            graphics.drawString(twoDigits(x), placeOf(x, sheet.firstRow).x + inCell,
                                sheet.y - kPrintedCell + kInMargin);
        for (int y = endRow - 1; y >= sheet.firstRow; y -= step)
            graphics.drawString(twoDigits(map.rows - 1 - y), sheet.x - kPrintedCell + kInMargin - 1,
                                placeOf(sheet.firstColumn, y).y + inCell);
    }

    Graphics& graphics;
    const WizMap& map;
    const WizMapImage& images;
    const MapSheet& sheet;
    int endColumn, endRow;
};

} // namespace

void drawMap(Graphics& graphics, const WizMap& map, const WizMapImage& images,
             const MapSheet& sheet)
{
    SheetPainter(graphics, map, images, sheet).paint();
}

bool drawMapPicture(Graphics& graphics, const WizMap& map, const WizMapImage& images,
                    const MapPrint& print)
{
    constexpr std::uint32_t kPaper = 0xFFFFFF, kInk = 0x000000;
    const int width = map.cols * print.cellSize, height = map.rows * print.cellSize;
    if (std::max(width, height) + kPrintedCell * 2 > Image::kSideLimit ||
        !graphics.setSize(width + kPrintedCell * 2, height + kPrintedCell * 2))
        return false;
    graphics.fillRect({0, 0, graphics.getWidth(), graphics.getHeight()}, kPaper, 255);
    graphics.setTextColor(kInk);
    if (const Image* const background = images.find(ImageType::Background2D))
        graphics.drawImage(*background, {kPrintedCell, kPrintedCell, width, height},
                           background->getBounds());
    drawMap(graphics, map, images,
            {.columns = map.cols,
             .rows = map.rows,
             .x = kPrintedCell,
             .y = kPrintedCell,
             .tileSize = print.cellSize,
             .numbers = print.numbers,
             .events = print.events});
    return true;
}

} // namespace varn
