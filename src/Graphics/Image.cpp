#include "Graphics/Image.h"

#include "Util/ProjectPath.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace varn {

Image::Image(const Image& other) : loaded(other.loaded)
{
    bitmap.copyFrom(other.bitmap);
    bitmap.setAlphaChannel(other.bitmap.hasAlphaChannel());
    bitmap.setColorKeyEnabled(other.bitmap.isColorKeyEnabled());
    if (other.bitmap.getColorKey() != Bitmap::kNoKey)
        bitmap.setColorKey(other.bitmap.getColorKey());
}

bool Image::create(int width, int height)
{
    loaded = bitmap.create(std::min(width, kSideLimit), std::min(height, kSideLimit));
    return loaded;
}

bool Image::load(WStringView path)
{
    loaded = false;
    loaded = bitmap.load(path);
    columns = std::max(1, bitmap.getWidth() / tileWidth);
    rows = std::max(1, bitmap.getHeight() / tileHeight);
    return loaded;
}

void Image::unload()
{
    loaded = false;
    bitmap.clear();
}

WStringView Image::getFileName() const
{
    return fileNameOf(bitmap.getPath());
}

std::uint32_t Image::getColorKeyRgb() const
{
    const std::uint32_t key = getColorKey();
    return (key & 0xFF00FF00) | (key & 0xFF) << 16 | (key >> 16 & 0xFF);
}

void Image::fill(std::uint8_t value)
{
    if (!bitmap.isEmpty())
        std::memset(bitmap.getBits(), value, bitmap.byteCount());
}

Image Image::createScaledCopy(int width, int height) const
{
    Image copy(*this);
    if (!copy.create(width, height) || bitmap.isEmpty())
        return copy;
    const double stepX = static_cast<double>(getWidth()) / copy.getWidth();
    const double stepY = static_cast<double>(getHeight()) / copy.getHeight();
    std::vector<int> sourceColumns(static_cast<std::size_t>(copy.getWidth()));
    double at = 0;
    for (int& column : sourceColumns) {
        column = std::min(static_cast<int>(at), getWidth() - 1);
        at += stepX;
    }
    const std::uint32_t opaque = bitmap.hasAlphaChannel() ? 0 : 0xFF000000;
    at = 0;
    for (int y = 0; y < copy.getHeight(); ++y, at += stepY) {
        const int row = static_cast<int>(at);
        if (row >= getHeight())
            break;
        for (int x = 0; x < copy.getWidth(); ++x)
            copy.bitmap.setPixelRgba(
                x, y,
                bitmap.getPixelValue(sourceColumns[static_cast<std::size_t>(x)], row) | opaque);
    }
    return copy;
}

} // namespace varn
