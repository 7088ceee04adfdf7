#pragma once

namespace varn {

class Interpreter;

/// The natives in which a script waits, for classes and for the global functions of the game. A
/// script on its own thread parks in them from frame to frame; on the caller's thread, where nobody
/// signals a frame, only times pass. A stop request ends every wait. They leave no result.

/// wait(ms, skippable = 1): until the time has passed or, if skippable, the key that means yes was
/// typed.
void wait(Interpreter& vm);
/// waitFrame(n, skippable = 1): n + 1 frames, or until that key.
void waitFrame(Interpreter& vm);
/// waitKey(): until any key was typed; on the caller's thread not at all.
void waitKey(Interpreter& vm);

} // namespace varn
