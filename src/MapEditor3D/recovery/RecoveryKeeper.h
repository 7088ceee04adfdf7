#pragma once

#include "MapEditor3D/recovery/RecoveryFile.h"

#include <memory>

namespace varn {

/// Keeps the record of the open map up to date: after every gesture that changed it, on a thread of
/// its own, so that no stroke waits for a disk. What equals the map's own files needs no record,
/// and has none.
class RecoveryKeeper final : private MapEditorListener
{
  public:
    /// Look for what an earlier run left (`findRecovery`) before: a new record of the same map
    /// takes its place.
    /// @param folder   of the tool's state, made when something is first kept; empty keeps nothing
    /// @param project  absolute
    RecoveryKeeper(WizMapEditor& editor, std::filesystem::path folder,
                   std::filesystem::path project);
    /// The clean end: the record that this run kept is removed.
    ~RecoveryKeeper() override;
    /// What could not be saved is offered at the next start.
    void keepRecord() { isKept = true; }
    RecoveryKeeper(const RecoveryKeeper&) = delete;
    RecoveryKeeper& operator=(const RecoveryKeeper&) = delete;

    /// The open map has what was not saved.
    bool hasUnsaved() const { return kept != saved; }
    /// Waits until the disk has what was kept last.
    void flush();

  private:
    class Writer;

    void mapLoaded() override;
    void propertiesChanged() override {} // a commit follows
    void mapSaved() override;
    void committed() override;
    void drop();

    WizMapEditor& editor;
    std::filesystem::path folder, project;
    std::filesystem::path file; ///< of the open map's record
    MapContents saved, kept; ///< as the map's files have it, and as it was told to the writer last
    bool isKept = false;
    std::unique_ptr<Writer> writer;
};

} // namespace varn
