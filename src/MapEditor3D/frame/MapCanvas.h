#pragma once

#include "Component/Application.h"
#include "Component/Component.h"
#include "Component/GroupComponent.h"
#include "Component/Slider.h"
#include "MapEditor3D/MapEditorListener.h"
#include "MapEditor3D/canvas/MapPainter.h"

namespace varn {

/// Asks the frame for what the canvas cannot do by itself.
class MapCanvasListener
{
  public:
    virtual ~MapCanvasListener() = default;
    /// The pointer is over another place; nothing: it left the sheet.
    virtual void pointerMoved(const std::optional<CanvasCell>& /*place*/) {}
    virtual void eventMenuRequested(MapCell /*cell*/, int /*x*/, int /*y*/) {}
    virtual void eventEditRequested(std::size_t /*event*/) {}
    /// A command of the table, from the keyboard or the wheel.
    virtual void commandRequested(int /*command*/, int /*argument*/) {}
    virtual void panelsToggled() {}
    virtual void copyRequested() {}
    virtual void pasteRequested(MapCell /*cell*/) {}
    virtual void deleteRequested() {}
    virtual void createRequested(MapCell /*cell*/) {}
};

/// The sheet of graph paper: shows the open map and hands gestures to its editor. The left button
/// writes, the right one picks and erases, the middle one moves the sheet, the wheel scrolls it,
/// with Ctrl zooms about the pointer.
///
/// It keeps its own surface between paintings; a stroke repaints the cells it changed.
class MapCanvas final : public Component, private MapEditorListener
{
  public:
    explicit MapCanvas(WizMapEditor& editor);
    ~MapCanvas() override;

    void setListener(MapCanvasListener* next) { listener = next; }
    void setOptions(const CanvasOptions& options);
    const CanvasOptions& getOptions() const { return painter.getOptions(); }
    void setPalette(const CanvasPalette& palette);
    void reloadImages();

    const CanvasView& getView() const { return painter.getView(); }
    /// Window pixels that the sheet is moved left and up, kept in its range.
    void scrollTo(int x, int y);
    void reveal(MapCell cell);
    void centreOn(MapCell cell);
    /// Scroll bars beside the canvas follow it and move it.
    void setScrollStrips(ScrollStrip& level, ScrollStrip& upright);
    const std::optional<CanvasCell>& getHover() const { return hover; }

    MessageResult windowProc(NativeHandle window, std::uint32_t message, WordParam wParam,
                             LongParam lParam) override;
    void onSize(int width, int height) override;
    bool onLeftDown(const MouseEvent& event) override;
    bool onLeftUp(const MouseEvent& event) override;
    bool onLeftDoubleClick(const MouseEvent& event) override;
    bool onRightDown(const MouseEvent& event) override;
    bool onRightUp(const MouseEvent& event) override;
    bool onRightDoubleClick(const MouseEvent& event) override;
    bool onMiddleDown(const MouseEvent& event) override;
    bool onMiddleUp(const MouseEvent& event) override;
    bool onMouseMove(const MouseEvent& event) override;
    bool onMouseWheel(const MouseEvent& event, int delta) override;
    void onMouseEnter() override {}
    void onMouseLeave() override;
    bool onKeyDown(int key, std::uint32_t flags) override;

  private:
    void mapLoaded() override;
    void cellsChanged(const CellRect&) override { schedule(); }
    void eventsChanged() override { schedule(); }
    void areasChanged(const CellRect&) override { schedule(); }
    void tileSelected(int) override { schedule(); }
    void eventSelected(std::optional<std::size_t>) override { schedule(); }
    void toolChanged() override { schedule(); }
    void bandChanged() override { schedule(); }
    void gestureChanged() override { schedule(); }
    void walkerMoved() override;
    void viewChanged() override;

    void schedule();
    void paintNow();
    void applyView(CanvasView view);
    void showScroll();
    void hoverAt(Point point);
    /// The cell of the map under a point; nothing: beside the map.
    std::optional<MapCell> mapCellAt(Point point) const;
    void press(MouseButton button, Point point);
    void release(MouseButton button, Point point);
    bool followWarp(Point point);
    void scrollAtBorder(Point point);
    bool walk(int key, std::uint32_t flags);
    void pasteAtPointer();
    void pickDigit(int digit);

    WizMapEditor& editor;
    MapPainter painter;
    Graphics surface;
    MapCanvasListener* listener = nullptr;
    ScrollStrip* levelStrip = nullptr;
    ScrollStrip* uprightStrip = nullptr;
    std::optional<CanvasCell> hover;
    std::optional<Point> grabbed; ///< where the middle button holds the sheet
    Point pointer;
    std::optional<Point> zoomAnchor;
    bool scheduled = false;
    std::shared_ptr<bool> alive = std::make_shared<bool>(true); ///< for posted paintings
};

/// The canvas between its scroll bars.
class CanvasPane final : public GroupComponent
{
  public:
    explicit CanvasPane(WizMapEditor& editor);
    MapCanvas& getCanvas() { return canvas; }
    void onCreate() override;

  private:
    MapCanvas canvas;
    ScrollStrip level{ScrollStrip::Axis::Level}, upright{ScrollStrip::Axis::Upright};
};

} // namespace varn
