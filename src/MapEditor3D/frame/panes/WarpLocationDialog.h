#pragma once

#include "Component/Dialog.h"
#include "Component/UpDownTextField.h"
#include "MapEditor3D/frame/panes/MapCellPicker.h"

namespace varn {

/// "Warp Location": the target of a warp on the same map, typed or picked in a small picture.
class WarpLocationDialog final : public Dialog
{
  public:
    WarpLocationDialog(const WizMap& map, MapCell target);

    /// Behind an OK.
    MapCell getTarget() const { return target; }

  protected:
    void build() override;
    bool accept() override;
    BaseWindow* firstFocus() override { return &x; }

  private:
    MapCell target;
    GroupComponent fields;
    UpDownTextField x, y;
    MapCellPicker picker;
};

} // namespace varn
