#pragma once

#include "Graphics/Bitmap.h"
#include "Util/Rect.h"
#include "Util/Text.h"

#include <cstdint>
#include <span>
#include <vector>

namespace varn {

struct Point
{
    int x = 0, y = 0;
};

/// A font as it is asked for. A family that the machine lacks is drawn in the tool's own.
struct FontSpec
{
    WString family = u"MS Gothic";
    int height = 12; ///< pixels of a line
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikeOut = false;
    bool antialias = false;

    bool operator==(const FontSpec&) const = default;
};

/// Pixels, all measured from the top of a line.
struct FontMetrics
{
    int height = 0;
    int ascent = 0;
    int descent = 0;
};

/// Pen and fill of a shape, as colour references; either can be absent.
struct ShapeStyle
{
    bool filled = false;
    std::uint32_t fill = 0;
    bool outlined = true;
    std::uint32_t pen = 0xFFFFFF;
    int penWidth = 0; ///< 0 and 1: one pixel
};

/// Geometry and text on a bitmap's pixels, by the platform's raster library: everything that the
/// pixel loops do not do themselves. Without antialiasing the same call gives the same bytes on
/// every machine. Nothing is drawn outside the bitmap; alpha bytes of touched pixels are not
/// defined. Several threads may draw at once, on bitmaps of their own.
class Raster
{
  public:
    virtual ~Raster() = default;

    /// Both end points included.
    virtual void drawLine(Bitmap& target, Point from, Point to, std::uint32_t colour,
                          int penWidth) = 0;
    virtual void drawPolygon(Bitmap& target, std::span<const Point> points,
                             const ShapeStyle& style) = 0;
    virtual void drawRect(Bitmap& target, const Rect& rect, const ShapeStyle& style) = 0;
    virtual void drawRoundRect(Bitmap& target, const Rect& rect, int cornerWidth, int cornerHeight,
                               const ShapeStyle& style) = 0;
    virtual void drawEllipse(Bitmap& target, const Rect& rect, const ShapeStyle& style) = 0;
    /// The part of the ellipse from one direction counter-clockwise to another; both are points
    /// that the direction runs through from the centre.
    virtual void drawPie(Bitmap& target, const Rect& rect, Point from, Point to,
                         const ShapeStyle& style) = 0;

    /// One line of text, its top left at (x, y), the background untouched. Tabs go to the next
    /// stop.
    virtual void drawText(Bitmap& target, const FontSpec& font, WStringView line, int x, int y,
                          std::uint32_t colour) = 0;
    virtual int measureText(const FontSpec& font, WStringView line) = 0;
    virtual FontMetrics measureFont(const FontSpec& font) = 0;
    virtual std::vector<WString> fontFamilies() = 0;
};

/// The raster library, loaded at the first call: a program that draws no text starts without it.
/// @throws Exception  the library is not installed beside the program
Raster& raster();

/// Puts another in force, for a program that links the library itself; borrowed. Before any thread
/// draws.
void setRaster(Raster* next);

} // namespace varn
