#pragma once

#include "Component/BaseWindow.h"

#include <map>

namespace varn {

/// The toolkit's tool bar: buttons with icons that send their command to the frame. What does not
/// fit goes to an overflow menu.
class ToolBar : public BaseWindow
{
  public:
    /// @param group  buttons of one group exclude each other; 0: a plain button
    /// @param english  its name, shown as a tooltip with the shortcut
    void addButton(int command, WStringView icon, WStringView english, int group = 0,
                   WStringView shortcut = {});
    /// A plain button that stays down.
    void addToggle(int command, WStringView icon, WStringView english);
    void addSeparator();
    /// Any control; made in the bar if it has no native window yet.
    void addControl(BaseWindow& control);

    void setButtonEnabled(int command, bool enabled);
    void setButtonChecked(int command, bool checked);
    bool isButtonChecked(int command) const;

  protected:
    NativeHandle makeHandle(NativeHandle parent) override;
    void applyTexts() override;

  private:
    struct ButtonRow
    {
        void* action; // the toolkit's, owned by the bar
        WString english, shortcut;
    };
    std::map<int, ButtonRow> buttons;
    std::map<int, void*> groups;

    void addAction(int command, WStringView icon, WStringView english, WStringView shortcut,
                   bool checkable, int group);
};

} // namespace varn
