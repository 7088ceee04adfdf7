#include "Component/Application.h"
#include "Component/WindowHost.h"
#include "MapEditor3D/frame/AppFrame.h"
#include "MapEditor3D/frame/Texts.h"
#include "MapEditor3D/recovery/StateFolder.h"
#include "Util/Settings.h"

int main(int argc, char** argv)
{
    using namespace varn;
    Application application(argc, argv);
    WindowHost windows;
    setHost(&windows);
    useLanguageTexts();
    int code = 0;
    {
        ProjectSession session(defaultSettingsPath(), ProjectSession::Presence::Window);
        if (session.start()) {
            AppFrame frame(session, defaultStateFolder());
            session.getInstanceLock().callOnRequest(
                [&frame] { Application::post([&frame] { frame.bringForward(); }); });
            frame.open();
            code = application.run();
        }
    }
    setHost(nullptr);
    return code;
}
