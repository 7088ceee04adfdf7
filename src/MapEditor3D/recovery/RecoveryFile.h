#pragma once

#include "MapEditor3D/WizMapEditor.h"
#include "Util/Bytes.h"

#include <filesystem>
#include <string>
#include <vector>

namespace varn {

/// The open map as it stood behind its last stroke.
struct RecoveryRecord
{
    WString project;            ///< the project's folder, absolute
    WString mapName;            ///< the map's path without extension, as the editor has it
    std::int64_t savedAtMs = 0; ///< wall clock, since the beginning of 1970 (UTC)
    std::string grid;           ///< the bytes of its ".map"
    WString document;           ///< the text of its side document: settings, events, areas

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

/// Keeps the record of the open map up to date: after every gesture that changed it, on a thread of
/// its own. What is saved needs none.
class RecoveryKeeper final : private MapEditorListener
{
  public:
    /// @param folder  of the tool's state, made when something is first kept; empty keeps nothing
    RecoveryKeeper(WizMapEditor& editor, std::filesystem::path folder,
                   std::filesystem::path project);
    /// The clean end: nothing of this run is left.
    ~RecoveryKeeper() override;
    RecoveryKeeper(const RecoveryKeeper&) = delete;
    RecoveryKeeper& operator=(const RecoveryKeeper&) = delete;

    /// The open map has what was not saved.
    bool hasUnsaved() const { return unsaved; }
    /// Waits until all that was kept lies on the disk.
    void flush();

  private:
    class Writer;

    void mapLoaded() override;
    void mapSaved() override;
    void committed() override;
    std::filesystem::path fileOf(WStringView mapName) const;

    WizMapEditor& editor;
    std::filesystem::path folder, project;
    WString mapName;      ///< of the map that is kept
    std::string keptGrid; ///< what was kept or saved last, to pass over what changed nothing
    WString keptDocument;
    bool unsaved = false;
    std::unique_ptr<Writer> writer;
};

} // namespace varn
