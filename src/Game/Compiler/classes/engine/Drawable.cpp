#include "Game/Compiler/classes/engine/Drawable.h"

#include "Game/Compiler/SQClassDef.h"
#include "Graphics/WindowSkin.h"

#include <algorithm>
#include <cmath>

namespace varn {

namespace interpreter {

namespace {

constexpr WStringView kSkinFile = u"Graphics/System/system.png";
constexpr int kTallestFont = 1024;

FontSpec fontOf(int size)
{
    return {.family = u"MS Mincho",
            .height = size == 0 ? Graphics::kDefaultFontSize
                                : std::min(std::abs(std::max(size, -kTallestFont)), kTallestFont),
            .bold = true};
}

std::unique_ptr<Image> loadSkin()
{
    auto skin = std::make_unique<Image>();
    try {
        skin->load(kSkinFile);
    } catch (const Exception&) {
        // A project without one has the plain skin, which stands for an empty picture.
    }
    return skin;
}

} // namespace

Graphics::Graphics()
{
    selectFont(fontOf(fontSize));
    setTextColor(fromScriptColour(textColour));
    setFillColor(fromScriptColour(fillColour));
    getImage().setColorKey(0);
}

void Graphics::fillRect(const Rect& rect)
{
    const auto opacity = static_cast<std::uint8_t>(static_cast<unsigned>(fillColour) >> 24);
    varn::Graphics::fillRect(rect, getFillColor(), opacity == 0 ? 255 : opacity);
}

void Graphics::drawBorderText(WStringView text, int x, int y, int colour, int border)
{
    drawBorderString(text, x, y, fromScriptColour(colour), fromScriptColour(border));
}

void Graphics::drawWindowFrame(int x, int y, int width, int height)
{
    if (!skin)
        skin = loadSkin();
    drawFrame(*skin, x, y, width, height);
}

int Graphics::exchangeTextColour(int colour)
{
    setTextColor(fromScriptColour(colour));
    return std::exchange(textColour, colour);
}

int Graphics::exchangeFillColour(int colour)
{
    setFillColor(fromScriptColour(colour));
    return std::exchange(fillColour, colour);
}

int Graphics::exchangeFontSize(int size)
{
    selectFont(fontOf(size));
    return std::exchange(fontSize, size);
}

} // namespace interpreter

Image& ScriptImage::picture()
{
    return surface.isBoxed()
               ? static_cast<interpreter::Graphics*>(surface.asBox()->instance)->getImage()
               : own;
}

void ScriptImage::trace(Marker& marker) const
{
    marker.mark(surface);
}

Image* pictureOf(const OperandData& value)
{
    if (!value.isBoxed() || !value.asBox()->instance)
        return nullptr;
    const ObjectBox& box = *value.asBox();
    if (dynamic_cast<const SQClassDef<interpreter::Graphics>*>(box.classInterface))
        return &static_cast<interpreter::Graphics*>(box.instance)->getImage();
    if (dynamic_cast<const SQClassDef<ScriptImage>*>(box.classInterface))
        return &static_cast<ScriptImage*>(box.instance)->picture();
    return nullptr;
}

ColourRef fromScriptColour(int colour)
{
    const auto bits = static_cast<unsigned>(colour);
    return makeColour(bits >> 16, bits >> 8, bits);
}

int scaledWidth(const Image& picture)
{
    return truncateToInt(picture.getWidth() * picture.scaleX);
}

int scaledHeight(const Image& picture)
{
    return truncateToInt(picture.getHeight() * picture.scaleY);
}

int nearbyPlace(int place)
{
    constexpr int kFarthest = 1 << 20;
    return std::clamp(place, -kFarthest, kFarthest);
}

Rect nearbyRect(int x, int y, int width, int height)
{
    return {nearbyPlace(x), nearbyPlace(y), nearbyPlace(width), nearbyPlace(height)};
}

} // namespace varn
