#pragma once

namespace varn {

class Settings;

/// What the input layer tells scripts that wait for a key. Asked on the script's thread, while the
/// host waits for it.
class ScriptKeys
{
  public:
    virtual ~ScriptKeys() = default;

    /// The key that means yes was just pressed: the A button's, or Enter.
    virtual bool isOkKeyTyped() const = 0;
    /// Any key was just pressed.
    virtual bool isAnyKeyTyped() const = 0;
};

/// What lies around a script and that its classes reach: borrowed, null where there is none.
struct ScriptServices
{
    Settings* settings = nullptr; ///< the file that IniFile works on; without it nothing is kept
    const ScriptKeys* keys = nullptr; ///< without it no key is ever typed
};

} // namespace varn
