#pragma once

#include "Component/Button.h"

namespace varn {

/// The title bar of a pane, with a button that closes it. Its action is a click on the bar.
class Caption : public Button
{
  public:
    /// Its action is the wish to close the pane.
    class CloseButton : public Button
    {
      public:
        CloseButton();
    };

    explicit Caption(WStringView english = {});

    CloseButton& getCloseButton() { return closeButton; }
    WString getText() const override;
    void setText(WStringView text) override;
    void onCreate() override;
    void onSize(int width, int height) override;
    bool onLeftDown(const MouseEvent& event) override;
    MessageResult windowProc(NativeHandle window, std::uint32_t message, WordParam wParam,
                             LongParam lParam) override;

    static constexpr int kHeight = 24;

  protected:
    bool paintsItself() const override { return true; }
    NativeHandle makeHandle(NativeHandle parent) override;
    void paint(Graphics& graphics, const Rect& dirty) override;

  private:
    WString title;
    CloseButton closeButton;
};

} // namespace varn
