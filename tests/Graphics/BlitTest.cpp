#include "Graphics/Blit.h"
#include "Graphics/Graphics.h"
#include "Graphics/WindowSkin.h"

#include <gtest/gtest.h>

namespace varn {
namespace {

/// A row of pixels 1, 2, 3, ... with alpha 255 and the key switched off or set.
Image strip(int width)
{
    Image image;
    image.create(width, 1);
    for (int x = 0; x < width; ++x)
        image.getBitmap().setPixelRgba(x, 0, 0xFF000000U | static_cast<std::uint32_t>(x + 1));
    return image;
}

std::vector<int> blues(const Bitmap& bitmap)
{
    std::vector<int> row;
    for (int x = 0; x < bitmap.getWidth(); ++x)
        row.push_back(static_cast<int>(bitmap.getPixelValue(x, 0) & 0xFF));
    return row;
}

struct BlitCase
{
    const char* name;
    Rect target, source;
    std::vector<int> expected; // of a surface 6 wide
};

const BlitCase kBlitCases[] = {
    {"as it is", {1, 0, 4, 1}, {0, 0, 4, 1}, {0, 1, 2, 3, 4, 0}},
    {"cut at the left", {-2, 0, 4, 1}, {0, 0, 4, 1}, {3, 4, 0, 0, 0, 0}},
    {"cut at the right", {4, 0, 4, 1}, {0, 0, 4, 1}, {0, 0, 0, 0, 1, 2}},
    {"twice as wide", {0, 0, 6, 1}, {0, 0, 3, 1}, {1, 1, 2, 2, 3, 3}},
    {"half as wide", {0, 0, 2, 1}, {0, 0, 4, 1}, {1, 3, 0, 0, 0, 0}},
    {"mirrored, from x to the left", {4, 0, -4, 1}, {0, 0, 4, 1}, {0, 4, 3, 2, 1, 0}},
    {"mirrored, cut on both sides", {7, 0, -8, 1}, {0, 0, 4, 1}, {4, 4, 3, 3, 2, 2}},
    {"past the picture's end", {0, 0, 4, 1}, {2, 0, 4, 1}, {3, 4, 0, 0, 0, 0}},
    {"from before the picture", {0, 0, 4, 1}, {-2, 0, 4, 1}, {0, 0, 1, 2, 0, 0}},
    {"below the surface", {0, 3, 4, 1}, {0, 0, 4, 1}, {0, 0, 0, 0, 0, 0}},
};

TEST(Blit, PlacesPixels)
{
    for (const bool keyed : {false, true}) {
        for (const BlitCase& c : kBlitCases) {
            Image surface, picture = strip(4);
            surface.create(6, 1);
            picture.getBitmap().setColorKeyEnabled(keyed);
            blitImage(surface.getBitmap(), picture, c.target, c.source);
            EXPECT_EQ(blues(surface.getBitmap()), c.expected)
                << c.name << (keyed ? ", keyed" : ", plain");
        }
    }
}

TEST(Blit, OpacityAndToneApplyOnlyWithKeyOrAlpha)
{
    Image surface, picture = strip(2);
    surface.create(2, 1);
    picture.opacity = 0.5;
    picture.getBitmap().setPixelRgba(0, 0, 0xFF0000C8);
    blitImage(surface.getBitmap(), picture, picture.getBounds(), picture.getBounds());
    EXPECT_EQ(blues(surface.getBitmap())[0], 99); // 127 * 200 / 255
    picture.getBitmap().setColorKeyEnabled(false);
    blitImage(surface.getBitmap(), picture, picture.getBounds(), picture.getBounds());
    EXPECT_EQ(blues(surface.getBitmap())[0], 200);
}

TEST(Graphics, TranslucentRectangleIsClipped)
{
    Graphics surface(4, 2);
    surface.fillRect(Rect(-1, 0, 3, 1), 0xFF0000, 128);
    EXPECT_EQ(blues(surface.getBitmap()), (std::vector<int>{128, 128, 0, 0}));
    surface.fillRect(Rect(3, 0, 9, 9), 0x0A0000, 255);
    EXPECT_EQ(blues(surface.getBitmap()), (std::vector<int>{128, 128, 0, 10}));
}

TEST(WindowSkin, FrameCellsInOrder)
{
    std::vector<std::pair<Rect, Rect>> cells;
    const auto collect = [&](const Rect& target, const Rect& source) {
        cells.emplace_back(target, source);
    };
    walkFrame(0, 0, 32, 32, collect);
    ASSERT_EQ(cells.size(), 4U); // only corners
    EXPECT_EQ(cells.back(), std::pair(Rect(16, 16, 16, 16), Rect(48, 48, 16, 16)));
    cells.clear();
    walkFrame(5, 5, 40, 32, collect);
    ASSERT_EQ(cells.size(), 6U);
    EXPECT_EQ(cells[1], std::pair(Rect(21, 5, 16, 16), Rect(16, 0, 16, 16)));
    EXPECT_EQ(cells[3], std::pair(Rect(29, 5, 16, 16), Rect(48, 0, 16, 16)));
    const Image skin = makePlainSkin();
    EXPECT_EQ(skin.getBitmap().getPixelValue(0, 0), 0U);
    EXPECT_EQ(skin.getBitmap().getPixelValue(1, 0), 0xFFFFFFFFU);
    EXPECT_EQ(skin.getBitmap().getPixelValue(2, 2), 0U);
}

} // namespace
} // namespace varn
