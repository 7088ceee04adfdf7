#include "MapEditor3D/generators/PhotoToMap.h"

#include "Game/Map/WizMap.h"
#include "Util/Settings.h"

#include <algorithm>

namespace varn {

namespace {

enum Wall
{
    None = 0,
    Line = 1,
    Door = 2,
    SouthWestDoor = 3,
    NorthEastDoor = 4
};

struct CellWalls
{
    int north = None, south = None, east = None, west = None;
};

/// Tells the pixels of walls from all others.
class PhotoSampler
{
  public:
    PhotoSampler(const Bitmap& photo, const PhotoOptions& options)
        : photo(photo), options(options), masked(options.maskedColours)
    {
        std::sort(masked.begin(), masked.end());
    }

    CellWalls sample(int column, int row) const
    {
        const int size = options.tileSize, thickness = options.wallThickness;
        const int x = options.offsetX + column * size, y = options.offsetY + row * size;
        const int last = size - 1;
        CellWalls walls;
        for (int i = thickness + 2; i <= size - thickness - 3; ++i) {
            mark(walls.north, x + i, y, x + i, y + thickness);
            mark(walls.south, x + i, y + last, x + i, y + last - thickness);
            mark(walls.east, x + last, y + i, x + last - thickness, y + i);
            mark(walls.west, x, y + i, x + thickness, y + i);
        }
        return walls;
    }

  private:
    void mark(int& wall, int outerX, int outerY, int innerX, int innerY) const
    {
        if (wall == None && isDrawn(outerX, outerY))
            wall = Line;
        if (options.wallThickness != 0 && isDrawn(innerX, innerY))
            wall = Door;
    }

    bool isDrawn(int x, int y) const
    {
        const std::uint32_t colour = photo.getPixelValue(x, y) & 0xFFFFFF;
        return colour != options.backgroundColour &&
               !std::binary_search(masked.begin(), masked.end(), colour);
    }

    const Bitmap& photo;
    const PhotoOptions& options;
    std::vector<std::uint32_t> masked; // sorted
};

int readField(const Settings& settings, const PhotoField& field)
{
    return std::clamp(settings.getSettingInt(kPhotoSection, field.key, field.fallback), field.least,
                      field.most);
}

} // namespace

PhotoOptions PhotoOptions::fromSettings(const Settings& settings)
{
    PhotoOptions options;
    options.tileSize = readField(settings, kPhotoTileSize);
    options.offsetX = readField(settings, kPhotoOffsetX);
    options.offsetY = readField(settings, kPhotoOffsetY);
    options.wallThickness = readField(settings, kPhotoThickness);
    return options;
}

void PhotoOptions::store(Settings& settings) const
{
    settings.setSettingInt(kPhotoSection, kPhotoTileSize.key, tileSize);
    settings.setSettingInt(kPhotoSection, kPhotoOffsetX.key, offsetX);
    settings.setSettingInt(kPhotoSection, kPhotoOffsetY.key, offsetY);
    settings.setSettingInt(kPhotoSection, kPhotoThickness.key, wallThickness);
}

bool photoToMap(const Bitmap& photo, const PhotoOptions& options, WizMap& map)
{
    if (photo.isEmpty())
        return false;
    const PhotoSampler sampler(photo, options);
    const int rows = std::min(map.rows, (photo.getHeight() - options.offsetY) / options.tileSize);
    const int columns = std::min(map.cols, (photo.getWidth() - options.offsetX) / options.tileSize);
    const bool withDoors = options.wallThickness != 0;
    bool changed = false;
    for (int y = 0; y < rows; ++y) {
        for (int x = 0; x < columns; ++x) {
            CellWalls walls = sampler.sample(x, y);
            if (withDoors) {
                if (y > 0 && map.cellAt(x, y - 1).south != walls.north)
                    walls.north = walls.north == Line ? SouthWestDoor : NorthEastDoor;
                if (x > 0 && map.cellAt(x - 1, y).east != walls.west)
                    walls.west = walls.west == Line ? NorthEastDoor : SouthWestDoor;
                changed |= map.setWall(walls.south, Direction::South, x, y);
                changed |= map.setWall(walls.east, Direction::East, x, y);
            }
            changed |= map.setWall(walls.north, Direction::North, x, y);
            changed |= map.setWall(walls.west, Direction::West, x, y);
        }
    }
    return changed;
}

} // namespace varn
