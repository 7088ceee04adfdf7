#pragma once

namespace varn {

/// The native classes by group; each registers once, whatever the number of calls. Called on the
/// main thread before the first compilation.

/// Texts, arrays, dictionaries, dates, mathematics, files, and what needs no screen of the drawing
/// classes; the global functions of every script.
void registerStandardClasses();

} // namespace varn
