#pragma once

#include "Util/Bytes.h"
#include "Util/Text.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>

namespace varn {

/// The one pixel buffer of the system: 32-bit pixels, rows from the top, each pixel the bytes blue,
/// green, red, alpha. Empty, or live with at least one pixel. It reads .png, .bmp, .gif, .jpg and
/// .jpeg and writes .png and .bmp.
class Bitmap
{
  public:
    /// A side must lie below this.
    static constexpr int kSideLimit = 32767;
    /// The key of a fresh bitmap: equal to no pixel's colour.
    static constexpr std::uint32_t kNoKey = 0xFF000000;

    /// The 40-byte information header of a Windows bitmap, in the form the file wants it.
    struct InfoHeader
    {
        std::uint32_t size = 0;
        std::int32_t width = 0;
        std::int32_t height = 0; ///< negative: rows run from the top
        std::uint16_t planes = 0;
        std::uint16_t bitCount = 0;
        std::uint32_t compression = 0;
        std::uint32_t imageSize = 0;
        std::int32_t xPelsPerMeter = 0;
        std::int32_t yPelsPerMeter = 0;
        std::uint32_t coloursUsed = 0;
        std::uint32_t coloursImportant = 0;
    };

    Bitmap() = default;
    Bitmap(const Bitmap&) = delete;
    Bitmap& operator=(const Bitmap&) = delete;
    Bitmap(Bitmap&&) noexcept = default;
    Bitmap& operator=(Bitmap&&) noexcept = default;

    /// Makes zeroed pixels, opaque when the bitmap has alpha. A negative height counts as positive.
    /// False: a side is 0 (silent), negative or too large (logged); the old pixels stay.
    bool create(int width, int height);
    /// Becomes empty; the colour key, its switch and the alpha flag stay.
    void clear();

    /// Loads a project file by its extension. The bitmap is empty afterwards when the file is
    /// refused: silently for a BMP of another kind, else by an Exception with its location.
    bool load(WStringView path);
    /// While set, a picture that is missing under its own name is looked for under the neutral
    /// extension ".dat", and its first bytes tell what it is. For games that hide their pictures;
    /// the tool leaves it off.
    static bool neutralNames;
    /// The same off bytes in memory; `path` gives the extension and stands in the sentences.
    bool loadBytes(ByteSpan bytes, WStringView path);
    /// Writes .png or, under any other extension, a 32-bit Windows bitmap. False: see
    /// getErrorText(). Writing a PNG of a bitmap without alpha sets the alpha bytes of the bitmap
    /// itself to 255.
    bool saveAs(WStringView path);

    const WString& getPath() const { return path; }
    const WString& getErrorText() const { return errorText; }
    int getWidth() const { return info.width; }
    int getHeight() const { return info.height < 0 ? -info.height : info.height; }
    int getBitsPerPixel() const { return info.bitCount; }
    int getRowBytes() const { return getStride(); }
    /// Bytes a row.
    int getStride() const { return stride; }
    std::uint8_t* getBits() { return bits.get(); }
    const std::uint8_t* getBits() const { return bits.get(); }
    bool isEmpty() const { return !bits; }
    std::size_t byteCount() const { return static_cast<std::size_t>(stride) * getHeight(); }
    const InfoHeader& getInfo() const { return info; }

    // Single pixels, without a bounds check. Values have blue in the low byte, alpha in the top
    // one.
    std::uint32_t getPixelValue(int x, int y) const;
    void setPixelRgb(int x, int y, std::uint32_t value);
    void setPixelRgba(int x, int y, std::uint32_t value);
    /// The pixel's colour reference, 0x00BBGGRR.
    std::uint32_t getPixelColor(int x, int y) const;

    std::uint32_t getColorKey() const { return colorKey; }
    void setColorKey(std::uint32_t colour) { colorKey = colour & 0xFFFFFF; }
    bool isColorKeyEnabled() const { return colorKeyEnabled; }
    void setColorKeyEnabled(bool enabled) { colorKeyEnabled = enabled; }
    bool hasAlphaChannel() const { return hasAlpha; }
    void setAlphaChannel(bool alpha) { hasAlpha = alpha; }

    /// Takes over pixels, header, path and error text; not the key, its switch and the alpha flag.
    void copyFrom(const Bitmap& other);

  private:
    friend void readBmp(ByteSpan bytes, Bitmap& into);

    struct Free
    {
        void operator()(std::uint8_t* pixels) const { std::free(pixels); }
    };

    bool makeSurface(const InfoHeader& header);
    /// With alpha, every pixel becomes opaque.
    void applyAlphaRule();

    std::uint32_t colorKey = kNoKey;
    bool colorKeyEnabled = true;
    bool hasAlpha = false;
    std::unique_ptr<std::uint8_t[], Free> bits;
    InfoHeader info;
    int stride = 0;
    WString path;
    WString errorText;
};

/// What a BMP, GIF or JPEG file of so many bytes can hold at the best; a size beyond it is a lie
/// that would only cost memory.
inline bool isPlausibleSize(std::uint64_t width, std::uint64_t height, std::size_t fileBytes)
{
    return width * height <= 4096 * static_cast<std::uint64_t>(fileBytes) + 65536;
}

} // namespace varn
