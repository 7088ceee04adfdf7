#pragma once

namespace varn {

/// The native classes of every script, a file each; in the order in which they enter the
/// GlobalClassTable.
void registerGlobalFunctions(); ///< MB, trace, exit, _getArgs
void registerSystem();
void registerTypeNames(); ///< Object, Number, int
void registerString();
void registerStringUtils();
void registerArray();
void registerDictionary();
void registerDate();
void registerLocale();
void registerMath();
void registerFile();
void registerIniFile();
void registerWinApi();
void registerRectangle();
void registerDirection();

} // namespace varn
