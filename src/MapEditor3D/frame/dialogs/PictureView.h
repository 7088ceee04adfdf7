#pragma once

#include "Component/Component.h"
#include "Graphics/Image.h"

namespace varn {

/// A picture fitted into a pane, over a chequered ground where it is clear.
class PictureView final : public Component
{
  public:
    PictureView();

    /// A file of the project; empty: none. False: it cannot be read, and nothing is shown.
    bool setFile(WStringView path);
    const Image& getImage() const { return image; }
    /// Shows the picture at a size of its own instead of fitting it; 0: fitted.
    void setMagnification(double next);

    void onCreate() override;

  protected:
    void paint(Graphics& graphics, const Rect& dirty) override;

  private:
    Image image;
    double magnification = 0;
};

} // namespace varn
