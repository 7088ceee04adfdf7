#include "Graphics/Graphics.h"

#include "Graphics/Blit.h"
#include "Graphics/PixelLoops.h"
#include "Graphics/WindowSkin.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace varn {

namespace {

constexpr WStringView kLineEnds = u"\r\n";

std::uint32_t toPixelOrder(std::uint32_t colourReference)
{
    return (colourReference & 0xFF00) | (colourReference & 0xFF) << 16 |
           (colourReference >> 16 & 0xFF);
}

ShapeStyle hollow(std::uint32_t pen, int width)
{
    return {.filled = false, .outlined = true, .pen = pen, .penWidth = width};
}

} // namespace

void Graphics::setPen(std::uint32_t colour, int width)
{
    penColor = colour;
    penWidth = width;
}

void Graphics::drawTo(Graphics& target, int x, int y) const
{
    copyBitmap(target.getBitmap(), getBitmap(), x + originX, y + originY);
}

void Graphics::fillRect(const Rect& rect)
{
    fillRect(rect, fillColor, 255);
}

void Graphics::fillRect(const Rect& rect, std::uint32_t colour, std::uint8_t opacity)
{
    const int left = std::max(0, rect.x), top = std::max(0, rect.y);
    const int width = std::min(rect.width - (left - rect.x), getWidth() - left);
    const int height = std::min(rect.height - (top - rect.y), getHeight() - top);
    if (opacity == 0 || width < 1 || height < 1)
        return;
    Bitmap& bitmap = getBitmap();
    for (int row = top; row < top + height; ++row)
        blendColour(toPixelOrder(colour), opacity,
                    bitmap.getBits() + static_cast<std::size_t>(row) * bitmap.getStride() +
                        static_cast<std::size_t>(left) * 4,
                    static_cast<std::size_t>(width));
}

void Graphics::fillPolygon(std::span<const Point> points)
{
    raster().drawPolygon(getBitmap(), points,
                         {.filled = true,
                          .fill = fillColor,
                          .outlined = true,
                          .pen = penColor,
                          .penWidth = penWidth});
}

void Graphics::drawLine(int x1, int y1, int x2, int y2, std::uint32_t colour)
{
    const bool current = colour == kCurrentPen;
    raster().drawLine(getBitmap(), {x1, y1}, {x2, y2}, current ? penColor : colour,
                      current ? penWidth : 0);
}

void Graphics::drawPolygon(std::span<const Point> points, int width, std::uint32_t colour)
{
    for (std::size_t i = 0; i < points.size(); ++i)
        raster().drawLine(getBitmap(), points[i], points[(i + 1) % points.size()], colour, width);
}

void Graphics::fillRoundRect(int x, int y, int width, int height, int cornerWidth, int cornerHeight)
{
    raster().drawRoundRect(getBitmap(), {x, y, width, height}, cornerWidth, cornerHeight,
                           {.filled = true,
                            .fill = fillColor,
                            .outlined = true,
                            .pen = penColor,
                            .penWidth = penWidth});
}

void Graphics::drawRoundRect(int x, int y, int width, int height, int cornerWidth, int cornerHeight)
{
    raster().drawRoundRect(getBitmap(), {x, y, width, height}, cornerWidth, cornerHeight,
                           hollow(penColor, penWidth));
}

void Graphics::fillOval(int x, int y, int width, int height)
{
    raster().drawEllipse(getBitmap(), {x, y, width, height},
                         {.filled = true,
                          .fill = fillColor,
                          .outlined = true,
                          .pen = penColor,
                          .penWidth = penWidth});
}

void Graphics::fillArc(int x, int y, int width, int height, int startDegrees, int sweepDegrees)
{
    const int radiusX = width >> 1, radiusY = height >> 1;
    const auto pointAt = [&](int degrees) {
        const double angle = degrees * std::numbers::pi / 180;
        return Point{static_cast<int>(x + radiusX + std::cos(angle) * radiusX),
                     static_cast<int>(y + radiusY - std::sin(angle) * radiusY)};
    };
    raster().drawPie(getBitmap(), {x, y, width, height}, pointAt(startDegrees),
                     pointAt(startDegrees + sweepDegrees),
                     {.filled = true,
                      .fill = fillColor,
                      .outlined = true,
                      .pen = penColor,
                      .penWidth = penWidth});
}

