#pragma once

#include "Component/BaseWindow.h"
#include "Component/Label.h"

#include <memory>

namespace varn {

/// The toolkit's status bar, of panels side by side.
class Statusbar : public BaseWindow
{
  public:
    /// A text panel. @param stretch  its share of the room; 0: what its text needs
    Label& addPanel(int stretch);
    /// Any control at the right end; made in the bar if it has no native window yet.
    void addControl(BaseWindow& control);

  protected:
    NativeHandle makeHandle(NativeHandle parent) override;

  private:
    std::vector<std::unique_ptr<Label>> panels;
};

} // namespace varn
