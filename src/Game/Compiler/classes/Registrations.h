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

// Of engine/, likewise; their table is in EngineClasses.cpp.
void registerAudio();
void registerGraphics();
void registerTextAlign();
void registerImage();
void registerRectangle();
void registerDirection();
void registerKey();
void registerMouse();
void registerKeyboard();
void registerJScript();
void registerTextToWav();
void registerEventNames(); ///< Event, MouseEvent, KeyboardEvent
void registerStringTable();
void registerGameSettings();
void registerRenderer();

} // namespace varn
