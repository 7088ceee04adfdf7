#include "Game/Compiler/InterpreterException.h"
#include "Game/Compiler/SQClassDef.h"
#include "Game/Compiler/classes/Registrations.h"

// Classes that lend scripts what another system has: its own script engine, and a speech program.
// There is neither here; scripts that ask for them compile, and are told so when they run.

namespace varn {
namespace {

using interpreter::InterpreterException;

/// The system's script engine; nothing is ever loaded.
struct JScript
{};

/// The speech program.
struct TTWController
{};

constexpr WStringView kNoEngine = u"This system has no script engine of its own.";
constexpr WStringView kNoSpeech = u"The speech program is not running.";

bool load(JScript&, WStringView)
{
    throw InterpreterException(WString(kNoEngine), u"JScript::load");
}

WString executeStatement(JScript&, WStringView)
{
    throw InterpreterException(WString(kNoEngine), u"JScript::executeStatement");
}

void release(JScript&) {}

bool speak(WStringView)
{
    throw InterpreterException(WString(kNoSpeech), u"TTWController::speak");
}

bool stop()
{
    throw InterpreterException(WString(kNoSpeech), u"TTWController::stop");
}

} // namespace

void registerJScript()
{
    auto made = std::make_unique<SQClassDef<JScript>>("JScript");
    made->addFunc<&load>("load");
    made->addFunc<&executeStatement>("executeStatement");
    made->addFunc<&release>("release");
    GlobalClassTable::instance().registerClass(std::move(made));
}

void registerTextToWav()
{
    auto made = std::make_unique<SQClassDef<TTWController>>("TextToWav");
    made->addStaticFunc<&speak>("speak");
    made->addStaticFunc<&stop>("stop");
    GlobalClassTable::instance().registerClass(std::move(made));
}

} // namespace varn
