#pragma once

#include "Graphics/Image.h"

#include <QImage>
#include <cstring>

namespace varn::bench {

inline constexpr int kWidth = 640, kHeight = 480;

/// A picture like a game's: opaque inside, clear outside, a soft edge between; the rest of the
/// colour is a pattern.
inline void paintSprite(Bitmap& bitmap)
{
    for (int y = 0; y < bitmap.getHeight(); ++y) {
        for (int x = 0; x < bitmap.getWidth(); ++x) {
            const int fromEdge = std::min(std::min(x, bitmap.getWidth() - 1 - x),
                                          std::min(y, bitmap.getHeight() - 1 - y));
            const int alpha = std::clamp((fromEdge - 40) * 16, 0, 255);
            bitmap.setPixelRgba(x, y,
                                static_cast<std::uint32_t>(alpha) << 24 |
                                    (static_cast<std::uint32_t>(x * 7 ^ y * 13) & 0xFFFFFF));
        }
    }
}

inline Image makeSprite(int width, int height, bool alpha)
{
    Image image;
    image.getBitmap().setAlphaChannel(alpha);
    image.create(width, height);
    paintSprite(image.getBitmap());
    return image;
}

inline QImage wrap(Bitmap& bitmap, QImage::Format format)
{
    return {bitmap.getBits(), bitmap.getWidth(), bitmap.getHeight(), bitmap.getStride(), format};
}

} // namespace varn::bench
