#pragma once

#include "Component/Component.h"

namespace varn {

/// A button that is down or up.
class StateButton : public Component
{
  public:
    bool isPressed() const;
    WString getText() const override;
    void setText(WStringView text) override;
    MessageResult windowProc(NativeHandle window, std::uint32_t message, WordParam wParam,
                             LongParam lParam) override;

  protected:
    bool paintsItself() const override { return false; }
};

/// A push button; its action is what it is there for.
class Button : public StateButton
{
  public:
    explicit Button(WStringView english = {});

    /// A shape of the icon table before the text, or alone.
    void setIcon(WStringView name);
    void setImage(const Bitmap& picture);
    /// Return presses it.
    void setDefault(bool value);
    /// Without a frame until the pointer is over it.
    void setFlat(bool value);
    /// Presses it as a click does.
    void press() { fireAction(); }

  protected:
    NativeHandle makeHandle(NativeHandle parent) override;

  private:
    bool hasCaptionFace = false; ///< the machine has the face of captions; else the desktop's
};

} // namespace varn
