#pragma once

namespace varn {

/// The native classes by group; each registers once, whatever the number of calls. Called on the
/// main thread before the first compilation.

/// Texts, arrays, dictionaries, dates, mathematics, files; the global functions of every script.
void registerStandardClasses();

/// Those first; then sound, drawing, keys, events, the game's texts and the screen. They work on
/// the ScriptServices of the interpreter that runs.
void registerEngineClasses();

} // namespace varn
