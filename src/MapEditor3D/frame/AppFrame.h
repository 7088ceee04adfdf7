#pragma once

#include "Component/FrameWindow.h"
#include "Component/Slider.h"
#include "MapEditor3D/Commands.h"
#include "MapEditor3D/frame/Dungeon3DPane.h"
#include "MapEditor3D/frame/MapCanvas.h"
#include "MapEditor3D/recovery/RecoveryFile.h"
#include "MapEditor3D/recovery/ViewState.h"

#include <filesystem>
#include <memory>

namespace varn {

/// A window of the system's own kind.
class App : public FrameWindow
{};

/// The main window: owns the editor of the open map and the panes around it, and gives every
/// command to the command table.
class AppFrame final : public App, private MapEditorListener, private MapCanvasListener
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

    void showDialog(int command);
    void rebuildMenus();
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

    ProjectSession& session;
    Target target;
    std::filesystem::path stateFolder, project;
    WizMapEditor editor;
    ViewState state;
    std::unique_ptr<RecoveryKeeper> recovery;

    MapSheet sheet;
    ToolBar toolBar, viewBar;
    ToolWindow viewWindow;
    Dungeon3DPane dungeonPane;
    Statusbar statusbar;
    Label* placePanel = nullptr;
    Label* wallPanel = nullptr;
    Label* savedPanel = nullptr;
    Slider zoomSlider;
    Label zoomLabel;
    std::vector<ToolWindow*> hiddenPanels; ///< by Tab
};

} // namespace varn
