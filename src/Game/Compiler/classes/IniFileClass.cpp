#include "Game/Compiler/Interpreter.h"
#include "Game/Compiler/SQClassDef.h"
#include "Game/Compiler/classes/Registrations.h"
#include "Util/Settings.h"

namespace varn {
namespace {

/// The settings file of the session.
struct IniFile
{};

constexpr WStringView kMissing = u"__error__"; // also as a written value it means: there is none

Settings* settingsOf(const NativeCall& call)
{
    return call.vm.getServices().settings;
}

WString read(NativeCall& call, WStringView section, WStringView key)
{
    const Settings* settings = settingsOf(call);
    WString value = settings ? settings->getSettingString(section, key, kMissing) : WString();
    return value == kMissing ? WString() : value;
}

bool write(NativeCall& call, WStringView section, WStringView key, WStringView value)
{
    Settings* settings = settingsOf(call);
    return settings && settings->setSettingString(section, key, value);
}

bool eraseKey(NativeCall& call, WStringView section, WStringView key)
{
    Settings* settings = settingsOf(call);
    return settings && settings->eraseKey(section, key);
}

bool eraseSection(NativeCall& call, WStringView section)
{
    Settings* settings = settingsOf(call);
    return settings && settings->eraseSection(section);
}

} // namespace

void registerIniFile()
{
    auto made = std::make_unique<SQClassDef<IniFile>>("IniFile");
    made->addStaticFunc<&read>("read");
    made->addStaticFunc<&write>("write");
    made->addStaticFunc<&eraseKey>("eraseKey");
    made->addStaticFunc<&eraseSection>("eraseSection");
    GlobalClassTable::instance().registerClass(std::move(made));
}

} // namespace varn
