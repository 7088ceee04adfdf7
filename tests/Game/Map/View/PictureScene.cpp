#include "PictureScene.h"

#include <functional>

namespace varn::test {

namespace {

std::uint32_t rgb(int red, int green, int blue)
{
    return 0xFF000000U | static_cast<std::uint32_t>(red << 16 | green << 8 | blue);
}

using Pattern = std::function<std::uint32_t(int x, int y)>;

void writePicture(WStringView path, int width, int height, bool alpha, const Pattern& pattern)
{
    Bitmap bitmap;
    bitmap.setAlphaChannel(alpha);
    bitmap.create(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            bitmap.setPixelRgba(x, y, pattern(x, y));
    ASSERT_TRUE(bitmap.saveAs(path));
}

std::uint32_t bricks(int x, int y)
{
    const bool joint = y % 8 == 0 || (x + y / 8 * 8) % 16 == 0;
    return joint ? rgb(60, 50, 40) : rgb(150 + x * 2, 90 + y, 60);
}

/// Clear outside an arch, half clear along its rim.
std::uint32_t arch(int x, int y)
{
    const int dx = x - 16, dy = std::min(0, y - 14);
    const int far = dx * dx + dy * dy;
    if (far > 121)
        return 0;
    return far > 90 ? 0x80F0F0A0U : rgb(90, 40 + y * 2, 20 + x * 4);
}

/// An arrow that points to the picture's top, on nothing.
std::uint32_t arrow(int x, int y)
{
    const bool head = y < 8 && std::abs(x - 8) <= y;
    const bool shaft = y >= 8 && std::abs(x - 8) < 3;
    return head || shaft ? rgb(255, 255 - y * 12, 0) : 0;
}

/// Strips of 16-pixel tiles, each its own colour with a mark that tells its number.
Pattern tiles(int base, int perRow)
{
    return [=](int x, int y) {
        const int tile = y / 16 * perRow + x / 16;
        const int inX = x % 16, inY = y % 16;
        const bool mark = inY == 3 + tile % 10 && inX > 2 && inX < 13;
        return mark ? rgb(255, 255, 255) : rgb(base, (tile * 53) % 200, inX * 8 + inY * 4);
    };
}

/// Edges of a wall strip: a line of the kind's colour, in the middle of its tile.
std::uint32_t edges(int x, int y)
{
    const int kind = x / 16, across = y < 16 ? y : x % 16;
    return std::abs(across - 8) < 2 ? rgb(20 + kind * 18, 255 - kind * 18, kind % 3 * 100) : 0;
}

WizFloorData type(DisplayPosition position, WStringView texture)
{
    WizFloorData data;
    data.setDisplayPosition(static_cast<std::int32_t>(position));
    data.setTexture(WString(texture));
    return data;
}

} // namespace

PictureScene::PictureScene()
{
    std::filesystem::create_directories("Graphics/System");
    writePicture(u"wall.png", 32, 32, false, bricks);
    writePicture(u"door.png", 32, 32, true, arch);
    // Without alpha: its first pixel's colour is the key, and shows what lies behind.
    writePicture(u"floor.png", 32, 32, false, [](int x, int y) {
        return (x / 8 + y / 8) % 5 == 0 ? rgb(0, 0, 0) : rgb(40, 60 + x * 3, 60 + y * 3);
    });
    writePicture(u"ceiling.png", 32, 32, true,
                 [](int x, int y) { return rgb(x * 4, y * 4, 120 + (x ^ y)); });
    writePicture(u"sky.png", 40, 20, true,
                 [](int x, int y) { return rgb(x * 6, 80, 255 - y * 8); });
    writePicture(u"arrow.png", 16, 16, true, arrow);
    writePicture(u"idol.png", 16, 16, true,
                 [](int x, int y) { return x + y < 10 ? 0 : rgb(200, 30, x * 16); });
    writePicture(u"Graphics/System/eventFloor.png", 64, 32, true, tiles(200, 4));
    writePicture(u"tiles.png", 64, 32, true, tiles(90, 4));
    writePicture(u"edges.png", 224, 32, true, edges);

    WizFloorList& types = WizFloorList::instance();
    types.clear();
    types.add(type(DisplayPosition::Floor, u"arrow.png"));
    types.add(type(DisplayPosition::Wall, u"arrow.png"));
    types.add(type(DisplayPosition::Ceiling, u"idol.png"));
    types.add(type(DisplayPosition::Default, u"idol.png"));
    types.add(type(DisplayPosition::Default, u""));
    types.at(Gloom).setDark(true);
    types.add(type(DisplayPosition::Default, u""));
    types.at(Gate).setWarp(true);

    map.cols = map.rows = 12;
    for (const auto& [kind, name] : {std::pair(ImageType::Wall, u"wall.png"),
                                     {ImageType::Door, u"door.png"},
                                     {ImageType::Floor, u"floor.png"},
                                     {ImageType::Ceiling, u"ceiling.png"},
                                     {ImageType::Floor2D, u"tiles.png"},
                                     {ImageType::Wall2D, u"edges.png"}})
        map.setImageName(kind, name);
    map.fogColor = 0x604020;
    map.setVisibleDistance(4);
}

void PictureScene::place(EventType type, int x, int y, Direction facing, WString script)
{
    auto event = std::make_unique<GameEvent>();
    event->type = type;
    event->x = x;
    event->y = y;
    event->direction = facing;
    event->script = std::move(script);
    map.events.add(std::move(event));
}

} // namespace varn::test
