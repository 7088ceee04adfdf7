#pragma once

#include "Component/Menu.h"
#include "Component/Statusbar.h"
#include "Component/ToolBar.h"
#include "Component/ToolWindow.h"

#include <functional>
#include <string>

namespace varn {

/// A main window: menu, tool bars, panes docked around a centre, status bar. Commands of its menu
/// and tool bars arrive in `onCommand`.
class FrameWindow : public BaseWindow
{
  public:
    enum class Side
    {
        Left,
        Right,
        Bottom
    };

    void setMenu(const Menu& menu);
    void setItemEnabled(int command, bool enabled);
    void setItemChecked(int command, bool checked);
    /// A shortcut outside the menu.
    void addShortcut(WStringView keys, std::function<void()> action);

    // These make what they are handed, if it has no native window yet.
    void setCenter(BaseWindow& window);
    void addToolBar(ToolBar& bar);
    void addToolWindow(ToolWindow& pane, Side side);
    /// Behind another pane, with a tab.
    void tabToolWindow(ToolWindow& pane, ToolWindow& below);
    void setStatusbar(Statusbar& bar);

    void setDockSizes(const std::vector<std::pair<ToolWindow*, int>>& widths);
    /// Places and sizes of bars and panes, opaque.
    std::string saveLayout() const;
    bool restoreLayout(const std::string& layout);

    bool isMaximised() const;
    bool isMinimised() const;
    void showMaximised();
    /// Restores and raises the window.
    void bringForward();
    void setAlwaysOnTop(bool onTop);
    bool isAlwaysOnTop() const;
    /// Where the window stands when it is neither maximised nor minimised.
    Rect getNormalBounds() const;
    /// Pulls a rectangle onto the nearest screen; an empty size is centred 640 by 480.
    static Rect fitToScreen(const Rect& wanted);

  protected:
    NativeHandle makeHandle(NativeHandle parent) override;

  private:
    std::vector<void*> itemsOf(int command) const;
};

} // namespace varn
