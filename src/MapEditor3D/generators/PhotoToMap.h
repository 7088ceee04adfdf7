#pragma once

#include "Graphics/Bitmap.h"

#include <cstdint>
#include <vector>

namespace varn {

class Settings;
class WizMap;

/// A whole number with its bounds and where the settings file keeps it.
struct PhotoField
{
    WStringView label;
    WStringView key; ///< in the section `kPhotoSection`
    int least, most;
    int fallback;
};

inline constexpr WStringView kPhotoSection = u"PhotoTo3DMap";
inline constexpr PhotoField kPhotoTileSize = {u"Tile Size", u"TileSize", 8, 32, 16};
inline constexpr PhotoField kPhotoOffsetX = {u"OffsetX", u"OffsetX", 0, 256, 0};
inline constexpr PhotoField kPhotoOffsetY = {u"OffsetY", u"OffsetY", 0, 256, 0};
inline constexpr PhotoField kPhotoThickness = {u"WallThickness", u"WallThickness", 0, 8, 2};

/// Where the grid lies on a picture and which colours are no walls.
struct PhotoOptions
{
    int tileSize = kPhotoTileSize.fallback;
    int offsetX = kPhotoOffsetX.fallback;
    int offsetY = kPhotoOffsetY.fallback;
    int wallThickness = kPhotoThickness.fallback;
    std::uint32_t backgroundColour = 0xFFFFFF; ///< 0xRRGGBB, as the masked ones
    std::vector<std::uint32_t> maskedColours = {};

    /// The numbers as last used, each brought into its bounds.
    static PhotoOptions fromSettings(const Settings& settings);
    void store(Settings& settings) const;
};

/// Reads a picture of a hand-drawn map into a floor: along the four edges of each grid cell, a
/// colour that is neither masked nor background on the line makes a wall, one inside the cell by
/// the wall's thickness makes a door; where two neighbours disagree the edge becomes one-way. Only
/// the cells that both the picture and the map have are touched, and only their walls.
/// @returns whether a wall changed
bool photoToMap(const Bitmap& photo, const PhotoOptions& options, WizMap& map);

} // namespace varn
