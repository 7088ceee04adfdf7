#include "Game/Compiler/SQClassDef.h"
#include "Game/Compiler/classes/Registrations.h"
#include "Game/Compiler/classes/engine/Drawable.h"
#include "Game/Compiler/classes/engine/PixelMemory.h"

#include <algorithm>

namespace varn {
namespace {

/// A missing file throws, as wherever pictures are loaded.
bool load(ScriptImage& image, NativeCall& call, WStringView path)
{
    return countingPixels(call.heap, image.picture().getBitmap(),
                          [&] { return image.picture().load(path); });
}

bool saveAs(ScriptImage& image, WStringView path)
{
    return image.picture().saveAs(path);
}

void setColorKeyEnabled(ScriptImage& image, bool enabled)
{
    image.picture().getBitmap().setColorKeyEnabled(enabled);
}

void setColorKey(ScriptImage& image, int colour)
{
    image.picture().setColorKey(fromScriptColour(colour));
}

template <auto field>
void set(ScriptImage& image, std::remove_cvref_t<decltype(Image().*field)> value)
{
    image.picture().*field = value;
}

template <auto field>
auto get(ScriptImage& image)
{
    return image.picture().*field;
}

void setX(ScriptImage& image, int x)
{
    image.picture().x = nearbyPlace(x);
}

void setY(ScriptImage& image, int y)
{
    image.picture().y = nearbyPlace(y);
}

/// What is no number counts as clear.
void setOpacity(ScriptImage& image, double opacity)
{
    image.picture().opacity = opacity > 0 ? std::min(opacity, 1.0) : 0;
}

int getWidth(ScriptImage& image)
{
    return image.picture().getWidth();
}

int getHeight(ScriptImage& image)
{
    return image.picture().getHeight();
}

template <int (*measure)(const Image&)>
int scaled(ScriptImage& image)
{
    return measure(image.picture());
}

/// Place, and the scale at which the picture has that size; without pixels the scale stays.
void setBounds(ScriptImage& image, int x, int y, int width, int height)
{
    setX(image, x);
    setY(image, y);
    Image& picture = image.picture();
    if (picture.getBitmap().isEmpty())
        return;
    picture.scaleX = static_cast<double>(width) / picture.getWidth();
    picture.scaleY = static_cast<double>(height) / picture.getHeight();
}

/// Every `getImage()` of a surface is the same picture.
class SamePicture : public ClassInterface::Comparator
{
  public:
    bool equal(const void* a, const void* b) const override
    {
        return &static_cast<const ScriptImage*>(a)->picture() ==
               &static_cast<const ScriptImage*>(b)->picture();
    }
};

} // namespace

void registerImage()
{
    static const SamePicture samePicture;
    auto made = std::make_unique<SQClassDef<ScriptImage>>("Image");
    made->addFunc<&load>("load");
    made->addFunc<&saveAs>("saveAs");
    made->addFunc<&setColorKeyEnabled>("setColorKeyEnabled");
    made->addFunc<&setColorKeyEnabled>("enableColorKey");
    made->addFunc<&setX>("setX");
    made->addFunc<&setY>("setY");
    made->addFunc<&set<&Image::scaleX>>("setScaleX");
    made->addFunc<&set<&Image::scaleY>>("setScaleY");
    made->addFunc<&setOpacity>("setOpacity");
    made->addFunc<&get<&Image::scaleX>>("getScaleX");
    made->addFunc<&get<&Image::scaleY>>("getScaleY");
    made->addFunc<&scaled<&scaledWidth>>("getScaledWidth");
    made->addFunc<&scaled<&scaledHeight>>("getScaledHeight");
    made->addFunc<&getWidth>("getWidth");
    made->addFunc<&getHeight>("getHeight");
    made->addFunc<&setColorKey>("setColorKey");
    made->addFunc<&setBounds>("setBounds");
    made->comparator = &samePicture;
    GlobalClassTable::instance().registerClass(std::move(made));
}

} // namespace varn
