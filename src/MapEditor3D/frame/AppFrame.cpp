#include "MapEditor3D/frame/AppFrame.h"

#include "Audio/AudioManager.h"
#include "Component/Application.h"
#include "Component/Theme.h"
#include "Component/Translation.h"
#include "Game/Map/MapTree.h"
#include "MapEditor3D/canvas/CommandFinder.h"
#include "MapEditor3D/canvas/PointerInfo.h"
#include "MapEditor3D/frame/FrameMenu.h"
#include "MapEditor3D/frame/dialogs/RecoveryDialog.h"
#include "Util/Exception.h"
#include "Util/Host.h"
#include "Util/ProjectPath.h"

#include <algorithm>

namespace varn {

namespace {

// Tool-bar commands, by their numbers in the command table.
constexpr int kPen = 3, kRectangle = 4, kZoomIn = 6, kZoomOut = 7, kFloorLayer = 9;
constexpr int kWallLayer = 10, kEventLayer = 12, kAreaLayer = 13, kOnTop = 14, kPlay = 17;
constexpr int kSave = 203, kUndo = 208, kRedo = 209, kGenerate = 251;

/// A button of the tool bar. Command 0: a gap.
struct BarButton
{
    int command;
    WStringView icon, english;
    int group = 0;
    WStringView shortcut = {};
};

constexpr int kTools = 1, kLayers = 2;

constexpr BarButton kToolBar[] = {
    {kSave, u"save", u"Save all edits"},
    {0, u"", u""},
    {kPen, u"pen", u"Pen", kTools, u"P"},
    {kRectangle, u"rectangle", u"Rectangle", kTools, u"R"},
    {0, u"", u""},
    {kWallLayer, u"walls", u"Walls", kLayers},
    {kFloorLayer, u"floor", u"Floor tiles", kLayers},
    {kEventLayer, u"events", u"Events", kLayers},
    {kAreaLayer, u"areas", u"Areas", kLayers},
    {0, u"", u""},
    {kUndo, u"undo", u"Undo"},
    {kRedo, u"redo", u"Redo"},
    {0, u"", u""},
    {kZoomOut, u"zoomOut", u"Zoom out", 0, u"Ctrl+-"},
    {kZoomIn, u"zoomIn", u"Zoom in", 0, u"Ctrl++"},
    {0, u"", u""},
    {kGenerate, u"generate", u"Generate a floor"},
    {kPlay, u"play", u"Run the game", 0, u"F5"},
};

constexpr int kLeastZoom = 20, kZoomStep = 8;

int layerCommand(const WizMapEditor& editor)
{
    switch (editor.getMode()) {
    case EditorMode::Event:
        return kEventLayer;
    case EditorMode::Area:
        return kAreaLayer;
    default:
        return editor.isFloorLayer() ? kFloorLayer : kWallLayer;
    }
}

} // namespace

AppFrame::AppFrame(ProjectSession& session, std::filesystem::path stateFolder)
    : session(session), target(session, *this), stateFolder(std::move(stateFolder)),
      project(std::filesystem::current_path()), sheet(editor), treeWindow(u"project", u"Project"),
      viewWindow(u"view", u"First-person view"), tileWindow(u"palette", u"Palette"),
      eventWindow(u"events", u"Events"), areaWindow(u"areas", u"Areas"),
      sceneWindow(u"scene", u"Scene"), treePane(session, editor), dungeonPane(editor),
      tilePane(editor), eventPane(editor), areaPane(editor), scenePane(editor), zoomSlider(0, 5)
{
    setWindowClass(u"MainFrame");
    state = loadViewState(this->stateFolder, project);
    // Hears of a stroke before the frame, which shows what there is to save.
    recovery = std::make_unique<RecoveryKeeper>(editor, this->stateFolder, project);
    editor.addListener(*this);
    sheet.getCanvas().setListener(this);
    tilePane.setListener(this);
    treePane.setListener(this);
    areaPane.setListener(this);
    eventPane.setListener(this);
}

AppFrame::~AppFrame()
{
    *alive = false;
    session.setEditor(nullptr);
    editor.removeListener(*this);
}

/// Scripts that run in the tool make no sound by themselves.
static void silenceGame()
{
    AudioManager& audio = AudioManager::instance();
    audio.stopMusic();
    audio.setMusicEnabled(false);
    audio.setSoundEnabled(false);
}

// The window

void AppFrame::open()
{
    createTopLevel();
    setText(kProductName);
    setCenter(sheet);
    buildBars();
    buildPanes();
    buildStatusbar();
    addShortcuts();
    applyTheme();
    Application::onThemeChange([this, stillHere = alive] {
        if (*stillHere)
            applyTheme();
    });
    restoreWindow();
    session.setEditor(&editor);
    rebuildMenus();
    openFirstMap();
    sheet.getCanvas().setFocus();
    Application::post([this, stillHere = alive] {
        if (!*stillHere)
            return;
        silenceGame();
        offerRecovery();
    });
}

void AppFrame::buildBars()
{
    toolBar.setWindowClass(u"tools");
    addToolBar(toolBar);
    for (const BarButton& button : kToolBar)
        if (button.command == 0)
            toolBar.addSeparator();
        else
            toolBar.addButton(button.command, button.icon, button.english, button.group,
                              button.shortcut);
}

void AppFrame::buildPanes()
{
    const auto put = [](ToolWindow& window, GroupComponent& pane) {
        BoxLayout(window.getContent(), BoxLayout::Axis::Column, BoxLayout::Margin::None).add(pane);
    };
    addToolWindow(treeWindow, Side::Left);
    addToolWindow(viewWindow, Side::Right);
    addToolWindow(tileWindow, Side::Right);
    tabToolWindow(eventWindow, tileWindow);
    tabToolWindow(areaWindow, eventWindow);
    tabToolWindow(sceneWindow, areaWindow);
    put(treeWindow, treePane);
    put(viewWindow, dungeonPane);
    put(tileWindow, tilePane);
    put(eventWindow, eventPane);
    areaScroll.create(&areaWindow.getContent());
    BoxLayout(areaScroll.getContent(), BoxLayout::Axis::Column, BoxLayout::Margin::None)
        .add(areaPane);
    put(areaWindow, areaScroll);
    put(sceneWindow, scenePane);
}

std::vector<ToolWindow*> AppFrame::panels()
{
    return {&treeWindow, &viewWindow, &tileWindow, &eventWindow, &areaWindow, &sceneWindow};
}

void AppFrame::buildStatusbar()
{
    setStatusbar(statusbar);
    placePanel = &statusbar.addPanel(0);
    wallPanel = &statusbar.addPanel(1);
    savedPanel = &statusbar.addPanel(0);
    statusbar.addControl(zoomLabel);
    statusbar.addControl(zoomSlider);
    constexpr int kSliderWidth = 96;
    zoomSlider.setFixedSize(kSliderWidth, 20);
    zoomSlider.setAccessibleName(u"Zoom");
    zoomSlider.onAction([this] {
        const int steps = zoomSlider.getValue() - (editor.getTileSize() - kLeastZoom) / kZoomStep;
        for (int step = 0; step < std::abs(steps); ++step)
            dispatch(steps > 0 ? kZoomIn : kZoomOut);
    });
}

void AppFrame::addShortcuts()
{
    for (const BarButton& button : kToolBar)
        if (button.shortcut.size() > 1) // letters are the canvas's own
            addShortcut(button.shortcut, [this, command = button.command] { dispatch(command); });
    addShortcut(u"Ctrl+=", [this] { dispatch(kZoomIn); });
}

void AppFrame::applyTheme()
{
    getCanvas().setPalette(theme().dark ? darkCanvasPalette() : lightCanvasPalette());
}

void AppFrame::restoreWindow()
{
    const Settings& settings = session.getSettings();
    const Rect wanted(settings.getSettingInt(u"Window", u"MainLeft", 0),
                      settings.getSettingInt(u"Window", u"MainTop", 0),
                      settings.getSettingInt(u"Window", u"MainWidth", 0),
                      settings.getSettingInt(u"Window", u"MainHeight", 0));
    const Rect place = fitToScreen(wanted);
    setBounds(place.x, place.y, place.width, place.height);
    if (settings.getSettingString(u"Window", u"Zoomed", u"1") == u"1")
        showMaximised();
    else
        setVisible(true);
    if (restoreLayout(state.panes))
        return;
    tileWindow.raise();
    Application::post([this, stillHere = alive] { // widths count in a window that has its size
        if (!*stillHere)
            return;
        constexpr int kTreeWidth = 208, kRightWidth = 320;
        setDockSizes({{&treeWindow, kTreeWidth}, {&viewWindow, kRightWidth}});
    });
}

/// What the next start takes up again.
void AppFrame::keepWindow()
{
    const Rect place = getNormalBounds();
    session.setWindowPlacement({place.x, place.y, place.width, place.height, isMaximised()});
    if (!hiddenPanels.empty())
        panelsToggled(); // they were put away for a while
    keepFloor();
    state.openMap = editor.getMap().fileName;
    state.panes = saveLayout();
    saveViewState(stateFolder, project, state);
}

void AppFrame::keepFloor()
{
    const WString& name = editor.getMap().fileName;
    if (name.empty())
        return;
    const CanvasView& view = getCanvas().getView();
    state.floors[name] = {editor.getTileSize(), view.scrollX, view.scrollY, editor.getCursor().cell,
                          editor.getCursor().facing};
}

void AppFrame::restoreFloor()
{
    const auto kept = state.floors.find(editor.getMap().fileName);
    if (kept == state.floors.end()) {
        editor.placeWalker({0, editor.getMap().rows - 1}, Direction::North);
        getCanvas().scrollTo(0, 0);
        return;
    }
    editor.placeWalker(kept->second.walker, kept->second.facing);
    const double zoomed = static_cast<double>(editor.getTileSize()) / kept->second.tileSize;
    getCanvas().scrollTo(static_cast<int>(kept->second.scrollX * zoomed),
                         static_cast<int>(kept->second.scrollY * zoomed));
}

// Maps

void AppFrame::openFirstMap()
{
    if (!state.openMap.empty() && isFile(state.openMap + u".map") && openMap(state.openMap))
        return;
    for (const MapHierarchy::Entry& entry : session.getHierarchy().list())
        if (!entry.isFolder() && isFile(mapTree::pathOf(entry.name) + u".map") &&
            openMap(mapTree::pathOf(entry.name)))
            return;
}

/// What a crash does not lose the person may still want to drop.
bool AppFrame::mayLeaveMap()
{
    if (!recovery || !recovery->hasUnsaved())
        return true;
    switch (host().ask(
        {translate(u"Save the map before another one is opened?"), Buttons::YesNoCancel})) {
    case Answer::Yes:
        return session.saveCurrentMap();
    case Answer::No:
        return true;
    default:
        return false;
    }
}

bool AppFrame::openMap(WStringView path)
{
    if (!mayLeaveMap())
        return false;
    keepFloor();
    try {
        editor.load(WString(path) + u".map");
    } catch (const Exception& fault) {
        host().showMessage(fault.getMessage());
        return false;
    }
    restoreFloor();
    return true;
}

void AppFrame::offerRecovery()
{
    RecoveryDialog::offer(this, stateFolder, project, editor);
}

// Commands

bool AppFrame::dispatch(int command, int argument)
{
    const bool done = dispatchCommand(target, static_cast<std::uint32_t>(command), argument);
    if (getHandle())
        updateCommands();
    return done;
}

bool AppFrame::onCommand(int command, std::intptr_t argument)
{
    if (command == kFindCommand) {
        findCommand();
        return true;
    }
    if (command == kTogglePanel) {
        ToolWindow& panel = *panels().at(static_cast<std::size_t>(argument));
        panel.setVisible(!panel.isVisible());
        return true;
    }
    dispatch(command, static_cast<int>(argument));
    return true;
}

MessageResult AppFrame::windowProc(NativeHandle window, std::uint32_t message, WordParam wParam,
                                   LongParam lParam)
{
    if (message != kCloseMessage)
        return App::windowProc(window, message, wParam, lParam);
    target.close();
    return isClosed() ? 0 : 1;
}

void AppFrame::Target::toggleAlwaysOnTop()
{
    frame.setAlwaysOnTop(!frame.isAlwaysOnTop());
    frame.setItemChecked(kOnTop, frame.isAlwaysOnTop());
}

void AppFrame::Target::close()
{
    frame.bringForward();
    frame.keepWindow();
    CommandTarget::close();
    if (!isClosed())
        return;
    if (session.isEndUnsaved())
        frame.recovery->keepRecord();
    frame.recovery.reset();
    Application::quit();
}

void AppFrame::rebuildMenus()
{
    Menu menu = makeFrameMenu(session.isSystemCoordinateEnabled());
    addFrameLines(menu, panels(), isAlwaysOnTop());
    setMenu(menu);
    retranslate(getHandle());
    setText(kProductName);
    CanvasOptions options = getCanvas().getOptions();
    options.rowsFromBottom = session.isSystemCoordinateEnabled();
    getCanvas().setOptions(options);
    eventPane.setRowsFromBottom(options.rowsFromBottom);
    getView().repaint();
    updateCommands();
    updateStatus();
}

void AppFrame::updateCommands()
{
    const bool hasMap = !editor.getMap().fileName.empty();
    for (const BarButton& button : kToolBar)
        toolBar.setButtonEnabled(button.command, hasMap || button.command == kSave);
    historyChanged(editor.canUndo(), editor.canRedo());
    toolBar.setButtonChecked(static_cast<int>(editor.getTool()), true);
    toolBar.setButtonChecked(layerCommand(editor), true);
}

/// The buttons of the tool bar stand in no menu.
void AppFrame::addToolCommands(CommandFinder& finder) const
{
    for (const BarButton& button : kToolBar)
        if (button.command != 0 && button.command < 200)
            finder.add(button.command, translate(button.english), WString(button.shortcut));
}

void AppFrame::commandRequested(int command, int argument)
{
    dispatch(command, argument);
}

/// All panels away, or all that were there back.
void AppFrame::panelsToggled()
{
    if (!hiddenPanels.empty()) {
        for (ToolWindow* const panel : hiddenPanels)
            panel->setVisible(true);
        hiddenPanels.clear();
        return;
    }
    for (ToolWindow* const panel : panels())
        if (panel->isVisible()) {
            panel->setVisible(false);
            hiddenPanels.push_back(panel);
        }
}

// What the editor tells

void AppFrame::mapLoaded()
{
    // The properties of the open map are told in the same way: then pictures may have changed.
    getCanvas().reloadImages();
    updateCommands();
    updateStatus();
}

void AppFrame::mapSaved()
{
    treePane.setUnsaved(false);
    updateStatus();
}

void AppFrame::committed()
{
    updateStatus();
}

void AppFrame::historyChanged(bool canUndo, bool canRedo)
{
    toolBar.setButtonEnabled(kUndo, canUndo);
    toolBar.setButtonEnabled(kRedo, canRedo);
    setItemEnabled(kUndo, canUndo);
    setItemEnabled(kRedo, canRedo);
}

/// Each layer keeps the value that was picked in it.
void AppFrame::toolChanged()
{
    const int layer = layerCommand(editor);
    if (layer != shownLayer) {
        picked[shownLayer] = editor.getSelectedTile();
        shownLayer = layer;
        const auto kept = picked.find(layer);
        editor.setSelectedTile(kept != picked.end() ? kept->second : 0);
    }
    updateCommands();
}

void AppFrame::tileSelected(int)
{
    updateStatus();
}

void AppFrame::viewChanged()
{
    updateStatus();
}

void AppFrame::walkerMoved()
{
    updateStatus();
}

void AppFrame::pointerMoved(const std::optional<CanvasCell>&)
{
    updateStatus();
}

/// The place under the pointer, or where the walker stands.
void AppFrame::updateStatus()
{
    if (!placePanel || !getHandle())
        return;
    const CanvasCell walker{editor.getCursor().cell, editor.getCursor().facing};
    const std::optional<PointerInfo> info =
        lookUnder(editor, getCanvas().getHover().value_or(walker));
    PointerTexts texts;
    if (info && !editor.getMap().fileName.empty())
        texts = describe(*info, session.isSystemCoordinateEnabled() ? CoordinateSystem::Game
                                                                    : CoordinateSystem::Map);
    placePanel->setText(texts.place);
    texts.place.clear();
    if (editor.getMode() != EditorMode::Tile || editor.isFloorLayer())
        texts.wall.clear();
    wallPanel->setText(getCanvas().getHover() ? texts.line() : WString());
    const bool unsaved = recovery && recovery->hasUnsaved();
    savedPanel->setText(editor.getMap().fileName.empty() ? WString()
                        : unsaved                        ? translate(u"not saved")
                                                         : translate(u"saved"));
    const int size = editor.getTileSize();
    zoomSlider.setValue((size - kLeastZoom) / kZoomStep);
    zoomLabel.setText(widen(std::to_string(size * 100 / kLeastZoom)) + u" %");
}

} // namespace varn
