#include "Audio/AudioManager.h"
#include "Game/Compiler/Interpreter.h"
#include "Game/Compiler/SQClassDef.h"
#include "Game/Compiler/classes/Registrations.h"

namespace varn {
namespace {

using interpreter::InterpreterException;

/// Script name "Audio": the channels of the game.
struct ScriptAudio
{};

AudioManager* audioOf(const Interpreter& vm)
{
    const auto& audio = vm.getServices().audio;
    return audio ? &audio() : nullptr;
}

/// The number behind the file's name.
int modeOf(const Interpreter& vm, int fallback, WStringView function)
{
    if (vm.getTop() < 1 || vm.getTop() > 2)
        throw InterpreterException(WString(interpreter::kInvalidArgumentCount), WString(function));
    return vm.getTop() > 1 ? vm.getInt(1) : fallback;
}

OperandData playMusic(Interpreter& vm)
{
    const int loop = modeOf(vm, Audio::Loop, u"ScriptSystem::PlayBGM");
    AudioManager* audio = audioOf(vm);
    return vm.heap().makeString(audio ? audio->playMusic(vm.getString(0), loop) : WString());
}

OperandData playBGS(Interpreter& vm)
{
    const int loop = modeOf(vm, Audio::Loop, u"ScriptSystem::PlayBGS");
    AudioManager* audio = audioOf(vm);
    return vm.heap().makeString(audio ? audio->playBGS(vm.getString(0), loop) : WString());
}

/// A stop of the script ends the wait for the sound, too.
OperandData playSound(Interpreter& vm)
{
    const bool goesOn = modeOf(vm, 0, u"ScriptSystem::PlaySoundA") != 0;
    if (AudioManager* audio = audioOf(vm))
        audio->playSound(vm.getString(0), goesOn, [&vm] { return !vm.isStopRequested(); });
    return OperandData::integer(1);
}

template <void (AudioManager::*change)()>
void apply(NativeCall& call)
{
    if (AudioManager* audio = audioOf(call.vm))
        (audio->*change)();
}

template <void (AudioManager::*enable)(bool)>
void setEnabled(NativeCall& call, bool enabled)
{
    if (AudioManager* audio = audioOf(call.vm))
        (audio->*enable)(enabled);
}

WString getMusicPath(NativeCall& call)
{
    const AudioManager* audio = audioOf(call.vm);
    return audio ? audio->getMusicPath() : WString();
}

int getMusicCurrentPosition(NativeCall& call)
{
    const AudioManager* audio = audioOf(call.vm);
    return audio ? static_cast<int>(audio->getMusicCurrentPosition()) : 0;
}

void setMusicCurrentPosition(NativeCall& call, std::uint32_t milliseconds)
{
    if (AudioManager* audio = audioOf(call.vm))
        audio->setMusicCurrentPosition(milliseconds);
}

/// Answers as what has no result does, whatever plays; games count on it.
void isMusicPlaying() {}

} // namespace

void registerAudio()
{
    auto made = std::make_unique<SQClassDef<ScriptAudio>>("Audio");
    made->addStaticFunc<&playMusic>("playMusic");
    made->addStaticFunc<&playBGS>("playBGS");
    made->addStaticFunc<&playSound>("playSound");
    made->addStaticFunc<&apply<&AudioManager::stopMusic>>("stopMusic");
    made->addStaticFunc<&apply<&AudioManager::stopBGM>>("stopBGM");
    made->addStaticFunc<&apply<&AudioManager::stopBGS>>("stopBGS");
    made->addStaticFunc<&apply<&AudioManager::stopSound>>("stopSound");
    made->addStaticFunc<&getMusicPath>("getMusicPath");
    made->addStaticFunc<&getMusicCurrentPosition>("getMusicCurrentPosition");
    made->addStaticFunc<&setMusicCurrentPosition>("setMusicCurrentPosition");
    made->addStaticFunc<&setEnabled<&AudioManager::setSoundEnabled>>("setSoundEnabled");
    made->addStaticFunc<&setEnabled<&AudioManager::setMusicEnabled>>("setMusicEnabled");
    made->addStaticFunc<&isMusicPlaying>("isMusicPlaying");
    GlobalClassTable::instance().registerClass(std::move(made));
}

} // namespace varn
