#include "Game/Compiler/SQClassDef.h"
#include "Game/Compiler/classes/Registrations.h"
#include "Graphics/Graphics.h"
#include "Input/KeyCode.h"

// Classes that are nothing but names for numbers and texts.

namespace varn {
namespace {

// A type each: a class of scripts is told from others by it.
struct TextAlignNames
{};
struct DirectionNames
{};
struct KeyboardNames
{};
struct EventNames
{};
struct MouseEventNames
{};
struct KeyboardEventNames
{};

template <auto value>
int number()
{
    return static_cast<int>(value);
}

template <const auto& value>
WStringView text()
{
    return value;
}

constexpr char16_t kEnterFrame[] = u"enterFrame", kClick[] = u"click", kKeyDown[] = u"keyDown";

/// Registers a class of one text.
template <class T, const auto& value>
void registerText(const char* className, const char* name)
{
    auto made = std::make_unique<SQClassDef<T>>(className);
    made->template addStaticFunc<&text<value>>(name);
    GlobalClassTable::instance().registerClass(std::move(made));
}

} // namespace

void registerTextAlign()
{
    auto made = std::make_unique<SQClassDef<TextAlignNames>>("TextAlign");
    made->addStaticFunc<&number<TextAlign::Left>>("LEFT");
    made->addStaticFunc<&number<TextAlign::Right>>("RIGHT");
    made->addStaticFunc<&number<TextAlign::Center>>("CENTER");
    GlobalClassTable::instance().registerClass(std::move(made));
}

/// The values of a cell's facing.
void registerDirection()
{
    auto made = std::make_unique<SQClassDef<DirectionNames>>("Direction");
    made->addStaticFunc<&number<1>>("NORTH");
    made->addStaticFunc<&number<2>>("EAST");
    made->addStaticFunc<&number<4>>("SOUTH");
    made->addStaticFunc<&number<8>>("WEST");
    GlobalClassTable::instance().registerClass(std::move(made));
}

void registerKeyboard()
{
    auto made = std::make_unique<SQClassDef<KeyboardNames>>("Keyboard");
    made->addStaticFunc<&number<key::kBackspace>>("BACKSPACE");
    made->addStaticFunc<&number<key::kLeft>>("LEFT");
    made->addStaticFunc<&number<key::kRight>>("RIGHT");
    made->addStaticFunc<&number<key::kUp>>("UP");
    made->addStaticFunc<&number<key::kDown>>("DOWN");
    GlobalClassTable::instance().registerClass(std::move(made));
}

void registerEventNames()
{
    registerText<EventNames, kEnterFrame>("Event", "ENTER_FRAME");
    registerText<MouseEventNames, kClick>("MouseEvent", "CLICK");
    registerText<KeyboardEventNames, kKeyDown>("KeyboardEvent", "KEY_DOWN");
}

} // namespace varn
