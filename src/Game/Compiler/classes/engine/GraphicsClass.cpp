#include "Game/Compiler/Interpreter.h"
#include "Game/Compiler/SQClassDef.h"
#include "Game/Compiler/classes/Registrations.h"
#include "Game/Compiler/classes/engine/Drawable.h"
#include "Game/Compiler/classes/engine/PixelMemory.h"

namespace varn {
namespace {

using interpreter::InterpreterException;
using Surface = interpreter::Graphics;

/// Natives that read their arguments themselves answer what those without a result do.
const OperandData kDone = OperandData::integer(1);

int getDefaultFontSize()
{
    return Surface::kDefaultFontSize;
}

void setSize(Surface& surface, NativeCall& call, int width, int height)
{
    countingPixels(call.heap, surface.getBitmap(), [&] { return surface.setSize(width, height); });
}

int placeAt(const Interpreter& vm, int index)
{
    return nearbyPlace(vm.getInt(index));
}

/// drawString(text, x, y, align): the fourth argument decides alone, without it what setTextAlign
/// said.
OperandData drawString(Surface& surface, Interpreter& vm)
{
    if (vm.getTop() < 3)
        throw InterpreterException(WString(interpreter::kInvalidArgumentCount),
                                   u"Graphics::drawString4");
    const TextAlign before = surface.textAlign;
    if (vm.getTop() > 3)
        surface.textAlign = static_cast<TextAlign>(vm.getInt(3));
    surface.drawString(vm.getString(0), placeAt(vm, 1), placeAt(vm, 2));
    surface.textAlign = before;
    return kDone;
}

const Rect* rectangleOf(const OperandData& value)
{
    const auto* rectangles =
        value.isBoxed() ? dynamic_cast<const SQClassDef<Rect>*>(value.asBox()->classInterface)
                        : nullptr;
    return rectangles ? static_cast<const Rect*>(value.asBox()->instance) : nullptr;
}

Rect fourPlaces(const Interpreter& vm, int first)
{
    return {placeAt(vm, first), placeAt(vm, first + 1), placeAt(vm, first + 2),
            placeAt(vm, first + 3)};
}

/// A place as a script tells it: a Rectangle, or the two numbers of a corner.
struct Place
{
    Rect rect;
    bool hasSize = false;
};

/// Reads one from argument `index` on and moves behind it; nothing left is the origin.
Place takePlace(const Interpreter& vm, int& index)
{
    if (index >= vm.getTop())
        return {};
    if (const Rect* rect = rectangleOf(vm.getOperand(index))) {
        ++index;
        return {nearbyRect(rect->x, rect->y, rect->width, rect->height), true};
    }
    const int x = placeAt(vm, index), y = index + 1 < vm.getTop() ? placeAt(vm, index + 1) : 0;
    index += 2;
    return {Rect(x, y, 0, 0), false};
}

/// Where to, then which part. A corner has the size of the other place, or of what the picture has
/// from there on.
void drawPart(Surface& surface, const Interpreter& vm, const Image& picture)
{
    int index = 1;
    const Place target = takePlace(vm, index);
    const Place source = takePlace(vm, index);
    Rect from = source.rect, to = target.rect;
    if (!source.hasSize)
        from = {from.x, from.y, picture.getWidth() - from.x, picture.getHeight() - from.y};
    if (!target.hasSize)
        to = {to.x, to.y, from.width, from.height};
    surface.drawImage(picture, to, from);
}

OperandData drawImage(Surface& surface, Interpreter& vm)
{
    constexpr WStringView kName = u"Graphics::drawImage3";
    if (vm.getTop() == 0)
        throw InterpreterException(u"Not enough arguments.", WString(kName));
    const Image* picture = pictureOf(vm.getOperand(0));
    if (!picture)
        throw InterpreterException(u"the first parameter must be a Graphics or Image object.",
                                   WString(kName));
    if (vm.getTop() == 9)
        surface.drawImage(*picture, fourPlaces(vm, 1), fourPlaces(vm, 5));
    else
        drawPart(surface, vm, *picture);
    return kDone;
}

void drawBorderString(Surface& surface, WStringView text, int x, int y, int colour, int border)
{
    surface.drawBorderText(text, nearbyPlace(x), nearbyPlace(y), colour, border);
}

void fillRect(Surface& surface, int x, int y, int width, int height)
{
    surface.fillRect(nearbyRect(x, y, width, height));
}

void fillOval(Surface& surface, int x, int y, int width, int height)
{
    if (surface.getBitmap().isEmpty())
        return;
    const Rect rect = nearbyRect(x, y, width, height);
    surface.fillOval(rect.x, rect.y, rect.width, rect.height);
}

void fillArc(Surface& surface, int x, int y, int width, int height, int start, int sweep)
{
    if (surface.getBitmap().isEmpty())
        return;
    const Rect rect = nearbyRect(x, y, width, height);
    surface.fillArc(rect.x, rect.y, rect.width, rect.height, nearbyPlace(start),
                    nearbyPlace(sweep));
}

void drawFrame(Surface& surface, int x, int y, int width, int height)
{
    const Rect rect = nearbyRect(x, y, width, height);
    surface.drawWindowFrame(rect.x, rect.y, rect.width, rect.height);
}

OperandData getImage(Surface&, NativeCall& call)
{
    auto image = std::make_unique<ScriptImage>(call.receiver);
    const OperandData made =
        call.heap.makeObject(*GlobalClassTable::instance().find("Image"), image.get());
    static_cast<void>(image.release()); // the heap's now
    return made;
}

int clear(Surface& surface)
{
    surface.getImage().fill(0);
    return 1;
}

void setColorKey(Surface& surface, int colour)
{
    surface.getImage().setColorKey(fromScriptColour(colour));
}

void setTextAlign(Surface& surface, int align)
{
    surface.textAlign = static_cast<TextAlign>(align);
}

} // namespace

void registerGraphics()
{
    auto made = std::make_unique<SQClassDef<Surface>>("Graphics");
    made->addStaticFunc<&getDefaultFontSize>("getDefaultFontSize");
    made->addFunc<&setSize>("constructor");
    made->addFunc<&setSize>("setSize");
    made->addFunc<&drawString>("drawString");
    made->addFunc<&drawImage>("drawImage");
    made->addFunc<&drawBorderString>("drawBorderString");
    made->addFunc<&fillRect>("fillRect");
    made->addFunc<&fillOval>("fillOval");
    made->addFunc<&drawFrame>("drawFrame");
    made->addFunc<&fillArc>("fillArc");
    made->addFunc<&getImage>("getImage");
    made->addFunc<&Surface::getWidth>("getWidth");
    made->addFunc<&Surface::getHeight>("getHeight");
    made->addFunc<&Surface::getFontSize>("getFontSize");
    made->addFunc<&clear>("clear");
    made->addFunc<&setColorKey>("setColorKey");
    made->addFunc<&setTextAlign>("setTextAlign");
    made->addFunc<&Surface::exchangeTextColour>("setTextColor");
    made->addFunc<&Surface::exchangeFillColour>("setFillColor");
    made->addFunc<&Surface::exchangeFontSize>("setFontSize");
    GlobalClassTable::instance().registerClass(std::move(made));
}

} // namespace varn
