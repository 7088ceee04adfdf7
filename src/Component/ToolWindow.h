#pragma once

#include "Component/GroupComponent.h"

namespace varn {

/// A pane that docks at a side of the frame or floats. Children go into `getContent()`.
class ToolWindow : public GroupComponent
{
  public:
    /// @param name  under which its place is remembered; not shown
    ToolWindow(WStringView name, WStringView english);

    GroupComponent& getContent() { return content; }
    const WString& getName() const { return name; }
    WString getText() const override;
    void setText(WStringView text) override;
    void onCreate() override;
    /// In front of the panes it shares its place with.
    void raise();

  protected:
    NativeHandle makeHandle(NativeHandle parent) override;

  private:
    GroupComponent content;
    WString name;
};

} // namespace varn
