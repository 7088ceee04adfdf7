#pragma once

#include "Component/FrameWindow.h"
#include "Component/Slider.h"
#include "MapEditor3D/Commands.h"
#include "MapEditor3D/frame/Dungeon3DPane.h"
#include "MapEditor3D/frame/MapCanvas.h"
#include "MapEditor3D/frame/panes/AreaSettingPane.h"
#include "MapEditor3D/frame/panes/EventTablePane.h"
#include "MapEditor3D/frame/panes/MapTilePane.h"
#include "MapEditor3D/frame/panes/MapTreePane.h"
#include "MapEditor3D/frame/panes/SceneSettingPane.h"
#include "MapEditor3D/recovery/RecoveryKeeper.h"
#include "MapEditor3D/recovery/ViewState.h"

#include <filesystem>
#include <map>
#include <memory>

namespace varn {

class CommandFinder;

/// A window of the system's own kind.
class App : public FrameWindow
{};

/// The main window: owns the editor of the open map and the panes around it, and gives every
/// command to the command table.
class AppFrame final : public App,
                       private MapEditorListener,
                       private MapCanvasListener,
                       private MapTilePaneListener,
                       private MapTreePaneListener,
                       private AreaSettingPaneListener,
                       private EventTableListener
{
  public:
    /// @param stateFolder  where the tool keeps what is no setting; empty: nowhere
    AppFrame(ProjectSession& session, std::filesystem::path stateFolder);
    ~AppFrame() override;

    /// Makes the window as the last run left it, opens the map that was open, offers what a crash
    /// left.
    void open();
    WizMapEditor& getMapEditor() { return editor; }
    MapCanvas& getCanvas() { return sheet.getCanvas(); }
    DungeonViewPane& getView() { return dungeonPane.getView(); }

    /// Opens a map of the project. Where the open one has unsaved strokes, asks first.
    /// False: the person changed their mind, or it could not be read, which was told.
    bool openMap(WStringView pathWithoutExtension);

    bool onCommand(int command, std::intptr_t argument) override;
    MessageResult windowProc(NativeHandle window, std::uint32_t message, WordParam wParam,
                             LongParam lParam) override;

    /// Does what a command of the table asks for. False: it reported a failure.
    bool dispatch(int command, int argument = 0);
    /// The last question was answered and the window is gone.
    bool isClosed() const { return target.isClosed(); }
    /// The project to go on with behind the end of this run; empty: none.
    const std::filesystem::path& getNextProject() const { return nextProject; }

  private:
    /// What the command table acts on.
    class Target final : public CommandTarget
    {
      public:
        Target(ProjectSession& session, AppFrame& frame) : CommandTarget(session), frame(frame) {}
        void showWindow(int command) override { frame.showDialog(command); }
        void rebuildMenus() override { frame.rebuildMenus(); }
        void toggleAlwaysOnTop() override;
        void close() override;

      private:
        AppFrame& frame;
    };

    /// Opens the window, dialog or page that belongs to a command.
    void showDialog(int command);
    void rebuildMenus();
    void findCommand();
    void createProject();
    void reloadTables();
    void reloadPictures();
    void buildBars();
    void buildPanes();
    void buildStatusbar();
    void addShortcuts();
    void restoreWindow();
    void keepWindow();
    void keepFloor();
    void restoreFloor();
    void openFirstMap();
    bool mayLeaveMap();
    void offerRecovery();
    void applyTheme();
    void updateCommands();
    void updateStatus();
    void updateTitle();

    void mapLoaded() override;
    void mapSaved() override;
    void committed() override;
    void historyChanged(bool canUndo, bool canRedo) override;
    void toolChanged() override;
    void tileSelected(int tile) override;
    void viewChanged() override;
    void walkerMoved() override;

    void pointerMoved(const std::optional<CanvasCell>& place) override;
    void commandRequested(int command, int argument) override;
    void panelsToggled() override;
    void eventMenuRequested(MapCell cell, int x, int y) override;
    void eventEditRequested(std::size_t event) override;
    void createRequested(MapCell cell) override;
    void copyRequested() override;
    void pasteRequested(MapCell cell) override;
    void deleteRequested() override;

    void tileSettingsRequested(int kind) override;
    void areaChosen(std::int32_t number) override;
    void areaShown(MapCell cell) override;
    void eventShown(std::size_t event) override;
    void eventCreateRequested() override;
    void eventDeleteRequested(std::size_t event) override;

    void mapOpenRequested(WStringView name) override;
    void mapCreateRequested(std::optional<std::size_t> parent) override;
    void mapEditRequested(WStringView name) override;
    void mapExportRequested(const std::vector<WString>& names) override;
    void mapRenamed(WStringView before, WStringView after) override;
    void mapDeleted(WStringView name) override;

    std::vector<ToolWindow*> panels();
    std::vector<WString> mapNames();
    void addToolCommands(CommandFinder& finder) const;

    ProjectSession& session;
    Target target;
    std::filesystem::path stateFolder, project;
    WizMapEditor editor;
    ViewState state;
    std::unique_ptr<RecoveryKeeper> recovery;

    CanvasPane sheet;
    ToolBar toolBar;
    ToolWindow treeWindow, viewWindow, tileWindow, eventWindow, areaWindow, sceneWindow;
    MapTreePane treePane;
    Dungeon3DPane dungeonPane;
    MapTilePane tilePane;
    EventTablePane eventPane;
    ScrollPane areaScroll;
    AreaSettingPane areaPane;
    SceneSettingPane scenePane;
    Statusbar statusbar;
    Label* placePanel = nullptr;
    Label* wallPanel = nullptr;
    Label* savedPanel = nullptr;
    Slider zoomSlider;
    Label zoomLabel;
    std::vector<ToolWindow*> hiddenPanels;                      ///< by Tab
    int shownLayer = 0;                                         ///< its command
    std::map<int, int> picked = {{10, 1}, {13, 1}};             ///< values by the layer's command
    std::shared_ptr<bool> alive = std::make_shared<bool>(true); ///< for posted tasks
    std::filesystem::path nextProject; ///< is to be opened behind the end of this run
};

} // namespace varn
