#pragma once

#include "MapEditor3D/WizMapEditor.h"

#include <optional>

namespace varn {

/// What stands at a place of the open map.
struct PointerInfo
{
    MapCell cell;     ///< of the map, row 0 at the top
    int shownRow = 0; ///< as the game counts: row 0 at the bottom
    Direction edge;   ///< the nearest one
    WizMapData data;
    std::optional<int> areaNumber;
    WString areaName;
    std::optional<std::size_t> event; ///< place in the map's list; the one drawn last
    WString eventName;                ///< in the language of the game that is in force
    WString eventKind;                ///< name of its row in the table of event floors
    bool isWalkerHere = false;
};

/// The place under the pointer. @param place  in cells of the map; the first column and row behind
/// the last are the first ones. Nothing: outside the map.
std::optional<PointerInfo> lookUnder(const WizMapEditor& editor, const CanvasCell& place);

/// Which coordinates stand first; the others follow in brackets.
enum class CoordinateSystem
{
    Game, ///< rows from the bottom
    Map   ///< rows from the top
};

/// The same in words of the tool's language, for the fields of a status bar; what does not apply is
/// empty.
struct PointerTexts
{
    WString place; ///< "X 12  Y 07 (map 12,12)"
    WString wall;  ///< "Wall: 1/2 Door, north edge"
    WString floor; ///< "Floor tile 3"
    WString area;  ///< `Area 2 "Ossuary"`
    WString event; ///< `Event "Hob" (Person)`

    /// All that is not empty, with wide gaps: a status bar of one field.
    WString line() const;
};
PointerTexts describe(const PointerInfo& info, CoordinateSystem first);

/// One sentence for a screen reader: the cell, its four walls, floor, area, event, walker.
WString announce(const PointerInfo& info, CoordinateSystem first);

/// The name of a wall kind and of an edge in the tool's language.
WString wallKindName(int kind);
WString edgeName(Direction edge);

} // namespace varn
