#pragma once

#include "Component/BaseWindow.h"

namespace varn {

/// A container of bands: tool bars and controls beside each other, in one or more lines.
class CoolBar : public BaseWindow
{
  public:
    /// A control in a band of its own; made in the bar if it has no native window yet.
    /// @param newLine  below the bands before
    void addBand(BaseWindow& control, bool newLine = false);
    int getBandCount() const { return bandCount; }

  protected:
    NativeHandle makeHandle(NativeHandle parent) override;

  private:
    int bandCount = 0;
};

} // namespace varn
