#include "MapEditor3D/frame/dialogs/PictureView.h"

#include "Component/Theme.h"
#include "MapEditor3D/canvas/TileStrip.h"
#include "Util/Exception.h"

#include <algorithm>

namespace varn {

namespace {

constexpr int kSquare = 8;
constexpr std::uint32_t kLightSquare = 0xE8E8E8, kDarkSquare = 0xD0D0D0;

/// The ground that shows through where a picture is clear.
void paintChequers(Graphics& graphics, const Rect& place, int side)
{
    for (int y = place.top; y < place.bottom; y += side)
        for (int x = place.left; x < place.right; x += side) {
            const bool dark = ((x - place.left) / side + (y - place.top) / side) % 2 != 0;
            graphics.setFillColor(dark ? kDarkSquare : kLightSquare);
            graphics.fillRect(x, y, std::min(side, place.right - x),
                              std::min(side, place.bottom - y));
        }
}

} // namespace

PictureView::PictureView()
{
    setAccessibleName(u"Preview");
}

void PictureView::onCreate()
{
    setMinimumSize(160, 120);
    setTabStop(false);
}

bool PictureView::setFile(WStringView path)
{
    Image next;
    bool loaded = path.empty();
    try {
        loaded = loaded || next.load(path);
    } catch (const Exception&) {
        next = Image(); // the caller says that it cannot be read
    }
    image = std::move(next);
    repaint();
    return loaded;
}

void PictureView::setMagnification(double next)
{
    magnification = next;
    repaint();
}

void PictureView::paint(Graphics& graphics, const Rect&)
{
    graphics.setFillColor(theme().face);
    graphics.fillRect(0, 0, graphics.getWidth(), graphics.getHeight());
    const int width = image.getWidth(), height = image.getHeight();
    if (width <= 0 || height <= 0)
        return;
    const double fit = std::min(static_cast<double>(graphics.getWidth()) / width,
                                static_cast<double>(graphics.getHeight()) / height);
    double zoom = magnification > 0 ? magnification * getScale() : fit;
    if (magnification <= 0 && zoom > 1)
        zoom = static_cast<int>(zoom); // pixel art keeps even pixels
    const int shownWidth = std::max(1, static_cast<int>(width * zoom));
    const int shownHeight = std::max(1, static_cast<int>(height * zoom));
    const Rect place((graphics.getWidth() - shownWidth) / 2,
                     (graphics.getHeight() - shownHeight) / 2, shownWidth, shownHeight);
    paintChequers(graphics, place, static_cast<int>(kSquare * getScale()));
    if (zoom < 1)
        graphics.drawImage(scaledPart(image, image.getBounds(), shownWidth, shownHeight),
                           place.left, place.top);
    else
        graphics.drawImage(image, place, image.getBounds());
}

} // namespace varn
