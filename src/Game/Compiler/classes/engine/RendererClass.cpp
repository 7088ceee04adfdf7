#include "Game/Compiler/SQClassDef.h"
#include "Game/Compiler/Script.h"
#include "Game/Compiler/Stage.h"
#include "Game/Compiler/classes/Registrations.h"

namespace varn {
namespace {

struct GameSettings
{};

struct Renderer
{};

Stage* stageOf(const NativeCall& call)
{
    return call.vm.getServices().stage;
}

int getWidth(NativeCall& call)
{
    const Stage* stage = stageOf(call);
    return stage ? stage->getWidth() : 0;
}

int getHeight(NativeCall& call)
{
    const Stage* stage = stageOf(call);
    return stage ? stage->getHeight() : 0;
}

void setResolution(NativeCall& call, int width, int height)
{
    if (const Stage* stage = stageOf(call))
        stage->requestResolution(width, height);
}

WString getResolution(NativeCall& call)
{
    return toDecimal(getWidth(call)) + u"x" + toDecimal(getHeight(call));
}

} // namespace

void registerGameSettings()
{
    auto made = std::make_unique<SQClassDef<GameSettings>>("GameSettings");
    made->addStaticFunc<&setResolution>("setResolution");
    made->addStaticFunc<&getResolution>("getResolution");
    GlobalClassTable::instance().registerClass(std::move(made));
}

void registerRenderer()
{
    auto made = std::make_unique<SQClassDef<Renderer>>("Renderer");
    made->addStaticFunc<&addChildNative>("addObject");
    made->addStaticFunc<&removeChildNative>("removeObject");
    made->addStaticFunc<&getWidth>("getWidth");
    made->addStaticFunc<&getHeight>("getHeight");
    GlobalClassTable::instance().registerClass(std::move(made));
}

} // namespace varn
