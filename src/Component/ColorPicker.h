#pragma once

#include "Component/Button.h"

namespace varn {

/// A button that shows a colour and opens the colour dialog. Its listeners of changes hear of
/// another colour.
class ColorPicker : public Button, private ActionListener
{
  public:
    ColorPicker();

    /// A colour reference.
    std::uint32_t getColor() const { return color; }
    void setColor(std::uint32_t next);
    void onCreate() override;

  private:
    void handleEvent(const EventObject& event) override;
    void showColor();

    std::uint32_t color = 0;
};

} // namespace varn
