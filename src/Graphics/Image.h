#pragma once

#include "Graphics/Bitmap.h"
#include "Graphics/Gradation.h"
#include "Util/Rect.h"

#include <optional>

namespace varn {

/// A bitmap with what a drawing call needs on top of pixels: tile grid, opacity, tone, gradation,
/// scale.
class Image
{
  public:
    /// A side of an image made by `create` is clamped to this.
    static constexpr int kSideLimit = 4096;

    Image() = default;
    /// Takes over the pixels, the key, the alpha flag and whether it is loaded; the rest is
    /// default.
    Image(const Image& other);
    Image& operator=(const Image&) = delete;
    Image(Image&&) noexcept = default;
    Image& operator=(Image&&) noexcept = default;

    bool create(int width, int height);
    /// Loads a picture and fixes the tile grid: width and height by the tile size, each at least 1.
    /// @throws Exception  as Bitmap::load
    bool load(WStringView path);
    void unload();
    bool saveAs(WStringView path) { return bitmap.saveAs(path); }
    bool isLoaded() const { return loaded; }
    /// The path of the loaded file without its folders.
    WStringView getFileName() const;

    Bitmap& getBitmap() { return bitmap; }
    const Bitmap& getBitmap() const { return bitmap; }
    int getWidth() const { return bitmap.getWidth(); }
    int getHeight() const { return bitmap.getHeight(); }
    Rect getBounds() const { return {0, 0, getWidth(), getHeight()}; }
    std::uint32_t getColorKey() const { return bitmap.getColorKey(); }
    /// The key with red and blue exchanged, as scripts see it.
    std::uint32_t getColorKeyRgb() const;
    void setColorKey(std::uint32_t colour) { bitmap.setColorKey(colour); }
    /// Sets every byte of the pixels: 0 is transparent black, 255 opaque white.
    void fill(std::uint8_t value);

    /// A nearest-neighbour copy of another size, with the source's alpha flag and key.
    Image createScaledCopy(int width, int height) const;

    int tileWidth = 16, tileHeight = 16;
    int columns = 1, rows = 1;
    double opacity = 1.0;   ///< 0 to 1; times 255, truncated, at each draw
    std::uint32_t tone = 0; ///< colour reference with a strength in the top byte
    std::optional<Gradation> gradation;
    int x = 0, y = 0; ///< kept for scripts
    double scaleX = 1.0, scaleY = 1.0;

  private:
    Bitmap bitmap;
    bool loaded = false;
};

} // namespace varn