void Graphics::drawFramedRect(const Rect& rect, int width, std::uint32_t innerColor,
                              std::uint32_t outerColor)
{
    raster().drawRect(getBitmap(), rect, hollow(outerColor, width));
    raster().drawRect(getBitmap(), rect, hollow(innerColor, width - 1));
}

void Graphics::drawImage(const Image& picture, const Rect& target, const Rect& source)
{
    const Bitmap& bitmap = picture.getBitmap();
    const bool plain = !bitmap.isColorKeyEnabled() && !bitmap.hasAlphaChannel();
    const Rect shifted(target.x - originX, target.y - originY, target.width, target.height);
    blitImage(getBitmap(), picture, plain ? shifted : target, source);
}

void Graphics::drawImage(const Image& picture, int x, int y)
{
    drawImage(picture, {x, y, picture.getWidth(), picture.getHeight()}, picture.getBounds());
}

void Graphics::drawImageToQuad(const Image& picture, const QuadCorners& corners)
{
    varn::drawImageToQuad(picture, corners, getBitmap());
}

void Graphics::drawFrame(const Image& skin, int x, int y, int width, int height)
{
    if (skin.getBitmap().isEmpty()) {
        drawFrame(makePlainSkin(), x, y, width, height);
        return;
    }
    walkFrame(x, y, width, height,
              [&](const Rect& target, const Rect& source) { drawImage(skin, target, source); });
}

int Graphics::getStringWidth(WStringView text) const
{
    if (text.find_first_of(kLineEnds) == WStringView::npos)
        return raster().measureText(font, text);
    std::uint16_t widest = 0;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of(kLineEnds), text.size());
        widest = std::max(
            widest, static_cast<std::uint16_t>(raster().measureText(font, text.substr(0, end))));
        text.remove_prefix(std::min(text.find_first_not_of(kLineEnds, end), text.size()));
    }
    return widest;
}

void Graphics::drawLineOfText(WStringView line, int x, int y)
{
    if (textAlign == TextAlign::Right)
        x -= raster().measureText(font, line);
    else if (textAlign == TextAlign::Center)
        x -= raster().measureText(font, line) / 2;
    raster().drawText(getBitmap(), font, line, x, y, textColor);
}

void Graphics::drawString(WStringView text, int x, int y)
{
    const int advance = raster().measureFont(font).height + lineGap;
    for (std::size_t end = text.find(u'\n'); end != WStringView::npos; end = text.find(u'\n')) {
        const WStringView line = text.substr(0, end);
        drawLineOfText(line.substr(0, line.find(u'\r')), x, y);
        y += advance;
        text.remove_prefix(end + 1);
    }
    drawLineOfText(text, x, y);
}

void Graphics::drawBorderString(WStringView text, int x, int y, std::uint32_t colour,
                                std::uint32_t border)
{
    const std::uint32_t before = textColor;
    textColor = border;
    for (const auto& [dx, dy] : {Point{-1, 0}, Point{0, -1}, Point{1, 0}, Point{0, 1}})
        drawString(text, x + dx, y + dy);
    textColor = colour;
    drawString(text, x, y);
    textColor = before;
}

void makeDisabledIcon(Bitmap& icon, std::uint32_t transparentColour)
{
    constexpr int kLift = 96, kBrightest = 160;
    for (int y = 0; y < icon.getHeight(); ++y) {
        for (int x = 0; x < icon.getWidth(); ++x) {
            const std::uint32_t colour = icon.getPixelColor(x, y);
            if (colour == transparentColour)
                continue;
            const std::uint32_t grey =
                (77 * (colour & 0xFF) + 151 * (colour >> 8 & 0xFF) + 28 * (colour >> 16 & 0xFF)) /
                256;
            const std::uint32_t lifted = grey < kBrightest ? grey + kLift : 255;
            icon.setPixelRgb(x, y, lifted | lifted << 8 | lifted << 16);
        }
    }
}

} // namespace varn
