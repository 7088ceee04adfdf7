#pragma once

#include <functional>

namespace varn {

class AudioManager;
class InputState;
class Settings;
class Stage;
class StringTable;

/// What lies around a script and that its classes reach: borrowed, null or empty where there is
/// none. What is a function is asked for at the first use, since most scripts never do.
struct ScriptServices
{
    Settings* settings = nullptr; ///< the file that IniFile works on; without it nothing is kept
    InputState* input = nullptr;  ///< without it no key is ever typed
    Stage* stage = nullptr;       ///< the screen; without it its size is 0
    std::function<AudioManager&()> audio = {}; ///< without it nothing is heard
    std::function<StringTable&()> texts = {};  ///< the game's fixed texts; without it none
};

} // namespace varn
