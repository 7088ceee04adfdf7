#pragma once

#include "Component/BaseWindow.h"

#include <functional>
#include <optional>

namespace varn {

/// An item of a menu.
struct MenuLine
{
    WString text;     ///< shown, with "&" before its mnemonic; "-" alone: a separator
    WString shortcut; ///< "Ctrl+S"; empty for none
    WString icon;     ///< of the icon table; empty for none
    int command = 0;
    int argument = 0;
    bool checkable = false;
    bool checked = false;
    bool enabled = true;
    std::vector<MenuLine> children;
};

/// A menu; without a native window of its own.
class Menu
{
  public:
    virtual ~Menu() = default;

    std::vector<MenuLine>& getLines() { return lines; }
    const std::vector<MenuLine>& getLines() const { return lines; }
    void setLines(std::vector<MenuLine> next) { lines = std::move(next); }
    /// @param text  already in the language in force
    MenuLine& add(WStringView text, int command, WStringView icon = {});
    void addSeparator() { add(u"-", 0); }

  private:
    std::vector<MenuLine> lines;
};

/// A menu that comes up where the person clicked.
class PopupMenu : public Menu
{
  public:
    /// Shows the menu at a point of a window and waits for the choice. @return its command; empty:
    /// none was made
    std::optional<int> show(BaseWindow& owner, int x, int y);
};

} // namespace varn
