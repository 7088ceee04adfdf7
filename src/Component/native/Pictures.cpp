#include "Component/native/Pictures.h"

#include <QImage>

namespace varn::native {

QPixmap pixmapOf(const Bitmap& bitmap, double scale)
{
    const QImage::Format format =
        bitmap.hasAlphaChannel() ? QImage::Format_ARGB32 : QImage::Format_RGB32;
    const QImage image(bitmap.getBits(), bitmap.getWidth(), bitmap.getHeight(), bitmap.getStride(),
                       format);
    QPixmap pixmap = QPixmap::fromImage(image.copy());
    pixmap.setDevicePixelRatio(scale);
    return pixmap;
}

} // namespace varn::native
