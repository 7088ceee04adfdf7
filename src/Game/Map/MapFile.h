#pragma once

#include "Game/Map/WizMapData.h"
#include "Util/Bytes.h"
#include "Util/Text.h"

#include <filesystem>
#include <optional>
#include <string>

namespace varn {

/// Where floors and the hierarchy lie in a project and in the archive.
inline constexpr WStringView kDungeonFolder = u"Dungeon/";

/// The grid of a ".map" file.
struct MapGrid
{
    std::int32_t cols = 1, rows = 1;
    WizMapCells cells{};
};

/// Reads the bytes of a ".map": columns, rows (16 bits each, taken as at least 1 and at most 100),
/// then the cells. A file that declares more than 100 is read with the smaller count from the front
/// of its cells, so its rows lose their alignment.
/// @param subject  the file's name, for the message
/// @throws Exception  the file ends before the cells that it declares; the sentence has the byte
/// offset
MapGrid readMapGrid(ByteSpan bytes, WStringView subject);

/// The bytes of a ".map": `4 + cols * rows * 5` of them.
std::string writeMapGrid(const WizMapCells& cells, std::int32_t cols, std::int32_t rows);

/// The folder of the map hierarchy, with its last separator: "Project/" until the session sets it.
const WString& mapFolder();
void setMapFolder(WString folder);

/// Where a floor's file lies: the name as given, else below `mapFolder()`, there also by its file
/// name alone, else below "Project/"; the first that is a file, or the name as given.
WString findMapFile(WStringView fileName);

/// Keeps a file that was not read whole from being lost to its replacement: a copy with ".bak"
/// behind its name, in place of an older one.
void keepCopy(const std::filesystem::path& path);

} // namespace varn
