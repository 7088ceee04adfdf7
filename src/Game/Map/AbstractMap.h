#pragma once

#include "Util/Rect.h"
#include "Util/Text.h"

#include <array>
#include <cstdint>
#include <string>

namespace varn {

/// What any map has. What names a file is wide text; the display names are narrow (code page 932).
class AbstractMap
{
  public:
    AbstractMap() = default;
    AbstractMap(const AbstractMap&) = default;
    AbstractMap& operator=(const AbstractMap&) = default;
    virtual ~AbstractMap() = default;

    /// The attributes of the side document's root, as written.
    virtual WString toAttributes() const = 0;
    virtual void clear() = 0;
    /// Writes the map's two files. @param fileName  the path, with or without ".map"
    /// False: the ".map" could not be written, and the old files stand.
    virtual bool save(WStringView fileName) = 0;
    /// False: this kind of map has no picture.
    virtual bool saveAsImage(WStringView) { return false; }

    std::int32_t enemyTableId = -1; ///< row of the encounter tables
    std::int32_t tileSize = 16;     ///< pixels of a tile as drawn
    WString fileName;               ///< path without extension
    WString bgm;                    ///< background music
    WString footstep;
    WString doorSe = u"door.wav";
    WString bgs;                      ///< background sound
    std::array<std::string, 2> names; ///< display name in the first and the second language
    Rect viewRect{0, 0, 320, 240};
};

} // namespace varn
