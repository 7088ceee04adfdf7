#include "Game/Compiler/SQClassDef.h"
#include "Game/Compiler/Script.h"
#include "Game/Compiler/classes/Classes.h"
#include "Game/Compiler/classes/Registrations.h"
#include "Game/Compiler/classes/SystemClass.h"

namespace varn {

/// What scripts listen to and show, by the class that every script has and by bare names.
static void registerEvents()
{
    auto& system =
        dynamic_cast<SQClassDef<ScriptSystem>&>(*GlobalClassTable::instance().find("System"));
    system.addStaticFunc<&addEventListenerNative>("addEventListener");
    system.addStaticFunc<&removeEventListenerNative>("removeEventListener");
}

static bool registerAll()
{
    registerStandardClasses();
    registerAudio();
    registerGraphics();
    registerTextAlign();
    registerImage();
    registerRectangle();
    registerDirection();
    registerKey();
    registerMouse();
    registerKeyboard();
    registerJScript();
    registerTextToWav();
    registerEventNames();
    registerStringTable();
    registerEvents();
    registerGameSettings();
    registerRenderer();
    registerGlobalFunction("addEventListener", &addEventListenerNative);
    registerGlobalFunction("removeEventListener", &removeEventListenerNative);
    registerGlobalFunction("addChild", &addChildNative);
    registerGlobalFunction("removeChild", &removeChildNative);
    return true;
}

void registerEngineClasses()
{
    static const bool done = registerAll();
    static_cast<void>(done);
}

} // namespace varn
