#pragma once

#include "Game/Compiler/Interpreter.h"

#include <map>
#include <memory>
#include <vector>

namespace varn {

struct InputEvent;

/// The interpreter of game events and of the script window: it also keeps what a script listens to
/// and what it shows.
///
/// Listeners are called on the script's own thread while it waits, once a frame: "keyDown" for each
/// key that was typed, "click" for each click, then "enterFrame". A listener that takes an argument
/// gets a table with `type`, and with `keyCode`, or `x`, `y` and `button`. While a listener itself
/// waits, no other is called; and when the script has ended, none is.
class Script : public Interpreter
{
  public:
    ~Script() override { stop(); }

    /// Functions by event name ("enterFrame", "click", "keyDown"); one that is there already is
    /// refused.
    bool addEventListener(WStringView event, const OperandData& function);
    bool removeEventListener(WStringView event, const OperandData& function);
    const std::vector<OperandData>& listenersOf(WStringView event) const;

    /// Drawable objects for the renderer, kept alive while they are shown.
    bool addChild(const OperandData& object);
    bool removeChild(const OperandData& object);
    const std::vector<OperandData>& getChildren() const { return children; }

    void reset() override;
    bool nextFrame() override;

  protected:
    void markRoots(Marker& marker) override;

  private:
    void deliverEvents();
    void deliver(WStringView event, const InputEvent* input);
    OperandData describe(WStringView event, const InputEvent* input);

    std::map<WString, std::vector<OperandData>, std::less<>> eventListeners;
    std::vector<OperandData> children;
    bool delivering = false;
};

/// The natives of scripts on them; each leaves a boolean in `_ret`. They throw when the arguments
/// are not an event name and a function, or one Graphics or Image; on an interpreter that is no
/// Script they answer false.
void addEventListenerNative(Interpreter& vm);
void removeEventListenerNative(Interpreter& vm);
void addChildNative(Interpreter& vm);
void removeChildNative(Interpreter& vm);

/// The scripts of game events that parked and go on running. Used by the main thread only.
class ScriptEngine
{
  public:
    static ScriptEngine& instance();

    /// For the scripts started from now on.
    void setServices(const ScriptServices& next) { services = next; }
    /// Compiles and starts a script, and returns when it parks for the first time or has ended. One
    /// that never waits has done everything by then. Throws std::string with the compile errors.
    void startEvent(WStringView name, WString text);
    /// The signal of a frame: what was typed until now becomes visible, and every parked script
    /// goes on, until it parks again or ends.
    void signalFrame();
    void stopAll() { scripts.clear(); }
    std::size_t count() const { return scripts.size(); }
    /// For the stage.
    const std::vector<std::unique_ptr<Script>>& getScripts() const { return scripts; }

  private:
    std::vector<std::unique_ptr<Script>> scripts;
    ScriptServices services;
};

} // namespace varn
