#include "Graphics/Bitmap.h"

#include "Graphics/BmpFile.h"
#include "Graphics/GifFile.h"
#include "Graphics/JpegFile.h"
#include "Graphics/PngFile.h"
#include "Util/File.h"
#include "Util/FileLogger.h"

#include <cstring>

namespace varn {

namespace {

constexpr int kBytesPerPixel = 4;

WString extensionOf(WStringView path)
{
    return WString(path.substr(withoutExtension(path).size()));
}

bool isExtension(WStringView path, WStringView extension)
{
    return equalsIgnoringAsciiCase(extensionOf(path), extension);
}

bool isPictureExtension(WStringView path)
{
    return isExtension(path, u".gif") || isExtension(path, u".jpg") || isExtension(path, u".jpeg");
}

/// The extension that a file of any name has by its first bytes; empty for none of ours.
WStringView extensionByContent(std::string_view bytes)
{
    if (bytes.size() < 16)
        return {};
    if (bytes.substr(1, 3) == "PNG")
        return u".png";
    if (bytes.starts_with("GIF"))
        return u".gif";
    if (bytes.starts_with("\xFF\xD8"))
        return u".jpg";
    return bytes.starts_with("BM") ? WStringView(u".bmp") : WStringView();
}

/// What a file that cannot be read is reported as, by the loader that its extension selects.
Exception unreadable(WStringView path)
{
    if (isExtension(path, u".png"))
        return Exception(u"Couldn't open " + WString(path), u"Bitmap::LoadPNGFile");
    if (isExtension(path, u".bmp"))
        return Exception(WString(path), u"Bitmap::load");
    return Exception(WString(path), u"Bitmap::LoadGIFFile");
}

} // namespace

bool Bitmap::neutralNames = false;

bool Bitmap::makeSurface(const InfoHeader& header)
{
    const std::size_t rowBytes = static_cast<std::size_t>(header.width) * kBytesPerPixel;
    const std::size_t rows = static_cast<std::size_t>(-static_cast<std::int64_t>(header.height));
    auto* pixels = static_cast<std::uint8_t*>(std::calloc(rows, rowBytes));
    if (!pixels)
        return false;
    bits.reset(pixels);
    info = header;
    stride = static_cast<int>(rowBytes);
    return true;
}

void Bitmap::applyAlphaRule()
{
    if (!hasAlpha)
        return;
    std::uint8_t* const pixels = bits.get();
    for (std::size_t at = 3; at < byteCount(); at += kBytesPerPixel)
        pixels[at] = 255;
}

bool Bitmap::create(int width, int height)
{
    if (width == 0 || height == 0)
        return false;
    const WString sides = u"W" + toDecimal(width) + u", H" + toDecimal(height);
    if (width < 0) {
        FileLogger::instance().write(
            u"InvalidParamException: Cannot create bitmap with width less than 0. " + sides);
        return false;
    }
    const std::int64_t rows = height < 0 ? -static_cast<std::int64_t>(height) : height;
    if (width >= kSideLimit || rows >= kSideLimit) {
        FileLogger::instance().write(
            u"InvalidParamException: Cannot create bitmaps with more than " +
            toDecimal(kSideLimit) + u" pixels. " + sides);
        return false;
    }
    errorText.clear();
    clear();
    InfoHeader header;
    header.size = 40;
    header.width = width;
    header.height = static_cast<std::int32_t>(-rows);
    header.planes = 1;
    header.bitCount = 32;
    if (makeSurface(header))
        applyAlphaRule();
    return true;
}

void Bitmap::clear()
{
    bits.reset();
    info = {};
    stride = 0;
}

bool Bitmap::load(WStringView file)
{
    errorText.clear();
    clear();
    const bool known =
        isExtension(file, u".png") || isExtension(file, u".bmp") || isPictureExtension(file);
    if (neutralNames && !isFile(file)) {
        const WString neutral = WString(withoutExtension(file)) + u".dat";
        if (const auto bytes = readFile(resolveProjectPath(neutral))) {
            const WStringView extension = extensionByContent(*bytes);
            loadBytes(asBytes(*bytes), WString(withoutExtension(file)) + WString(extension));
            if (!isEmpty())
                path = neutral;
            return true;
        }
    }
    const std::optional<std::string> bytes =
        known ? readFile(resolveProjectPath(file)) : std::nullopt;
    if (!bytes) {
        path.clear();
        throw unreadable(file);
    }
    return loadBytes(asBytes(*bytes), file);
}

bool Bitmap::loadBytes(ByteSpan bytes, WStringView file)
{
    errorText.clear();
    clear();
    path.clear();
    if (isExtension(file, u".png")) {
        readPng(bytes, file, *this);
    } else if (isExtension(file, u".bmp")) {
        if (bytes.empty())
            throw Exception(u"Failed GetFileSize", u"Bitmap::load");
        readBmp(bytes, *this);
        if (isEmpty())
            return true;
        applyAlphaRule();
        setColorKey(getPixelColor(0, 0));
    } else if (isExtension(file, u".gif")) {
        readGif(bytes, file, *this);
        applyAlphaRule();
    } else if (isPictureExtension(file)) {
        readJpeg(bytes, file, *this);
        applyAlphaRule();
    } else {
        throw unreadable(file);
    }
    path = file;
    return true;
}

bool Bitmap::saveAs(WStringView file)
{
    errorText.clear();
    if (isEmpty()) {
        errorText = u"Bitmap is empty.";
        return false;
    }
    if (info.bitCount != 32 && info.bitCount != 24) {
        errorText = u"Bitmap.saveAs() 32/24 Bits is not supported";
        return false;
    }
    if (isExtension(file, u".png")) {
        if (!hasAlpha) {
            for (std::size_t at = 3; at < byteCount(); at += kBytesPerPixel)
                bits[at] = 255;
        }
        const std::string bytes = writePng(*this);
        return !bytes.empty() && replaceFile(resolveProjectPath(file), asBytes(bytes));
    }
    if (replaceFile(resolveProjectPath(file), asBytes(writeBmp(*this))))
        return true;
    errorText = u"Couldn't crate Bitmap File";
    return false;
}

std::uint32_t Bitmap::getPixelValue(int x, int y) const
{
    const std::uint8_t* const pixel = bits.get() + static_cast<std::size_t>(y) * stride +
                                      static_cast<std::size_t>(x) * kBytesPerPixel;
    std::uint32_t value;
    std::memcpy(&value, pixel, sizeof value);
    return value;
}

void Bitmap::setPixelRgb(int x, int y, std::uint32_t value)
{
    std::uint8_t* const pixel = bits.get() + static_cast<std::size_t>(y) * stride +
                                static_cast<std::size_t>(x) * kBytesPerPixel;
    pixel[0] = static_cast<std::uint8_t>(value);
    pixel[1] = static_cast<std::uint8_t>(value >> 8);
    pixel[2] = static_cast<std::uint8_t>(value >> 16);
}

void Bitmap::setPixelRgba(int x, int y, std::uint32_t value)
{
    std::uint8_t* const pixel = bits.get() + static_cast<std::size_t>(y) * stride +
                                static_cast<std::size_t>(x) * kBytesPerPixel;
    std::memcpy(pixel, &value, sizeof value);
}

std::uint32_t Bitmap::getPixelColor(int x, int y) const
{
    const std::uint32_t value = getPixelValue(x, y);
    return (value >> 16 & 0xFF) | (value & 0xFF00) | (value & 0xFF) << 16;
}

void Bitmap::copyFrom(const Bitmap& other)
{
    if (&other == this)
        return;
    clear();
    if (!other.isEmpty() && makeSurface(other.info))
        std::memcpy(bits.get(), other.bits.get(), byteCount());
    path = other.path;
    errorText = other.errorText;
}

} // namespace varn
