#pragma once

namespace varn {

class BaseWindow;

/// Opens the window that a command of the frame stands for, over `parent` (null: over none), and
/// waits for its end. Its tables are loaded when it opens and saved when it is confirmed. The
/// commands are those of the table in DatabaseWindow.cpp: the rule tables (221), flags, strings,
/// treasure boxes, system, persons, messages, scripts, novels, formulas, markers and types.
///
/// False: the command opens none of them.
bool showDatabaseWindow(BaseWindow* parent, int command);

} // namespace varn
