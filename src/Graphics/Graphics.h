#pragma once

#include "Graphics/Image.h"
#include "Graphics/Quad.h"
#include "Graphics/Raster.h"

#include <span>
#include <vector>

namespace varn {

/// Where a text stands at its x.
enum class TextAlign : int
{
    Left = 0, ///< it begins there, as for any number that is none of these
    Right = 2,
    Center = 6
};

/// A drawing surface: an image that can be drawn on. Image blit, translucent rectangle, window-skin
/// frame and perspective quad work on the pixel bytes and are exact to the last bit; lines, shapes
/// and text go to the raster library.
///
/// Colours are colour references (0x00BBGGRR).
class Graphics
{
  public:
    static constexpr std::uint32_t kCurrentPen = 0xFFFFFFFF;

    Graphics() = default;
    Graphics(int width, int height) { setSize(width, height); }
    virtual ~Graphics() = default;
    Graphics(const Graphics&) = delete;
    Graphics& operator=(const Graphics&) = delete;

    /// Makes zeroed pixels, each side at most 4096; false when a side is not positive.
    bool setSize(int width, int height) { return image.create(width, height); }
    Image& getImage() { return image; }
    const Image& getImage() const { return image; }
    Bitmap& getBitmap() { return image.getBitmap(); }
    const Bitmap& getBitmap() const { return image.getBitmap(); }
    int getWidth() const { return image.getWidth(); }
    int getHeight() const { return image.getHeight(); }
    /// Origin and size.
    Rect getBounds() const { return {originX, originY, getWidth(), getHeight()}; }

    void setFillColor(std::uint32_t colour) { fillColor = colour; }
    std::uint32_t getFillColor() const { return fillColor; }
    void setTextColor(std::uint32_t colour) { textColor = colour; }
    void setPen(std::uint32_t colour, int width = 0);
    void selectFont(FontSpec spec) { font = std::move(spec); }
    const FontSpec& getFont() const { return font; }

    /// Copies this whole surface onto another, at (x, y) plus this surface's origin.
    void drawTo(Graphics& target, int x, int y) const;

    virtual void fillRect(const Rect& rect);
    void fillRect(int x, int y, int width, int height) { fillRect(Rect(x, y, width, height)); }
    /// Opacity 0 draws nothing, 255 fills plainly, else each channel is mixed.
    void fillRect(const Rect& rect, std::uint32_t colour, std::uint8_t opacity);
    void fillPolygon(std::span<const Point> points);
    void drawLine(int x1, int y1, int x2, int y2, std::uint32_t colour = kCurrentPen);
    /// The points joined in order, the last with the first.
    void drawPolygon(std::span<const Point> points, int penWidth, std::uint32_t colour);
    void fillRoundRect(int x, int y, int width, int height, int cornerWidth, int cornerHeight);
    void drawRoundRect(int x, int y, int width, int height, int cornerWidth, int cornerHeight);
    void fillOval(int x, int y, int width, int height);
    void fillArc(int x, int y, int width, int height, int startDegrees, int sweepDegrees);
    /// A hollow rectangle in the outer colour, then one with a pen narrower by 1 in the inner
    /// colour.
    void drawFramedRect(const Rect& rect, int penWidth, std::uint32_t innerColor,
                        std::uint32_t outerColor);

    /// Lays a picture over the surface: stretched from `source` to `target` by nearest neighbour,
    /// by key or alpha, tone and opacity (PixelLoops.h). A negative target width mirrors, starting
    /// at x and running left. A picture without an enabled key and without alpha is copied plainly:
    /// opacity and tone do not apply, and the target is shifted by minus the origin.
    void drawImage(const Image& picture, const Rect& target, const Rect& source);
    /// The whole picture at its own size.
    void drawImage(const Image& picture, int x, int y);
    void drawImageToQuad(const Image& picture, const QuadCorners& corners);
    /// The border of a window from a 64 by 64 skin of 16-pixel cells. Without a loaded skin a plain
    /// one of two white lines is used.
    void drawFrame(const Image& skin, int x, int y, int width, int height);

    /// Widest line of the text, in pixels.
    int getStringWidth(WStringView text) const;
    int getStringWidth(std::string_view text) const { return getStringWidth(widen(text)); }
    /// Lines are ended by LF; what stands behind a line's first CR is not drawn.
    void drawString(WStringView text, int x, int y);
    void drawString(std::string_view text, int x, int y) { drawString(widen(text), x, y); }
    /// The text with a border of one pixel.
    void drawBorderString(WStringView text, int x, int y, std::uint32_t colour,
                          std::uint32_t border);

    int originX = 0, originY = 0;
    int lineGap = 0;                       ///< extra pixels between lines of text
    TextAlign textAlign = TextAlign::Left; ///< of each line drawn

  private:
    void copyPlain(const Bitmap& picture, const Rect& target, const Rect& source);
    void drawLineOfText(WStringView line, int x, int y);

    Image image;
    FontSpec font;
    std::uint32_t fillColor = 1;
    std::uint32_t textColor = 0;
    std::uint32_t penColor = 0xFFFFFF;
    int penWidth = 0;
};

/// Grey of a disabled icon: every pixel but those of the transparent colour becomes its brightness,
/// lightened.
void makeDisabledIcon(Bitmap& icon, std::uint32_t transparentColour);

} // namespace varn
