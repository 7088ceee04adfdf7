#pragma once

#include "Game/Compiler/OperandData.h"
#include "Graphics/Graphics.h"
#include "Util/Colour.h"

#include <memory>

namespace varn {

class Marker;

namespace interpreter {

/// "Graphics" of scripts: a surface off the screen. Its colours are those of scripts, 0xAARRGGBB.
class Graphics : public varn::Graphics
{
  public:
    static constexpr int kDefaultFontSize = 10;

    Graphics();

    using varn::Graphics::fillRect;
    /// In the fill colour; a top byte other than 0 is its opacity.
    void fillRect(const Rect& rect) override;
    void drawBorderText(WStringView text, int x, int y, int colour, int border);
    /// The frame of a window, with the project's skin.
    void drawWindowFrame(int x, int y, int width, int height);

    // Each returns what was set before.
    int exchangeTextColour(int colour);
    int exchangeFillColour(int colour);
    int exchangeFontSize(int size);
    int getFontSize() const { return fontSize; }

    std::size_t footprint() const { return getBitmap().byteCount(); }

  private:
    int textColour = 0xFFFFFF, fillColour = 0;
    int fontSize = kDefaultFontSize;
    std::unique_ptr<Image> skin; ///< loaded at the first frame
};

} // namespace interpreter

/// "Image" of scripts: a picture of its own, or that of a Graphics, which it keeps alive.
class ScriptImage
{
  public:
    ScriptImage() = default;
    /// @param surface  a value that holds a Graphics
    explicit ScriptImage(const OperandData& surface) : surface(surface) {}

    Image& picture();
    const Image& picture() const { return const_cast<ScriptImage*>(this)->picture(); }

    void trace(Marker& marker) const;
    std::size_t footprint() const { return own.getBitmap().byteCount(); }

  private:
    OperandData surface; ///< undefined for a picture of its own
    Image own;
};

/// The picture of a script's Graphics or Image; null for any other value.
Image* pictureOf(const OperandData& value);

/// A colour of scripts, whatever its top byte, as the drawing classes have it; and the size that a
/// picture shows at.
ColourRef fromScriptColour(int colour);
int scaledWidth(const Image& picture);
int scaledHeight(const Image& picture);

/// A script may name any place; those further out than any surface reaches are as good as these.
int nearbyPlace(int place);
Rect nearbyRect(int x, int y, int width, int height);

} // namespace varn
