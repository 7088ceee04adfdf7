#pragma once

#include "Component/Component.h"
#include "Graphics/Image.h"
#include "MapEditor3D/generators/PhotoToMap.h"

#include <optional>

namespace varn {

/// The picture of a hand-drawn map with the grid over it, without the colours that are no walls,
/// and the walls that were recognised. A right click, or a drag with the right button, takes a
/// colour out; a left one brings it back. The wheel zooms about the pointer, the middle button
/// moves the picture.
class PhotoImageWindow final : public Component
{
  public:
    PhotoImageWindow();

    /// @throws Exception  the picture cannot be read; the one before stays
    void open(WStringView path);
    void setImage(Image&& picture);
    const Bitmap& getImage() const { return image.getBitmap(); }

    PhotoOptions& getOptions() { return options; }
    /// Options were changed through `getOptions`.
    void optionsChanged();
    /// How many cells of the grid the picture holds.
    int getGridColumns() const;
    int getGridRows() const;
    /// 0xRRGGBB of the pixel last under the pointer.
    std::uint32_t getCursorColour() const { return cursorColour; }

    /// The walls recognised, borrowed; null: none are shown.
    void setRecognised(const WizMap* map);

    /// A colour was taken out or brought back.
    std::function<void()> onMask;
    /// The pointer stands on another colour.
    std::function<void()> onCursor;
    std::function<void(const std::filesystem::path&)> onDrop;

    void onCreate() override;
    void onDropFiles(const std::vector<std::filesystem::path>& names) override;
    void onSize(int width, int height) override;
    bool onLeftDown(const MouseEvent& event) override;
    bool onRightDown(const MouseEvent& event) override;
    bool onMiddleDown(const MouseEvent& event) override;
    bool onLeftUp(const MouseEvent& event) override;
    bool onRightUp(const MouseEvent& event) override;
    bool onMiddleUp(const MouseEvent& event) override;
    bool onMouseMove(const MouseEvent& event) override;
    bool onMouseWheel(const MouseEvent& event, int delta) override;

  protected:
    void paint(Graphics& graphics, const Rect& dirty) override;

  private:
    enum class Gesture
    {
        None,
        Mask,
        Unmask,
        Pan
    };

    void fit();
    void refilter();
    void begin(Gesture next, const MouseEvent& event);
    void touch(const MouseEvent& event);
    std::optional<Point> pixelAt(int x, int y) const;
    Point toDevice(double x, double y) const;
    void paintGrid(Graphics& graphics);
    void paintRecognised(Graphics& graphics);

    Image image;    ///< as it was opened
    Image filtered; ///< with what is hidden in the background colour
    PhotoOptions options;
    const WizMap* recognised = nullptr;
    std::uint32_t cursorColour = 0;
    double zoom = 1;          ///< window pixels of a pixel
    double left = 0, top = 0; ///< pixel of the picture in the window's corner
    Gesture gesture = Gesture::None;
    Point panFrom;
};

} // namespace varn
