#include "MapEditor3D/frame/dialogs/Help.h"

#include "Component/Translation.h"
#include "Game/Database/LanguageManager.h"
#include "Util/File.h"
#include "Util/Host.h"
#include "Util/ProjectPath.h"

namespace varn {

namespace {

bool open(const WString& target)
{
    if (host().openWithShell(target))
        return true;
    host().showMessage(translateWith(u"Couldn't open %1", {target}));
    return false;
}

} // namespace

bool openHelp()
{
    const bool english = LanguageManager::instance().isEnglish();
    return open(toWide(programFolder() / "Help" / (english ? "English.html" : "Japanese.html")));
}

bool visitSite()
{
    return open(WString(kMakerSite));
}

} // namespace varn
