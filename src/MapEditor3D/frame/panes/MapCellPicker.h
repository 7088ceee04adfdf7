#pragma once

#include "Component/Component.h"
#include "Game/Map/WizMap.h"

namespace varn {

/// A small picture of a map in which a cell is picked: by a click, or by the arrow keys. Its action
/// is another cell.
class MapCellPicker final : public Component
{
  public:
    /// @param map  borrowed
    explicit MapCellPicker(const WizMap& map);

    MapCell getCell() const { return cell; }
    /// A cell outside the map is not marked.
    void setCell(MapCell next);

    void onCreate() override;
    bool onLeftDown(const MouseEvent& event) override;
    bool onMouseMove(const MouseEvent& event) override;
    bool onKeyDown(int key, std::uint32_t flags) override;
    bool onSetFocus() override;
    bool onKillFocus() override;

  protected:
    void paint(Graphics& graphics, const Rect& dirty) override;

  private:
    void pick(MapCell next);
    void pickAt(const MouseEvent& event);

    const WizMap& map;
    int side; ///< of a cell, in pixels of the window
    Image plan;
    MapCell cell;
};

} // namespace varn
