#include "Component/Application.h"
#include "Component/WindowHost.h"
#include "MapEditor3D/frame/AppFrame.h"
#include "MapEditor3D/frame/Texts.h"
#include "MapEditor3D/frame/dialogs/WelcomeDialog.h"
#include "MapEditor3D/project/NewProject.h"
#include "MapEditor3D/recovery/StateFolder.h"
#include "Util/Settings.h"

#include <filesystem>

using namespace varn;

namespace {

/// One run on the project in the working directory. @return the folder to go on in; empty: none
std::filesystem::path runFrame(Application& application, ProjectSession& session)
{
    AppFrame frame(session, defaultStateFolder());
    session.getInstanceLock().callOnRequest(
        [&frame] { Application::post([&frame] { frame.bringForward(); }); });
    frame.open();
    application.run();
    return frame.getNextProject();
}

/// Outside of a project: asks for one. @return the folder to go on in; empty: none
std::filesystem::path welcome(RecentProjects& recent)
{
    WelcomeDialog dialog(recent);
    dialog.doModal(nullptr);
    return dialog.getProject();
}

/// @return the project to start the tool in behind this run
std::filesystem::path runOnce(Application& application)
{
    RecentProjects recent(defaultStateFolder());
    const std::filesystem::path here = std::filesystem::current_path();
    ProjectSession session(defaultSettingsPath(), ProjectSession::Presence::Window);
    if (!isProjectFolder(here)) {
        session.loadTexts();
        const std::filesystem::path chosen = welcome(recent);
        if (chosen != here)
            return chosen;
    }
    if (!session.start())
        return {};
    recent.add(here);
    return runFrame(application, session);
}

} // namespace

int main(int argc, char** argv)
{
    Application application(argc, argv);
    WindowHost windows;
    setHost(&windows);
    useLanguageTexts();
    const std::filesystem::path next = runOnce(application);
    if (!next.empty())
        startToolIn(next);
    setHost(nullptr);
    return 0;
}
