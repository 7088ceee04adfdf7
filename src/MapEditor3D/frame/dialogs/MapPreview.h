#pragma once

#include "Component/Component.h"
#include "MapEditor3D/WizMapEditor.h"
#include "MapEditor3D/canvas/MapPainter.h"

namespace varn {

/// A floor in a dialog, as large as its pane lets it be, which changes without changing the open
/// one. The wheel zooms about the pointer, a drag moves it, a double click fits it again.
class MapPreview final : public Component
{
  public:
    MapPreview();

    /// Takes a copy of a floor: settings, cells, events and areas.
    void show(const WizMap& map);
    /// Cells that were written through `getMap` are to be seen.
    void cellsEdited();
    WizMap& getMap() { return editor.getMap(); }
    const WizMap& getMap() const { return editor.getMap(); }

    /// Puts the cells shown over the open map, as one step of undo behind which the old ones stand.
    /// Without a difference there is no step.
    void takeOver(WizMapEditor& target) const;

    void onCreate() override;
    void onSize(int width, int height) override;
    bool onLeftDown(const MouseEvent& event) override;
    bool onLeftUp(const MouseEvent& event) override;
    bool onLeftDoubleClick(const MouseEvent& event) override;
    bool onMouseMove(const MouseEvent& event) override;
    bool onMouseWheel(const MouseEvent& event, int delta) override;

  protected:
    void paint(Graphics& graphics, const Rect& dirty) override;

  private:
    void fit();
    void lookAt(CanvasView view);

    WizMapEditor editor;
    MapPainter painter;
    bool fitted = true;
    std::optional<Point> dragFrom;
};

} // namespace varn
