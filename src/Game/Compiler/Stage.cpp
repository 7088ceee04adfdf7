#include "Game/Compiler/Stage.h"

#include "Game/Compiler/Script.h"
#include "Game/Compiler/classes/engine/Drawable.h"

#include <algorithm>

namespace varn {

void Stage::setSize(int newWidth, int newHeight)
{
    width = std::clamp(newWidth, 1, Image::kSideLimit);
    height = std::clamp(newHeight, 1, Image::kSideLimit);
}

void Stage::requestResolution(int wantedWidth, int wantedHeight) const
{
    if (resolution)
        resolution(wantedWidth, wantedHeight);
}

const Image& Stage::compose(std::span<const Script* const> scripts)
{
    if (surface.getWidth() != width || surface.getHeight() != height)
        surface.setSize(width, height);
    surface.getImage().fill(0);
    for (const Script* script : scripts) {
        for (const OperandData& child : script->getChildren()) {
            const Image& picture = *pictureOf(child);
            const Rect shown =
                nearbyRect(picture.x, picture.y, scaledWidth(picture), scaledHeight(picture));
            surface.drawImage(picture, shown, picture.getBounds());
        }
    }
    return surface.getImage();
}

} // namespace varn
