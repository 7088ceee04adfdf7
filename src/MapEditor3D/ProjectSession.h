#pragma once

#include "Game/Database/GameDatabase.h"
#include "Game/Map/MapHierarchy.h"
#include "MapEditor3D/MapEditing.h"
#include "Util/InstanceLock.h"
#include "Util/Settings.h"
#include "Util/TempFolder.h"

#include <filesystem>
#include <optional>
#include <vector>

namespace varn {

/// The folder of the map hierarchy: `Project/Path` of the settings, as it stands, if it names
/// something that exists; else "Dungeon/" if a hierarchy lies there; else "Project/". Not created.
WString resolveProjectPath(const Settings& settings);

/// One run of the tool on the project in the working directory: start, saving, end.
///
/// The stages build on each other, and each runs once however often it is asked for: what needs
/// only the maps stops at `openProject`, what needs only texts at `loadTexts`. The lock of the one
/// instance and the temporary folder belong to `start` and to this object's life.
class ProjectSession
{
  public:
    /// Whether this run has a window that another could bring forward. Without one it never gives
    /// way to a run that is open already.
    enum class Presence
    {
        Window,
        Headless
    };

    explicit ProjectSession(std::filesystem::path settingsFile, Presence presence);
    /// Deletes the temporary folder and lets the lock go. Saves nothing, writes no settings.
    ~ProjectSession();
    ProjectSession(const ProjectSession&) = delete;
    ProjectSession& operator=(const ProjectSession&) = delete;

    Settings& getSettings() { return settings; }

    /// Resolves the folder of the maps and hands it to the loaders of maps.
    void openProject();
    /// The language document of the settings or of the user's language, and the string tables.
    void loadTexts();

    /// The whole start-up sequence: lock, temporary folder, start tables, texts, and what the
    /// frame restores (language, coordinates, hierarchy, layer). False: the process is to end, with
    /// 0: a window of the tool is open and was brought forward, or the temporary folder was refused
    /// or could not be made.
    bool start();
    bool isStarted() const { return started; }

    /// What the start loaded, in order.
    const std::vector<LoadedTable>& getStartTables() const { return startTables; }
    const WString& getProjectPath() const { return projectPath; }
    /// The tree of maps; as far as `openProject` ran, it is loaded at the first call.
    MapHierarchy& getHierarchy();
    /// For the session's scratch files; empty before `start`.
    std::filesystem::path getTempFolder() const;
    /// Tells a window that another start asked it to come forward.
    InstanceLock& getInstanceLock() { return instance; }

    /// The editor of the open map, borrowed; null: no map is open. Behind `start` it takes over the
    /// frame's layer and zoom.
    void setEditor(MapEditing* next);
    MapEditing* getEditor() const { return editor; }

    bool isSystemCoordinateEnabled() const { return systemCoordinateEnabled; }
    void setSystemCoordinateEnabled(bool value) { systemCoordinateEnabled = value; }
    /// Steps of zoom taken, negative for out.
    int getTileScaleCount() const { return tileScaleCount; }
    EditorLayer getSelectedLayer() const { return selectedLayer; }

    /// Selects a layer tool in the session and, where a map is open, in its editor.
    void selectLayer(EditorLayer layer);
    /// One step of zoom of the open map.
    void zoom(bool in);
    /// Takes a language document into force, with its string tables. False: the one before stays.
    bool changeLanguage(WStringView fileName);

    /// Asks "Save all edits?" and on Yes writes the hierarchy and the open map.
    /// False: something could not be written, which was told.
    bool saveAllEdits();
    /// Writes the open map, if there is one. False: it could not be written, which was told.
    bool saveCurrentMap();
    /// Writes the tree of maps. False: as above.
    bool saveHierarchy();

    /// Asks "Save all edits and exit?". Cancel: false, and the session goes on. Else the edits are
    /// saved on Yes, and the settings are written.
    bool shutdown();
    /// The answer was Yes, and something could not be written.
    bool isEndUnsaved() const { return endUnsaved; }
    /// Writes what the next start restores.
    void writeSettings();

    /// Where the main window stands when it is neither maximised nor minimised.
    struct WindowPlacement
    {
        int left = 0, top = 0, width = 0, height = 0;
        bool zoomed = false; ///< maximised
    };
    /// Written with the settings; a run without a window has none.
    void setWindowPlacement(const WindowPlacement& next) { placement = next; }

  private:
    bool enter();
    bool makeTempFolder(TempFolder folder);
    void loadFirstTexts();
    void restoreLanguage();
    void restoreFrame();
    void applyZoom();
    bool saveEdits();
    WString getHierarchyFile();

    Settings settings;
    Presence presence;
    InstanceLock instance;
    std::optional<TempFolder> tempFolder;
    std::vector<LoadedTable> startTables;
    WString projectPath;
    std::optional<MapHierarchy> hierarchy;
    MapEditing* editor = nullptr;
    bool textsLoaded = false;
    bool started = false;
    bool systemCoordinateEnabled = true;
    int tileScaleCount = 0;
    EditorLayer selectedLayer = EditorLayer::Event;
    std::optional<WindowPlacement> placement;
    bool endUnsaved = false;
};

} // namespace varn
