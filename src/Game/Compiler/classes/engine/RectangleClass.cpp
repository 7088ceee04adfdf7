#include "Game/Compiler/SQClassDef.h"
#include "Game/Compiler/classes/Registrations.h"
#include "Util/Rect.h"

namespace varn {
namespace {

void set(Rect& rect, int x, int y, int width, int height)
{
    rect.left = rect.x = x;
    rect.top = rect.y = y;
    rect.width = width;
    rect.height = height;
    rect.right = wrap(std::int64_t{x} + width);
    rect.bottom = wrap(std::int64_t{y} + height);
}

// Each keeps the two spellings of the rectangle together.
void setX(Rect& rect, int x)
{
    set(rect, x, rect.y, rect.width, rect.height);
}
void setY(Rect& rect, int y)
{
    set(rect, rect.x, y, rect.width, rect.height);
}
void setWidth(Rect& rect, int width)
{
    set(rect, rect.x, rect.y, width, rect.height);
}
void setHeight(Rect& rect, int height)
{
    set(rect, rect.x, rect.y, rect.width, height);
}

template <std::int32_t Rect::*field>
int get(Rect& rect)
{
    return rect.*field;
}

WString toString(const Rect& rect)
{
    return u"Rectangle(" + toDecimal(rect.x) + u", " + toDecimal(rect.y) + u", " +
           toDecimal(rect.width) + u", " + toDecimal(rect.height) + u")";
}

} // namespace

void registerRectangle()
{
    auto made = std::make_unique<SQClassDef<Rect>>("Rectangle");
    made->addFunc<&set>("constructor");
    made->addFunc<&set>("set");
    made->addFunc<&setX>("setX");
    made->addFunc<&setY>("setY");
    made->addFunc<&setWidth>("setWidth");
    made->addFunc<&setHeight>("setHeight");
    made->addFunc<&get<&Rect::x>>("getX");
    made->addFunc<&get<&Rect::y>>("getY");
    made->addFunc<&get<&Rect::width>>("getWidth");
    made->addFunc<&get<&Rect::height>>("getHeight");
    made->addFunc<&toString>("toString");
    made->setText(&toString);
    GlobalClassTable::instance().registerClass(std::move(made));
}

} // namespace varn
