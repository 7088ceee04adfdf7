#pragma once

#include "Component/Component.h"

namespace varn {

/// Static text. A mnemonic in it ("&Name:") goes to its buddy.
class Label : public Component
{
  public:
    explicit Label(WStringView english = {});

    WString getText() const override;
    void setText(WStringView text) override;
    /// The control that the label names; screen readers call it so too.
    void setBuddy(BaseWindow& control);
    /// Greyer than other text: units and hints.
    void setDimmed(bool dimmed);
    /// In the colour of what is wrong.
    void setWarning(bool warning);
    /// Long texts break into lines.
    void setWrapped(bool wrapped);
    /// A picture instead of the text.
    void setPicture(const Bitmap& picture);

  protected:
    bool paintsItself() const override { return false; }
    NativeHandle makeHandle(NativeHandle parent) override;
};

} // namespace varn
