// What the frame's commands open.
#include "Component/Translation.h"
#include "DatabaseDialog/DatabaseWindow.h"
#include "Game/Database/LanguageManager.h"
#include "Game/Database/WizFloor.h"
#include "MapEditor3D/canvas/CommandFinder.h"
#include "MapEditor3D/frame/AppFrame.h"
#include "MapEditor3D/frame/dialogs/AboutDialog.h"
#include "MapEditor3D/frame/dialogs/CommandFinderDialog.h"
#include "MapEditor3D/frame/dialogs/CreateProjectDialog.h"
#include "MapEditor3D/frame/dialogs/ExportProjectDialog.h"
#include "MapEditor3D/frame/dialogs/Help.h"
#include "MapEditor3D/frame/dialogs/MapGeneratorDialog.h"
#include "MapEditor3D/frame/dialogs/PhotoToMapDialog.h"
#include "MapEditor3D/frame/dialogs/ReplaceDialog.h"
#include "MapEditor3D/frame/dialogs/ResourceManagerDialog.h"
#include "MapEditor3D/frame/panes/PrintMapDialog.h"
#include "MapEditor3D/frame/panes/WizEventTileDialog.h"
#include "MapEditor3D/project/NewProject.h"
#include "Util/Host.h"

namespace varn {

namespace {

/// What a command opens; those of the tables are in DatabaseWindow.cpp.
struct WindowRow
{
    int command;
    bool needsMap;
    void (*open)(AppFrame& frame, ProjectSession& session);
};

constexpr WindowRow kWindows[] = {
    {204, true,
     [](AppFrame& frame, ProjectSession& session) {
         saveMapAsImageByDialog(frame.getMapEditor().getMap(), session.getEditor()->getMapName(),
                                &frame);
     }},
    {205, false,
     [](AppFrame& frame, ProjectSession& session) { exportProjectWithDialog(session, &frame); }},
    {210, true,
     [](AppFrame& frame, ProjectSession&) { ReplaceDialog(frame.getMapEditor()).doModal(&frame); }},
    {211, true,
     [](AppFrame& frame, ProjectSession& session) {
         PhotoToMapDialog(frame.getMapEditor(), session.getSettings()).doModal(&frame);
     }},
    {228, false, [](AppFrame&, ProjectSession&) { visitSite(); }},
    {229, false, [](AppFrame&, ProjectSession&) { openHelp(); }},
    {230, false, [](AppFrame& frame, ProjectSession&) { AboutDialog().doModal(&frame); }},
    {251, true,
     [](AppFrame& frame, ProjectSession&) {
         MapGeneratorDialog(frame.getMapEditor()).doModal(&frame);
     }},
};

constexpr int kCreate = 200, kResources = 222, kTileSettings = 225;

} // namespace

void AppFrame::showDialog(int command)
{
    if (command == kCreate) {
        createProject();
    } else if (command == kResources) {
        if (ResourceManagerDialog().doModal(this) == Dialog::Ok)
            reloadPictures();
    } else if (command == kTileSettings) {
        tileSettingsRequested(0);
    } else if (showDatabaseWindow(this, command)) {
        reloadTables();
    } else {
        for (const WindowRow& row : kWindows)
            if (row.command == command && (!row.needsMap || !editor.getMap().fileName.empty()))
                row.open(*this, session);
    }
}

void AppFrame::createProject()
{
    CreateProjectDialog dialog;
    dialog.doModal(this);
    if (dialog.getProject().empty() || !dialog.isToOpen())
        return;
    nextProject = dialog.getProject();
    target.close();
    if (!isClosed())
        nextProject.clear();
}

void AppFrame::tileSettingsRequested(int kind)
{
    if (WizEventTileDialog(kind).doModal(this) == Dialog::Ok)
        reloadTables();
}

/// Rows of tables have new names, kinds of events other pictures.
void AppFrame::reloadTables()
{
    tilePane.reload();
    areaPane.reload();
    scenePane.reload();
    reloadPictures();
}

void AppFrame::reloadPictures()
{
    getCanvas().reloadImages();
    getView().reloadImages();
    tilePane.reload();
    scenePane.reload();
}

void AppFrame::findCommand()
{
    CommandFinder finder(buildMenu(session.isSystemCoordinateEnabled()), buildOtherMenus());
    addToolCommands(finder);
    CommandFinderDialog dialog(finder);
    dialog.doModal(this);
    if (const std::optional<FoundCommand> chosen = dialog.getChosen())
        dispatch(chosen->command, chosen->argument);
}

} // namespace varn
