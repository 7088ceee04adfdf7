#pragma once

#include "MapEditor3D/WizMapEditor.h"
#include "Util/Bytes.h"

#include <filesystem>
#include <string>
#include <vector>

namespace varn {

/// A map in the form of its two files.
struct MapContents
{
    std::string grid; ///< the bytes of its ".map"
    WString document; ///< the text of its side document: settings, events, areas

    bool operator==(const MapContents&) const = default;
};
MapContents contentsOf(const WizMap& map);

/// The open map as it stood behind its last stroke.
struct RecoveryRecord
{
    WString project;            ///< the project's folder, absolute
    WString mapName;            ///< the map's path without extension, as the editor has it
    std::int64_t savedAtMs = 0; ///< wall clock, since the beginning of 1970 (UTC)
    MapContents map;

    bool operator==(const RecoveryRecord&) const = default;
};

/// The file of a record, little-endian: "VMRC", version 1 (16 bits), time (64), then `project`,
/// `mapName`, `grid`, `document`, each a length in bytes (32) and its bytes, texts in UTF-16; at
/// the end the FNV-1a sum (32) of all before it.
std::string writeRecovery(const RecoveryRecord& record);
/// @param subject  the file's name, for the message
/// @throws Exception  it is no such file, or not whole
RecoveryRecord readRecovery(ByteSpan bytes, WStringView subject);

/// A file that a run left behind: its end was not a clean one.
struct FoundRecovery
{
    std::filesystem::path file;
    WString mapName; ///< as in the record
    std::int64_t savedAtMs = 0;
    bool isMapNewer = false; ///< the map itself was written later, by something else
};

/// Where the record of a map is kept.
std::filesystem::path recoveryPath(const std::filesystem::path& folder,
                                   const std::filesystem::path& project, WStringView mapName);

/// What was left of a project's maps, the latest first. Files that cannot be read are passed over.
/// @param folder   of the tool's state; may be missing or empty
/// @param project  absolute
std::vector<FoundRecovery> findRecovery(const std::filesystem::path& folder,
                                        const std::filesystem::path& project);

/// Puts the record over the map that is open in the editor: cells as one step of undo, events and
/// areas, size and settings. Open the map of its name before.
/// False: the file cannot be read, which was told, and the map stays.
bool applyRecovery(const FoundRecovery& found, WizMapEditor& editor);
void discardRecovery(const FoundRecovery& found);
/// Keeps it for the next start under a name of its own, which the record of this run does not take.
void putAside(const FoundRecovery& found);

} // namespace varn
