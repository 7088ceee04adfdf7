#pragma once

#include "Game/Map/MapHierarchy.h"

namespace varn {

class WizMap;

/// The commands of the map tree: changes of the hierarchy together with the files of its maps, with
/// the questions and messages that the user knows. Each leaves the hierarchy in memory changed; the
/// caller saves it.
namespace mapTree {

/// "Dungeon/" and the name: the path of a map without extension.
WString pathOf(WStringView mapName);

/// Why a map cannot have this name: "There is a file with the same name. please change the name"
/// where a
/// ".map" of that name stands (ignoring case), "Please enter the name" or "Contains invalid
/// characters" where it cannot be a file's name; empty: it can.
WStringView nameFault(WStringView name);

/// Writes the files of a new map and adds it to the tree. Nothing: refused, and the message was
/// shown.
std::optional<std::size_t> createMap(MapHierarchy& tree, std::optional<std::size_t> parent,
                                     WString name, WizMap& map);

/// Renames an entry, for a map its two files too. False: refused, and the message was shown.
bool rename(MapHierarchy& tree, std::size_t index, WString name);

/// Deletes an entry after a question; of a map its two files too, of a folder only itself: what
/// stands in it moves up. The root (nothing) is refused with a message. True: deleted; the caller
/// drops a deleted map from the editor.
bool remove(MapHierarchy& tree, std::optional<std::size_t> index);

} // namespace mapTree
} // namespace varn
