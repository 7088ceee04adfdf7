#pragma once

#include "Game/Map/GameEvent.h"
#include "Util/Bytes.h"

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace varn {

/// How a floor was left.
struct FloorView
{
    int tileSize = 20;            ///< window pixels of a cell
    int scrollX = 0, scrollY = 0; ///< `CanvasView`
    MapCell walker;
    Direction facing = Direction::North;

    bool operator==(const FloorView&) const = default;
};

/// What a project's window is remembered by. It lies in the tool's state folder, a file a project.
struct ViewState
{
    WString openMap; ///< path of the map without extension; empty: none
    std::map<WString, FloorView, std::less<>> floors;
    std::string window;                  ///< bytes of the window system's own, opaque here
    std::string panes;                   ///< the same of docks and tool bars
    std::vector<WString> hiddenPanes;    ///< by their names
    std::vector<WString> recentCommands; ///< names of the command search, the latest first

    bool operator==(const ViewState&) const = default;
};

/// The document's bytes.
std::string writeViewState(const ViewState& state);
/// What can be read of it; the rest is as in a new state. Never fails.
ViewState readViewState(ByteSpan bytes);

/// @param folder   of the tool's state; empty: nothing is remembered
/// @param project  absolute
ViewState loadViewState(const std::filesystem::path& folder, const std::filesystem::path& project);
/// False: it could not be written; the one before stands.
bool saveViewState(const std::filesystem::path& folder, const std::filesystem::path& project,
                   const ViewState& state);

} // namespace varn
