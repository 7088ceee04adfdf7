#pragma once

namespace varn {

/// The classes and global functions of the game that runs what this tool makes. Here they are names
/// with nothing behind them, `waitFrame` and `waitKey` apart, so that its scripts compile and
/// completion offers them. Registers the classes of every script first, and once, whatever the
/// number of calls; scripts trace nothing from then on, since the game's `trace` takes the place of
/// the tool's.
void registerGameClasses();

} // namespace varn
