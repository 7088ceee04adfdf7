#pragma once

#include "MapEditor3D/ProjectSession.h"

#include <cstdint>
#include <span>

namespace varn {

/// What commands act on: the frame of either program. As it stands it is the frame without a
/// window: what acts on session and open map is done, what would show a window does nothing.
class CommandTarget
{
  public:
    explicit CommandTarget(ProjectSession& session) : session(session) {}
    virtual ~CommandTarget() = default;

    ProjectSession& getSession() { return session; }
    MapEditing* getEditor() { return session.getEditor(); }

    /// Opens the window, dialog or page that belongs to a command.
    virtual void showWindow(int /*command*/) {}
    /// The menu of another language is in force, or a check mark changed.
    virtual void rebuildMenus() {}
    virtual void toggleAlwaysOnTop() {}
    /// The command "exit": by itself the end of the session with its question.
    virtual void close();

    /// The session was ended by `close`.
    bool isClosed() const { return closed; }

  protected:
    ProjectSession& session;
    bool closed = false;
};

/// A command: what reaches the frame as a number.
struct Command
{
    int number;
    WStringView name; ///< key of the menu description; empty for a tool-bar action
    /// False: it reported a failure. @param argument  of "shift" a `Direction`, of "language" the
    /// place in the list of languages; else 0
    bool (*action)(CommandTarget& target, const Command& command, int argument);
};

inline constexpr int kLanguageCommand = 245;
inline constexpr int kShiftCommand = 250;

/// Every command by number.
std::span<const Command> commandTable();
/// Null for an unknown one.
const Command* findCommand(int number);
const Command* findCommand(WStringView name);
/// The number of a name, 0 for an unknown one.
int commandNumber(WStringView name);

/// Does what the low 16 bits of `word` ask for; an unknown number does nothing.
/// False: the command reported a failure.
bool dispatchCommand(CommandTarget& target, std::uint32_t word, int argument = 0);

} // namespace varn
