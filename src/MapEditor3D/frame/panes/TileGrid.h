#pragma once

#include "Component/Component.h"
#include "Component/Scrollbar.h"
#include "MapEditor3D/canvas/TilePalette.h"

namespace varn {

/// The entries of a palette, painted: a list of pictures with names, or a grid of pictures alone.
/// One is selected. Clicks and the arrow keys pick another one, a double click or Return activates
/// the selected one.
class TileGrid final : public Component, private Scrollbar
{
  public:
    enum class Shape
    {
        List,
        Grid
    };

    /// @param palette  paints the pictures, borrowed
    explicit TileGrid(TilePalette& palette);

    void setEntries(std::vector<PaletteEntry> next, Shape nextShape);
    const std::vector<PaletteEntry>& getEntries() const { return entries; }
    /// A value without an entry: none is marked.
    void setSelected(int value);
    int getSelected() const { return selected; }
    void setWallLook(WallLook next);
    /// Said where there are no entries. @param english  follows the language
    void setEmptyText(WStringView english);

    void onPick(std::function<void(int value)> action) { picked = std::move(action); }
    void onActivate(std::function<void(int value)> action) { activated = std::move(action); }

    /// Where an entry stands, in pixels of the window; may be scrolled out of it.
    Rect placeOf(std::size_t entry) const;

    bool onLeftDown(const MouseEvent& event) override;
    bool onLeftUp(const MouseEvent& event) override;
    bool onLeftDoubleClick(const MouseEvent& event) override;
    bool onMouseMove(const MouseEvent& event) override;
    bool onMouseWheel(const MouseEvent& event, int delta) override;
    void onMouseLeave() override;
    bool onKeyDown(int key, std::uint32_t flags) override;
    bool onSetFocus() override;
    bool onKillFocus() override;
    void onSize(int width, int height) override;

  protected:
    void paint(Graphics& graphics, const Rect& dirty) override;

  private:
    class Brush;

    int columns() const;
    int cellWidth() const;
    int cellHeight() const;
    int contentHeight() const;
    std::optional<std::size_t> entryAt(int x, int y) const;
    std::optional<std::size_t> selectedEntry() const;
    void scrolled() override { repaint(); }
    /// Behind a change of the entries or of the size.
    void updateScrollbar();
    Rect barPlace() const;
    void reveal(std::size_t entry);
    void pick(std::size_t entry);
    void moveBy(int count);
    void describe();

    void drawEntry(Brush& brush, std::size_t entry);

    TilePalette& palette;
    std::vector<PaletteEntry> entries;
    Shape shape = Shape::List;
    WallLook look = WallLook::Strip;
    WString emptyText; // English
    int selected = 0;
    std::optional<std::size_t> hovered;
    std::function<void(int)> picked, activated;
};

} // namespace varn
