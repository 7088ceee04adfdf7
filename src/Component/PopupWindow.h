#pragma once

#include "Component/GroupComponent.h"

namespace varn {

/// A borderless window that drops down from a control and goes with a click beside it or Escape.
class PopupWindow : public BaseWindow
{
  public:
    /// What it shows; stands once the window was created.
    GroupComponent& getContent() { return content; }
    /// Below `anchor`, as large as its content needs and at least as wide as `anchor`.
    void dropDown(BaseWindow& anchor);
    void onCreate() override;

  protected:
    NativeHandle makeHandle(NativeHandle parent) override;

  private:
    GroupComponent content;
};

} // namespace varn
