#pragma once

#include "Util/Text.h"

#include <functional>
#include <span>

namespace varn {

/// Prints floors for people: a map as a picture, and a web page of maps with their events.
///
/// The page's shell is a template that users edit, kept in `Resources/Settings.xml` beside the
/// program;
/// "%output%" in it becomes the maps, "%title%" the page's file name.

/// Writes the map as a PNG. False: the picture cannot be written.
/// @throws Exception  the map cannot be loaded
bool saveMapAsImage(WStringView mapName, WStringView path);

/// Hears before each map how many of them are done, and its name. False: stop.
using PageProgress = std::function<bool(std::size_t done, std::size_t whole, WStringView map)>;

/// Writes a page of the named maps, UTF-16 with a mark, and beside it `Resources/maze.css` where
/// none stands, since the page links it. False: not writable, or stopped and nothing is written.
/// @throws Exception  a map cannot be loaded; nothing is written
bool exportMapsAsHtml(std::span<const WString> mapNames, WStringView path,
                      const PageProgress& progress = {});

/// The page's template; made and stored where there is none.
WString loadMazeTemplate();
/// Stores a template. False: "Couldn't save " and the path was shown.
bool saveMazeTemplate(WStringView text);

} // namespace varn
