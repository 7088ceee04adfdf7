#include "Graphics/Quad.h"
#include "Graphics/QuadMapping.h"

#include <gtest/gtest.h>
#include <random>

namespace varn {
namespace {

struct QuadCase
{
    const char* name;
    QuadCorners corners; // relative to their box
    int width, height;   // of the box
};

const QuadCase kQuadCases[] = {
    {"front wall", {{{0, 0}, {0, 79}, {79, 79}, {79, 0}}}, 80, 80},
    {"left wall", {{{0, 0}, {0, 119}, {39, 99}, {39, 20}}}, 40, 120},
    {"right wall", {{{0, 20}, {0, 99}, {39, 119}, {39, 0}}}, 40, 120},
    {"floor", {{{30, 0}, {0, 39}, {159, 39}, {120, 0}}}, 160, 40},
    {"ceiling", {{{0, 0}, {30, 39}, {120, 39}, {159, 0}}}, 160, 40},
    {"slanted floor", {{{90, 0}, {0, 39}, {99, 39}, {130, 0}}}, 131, 40},
    {"general", {{{3, 0}, {0, 50}, {70, 63}, {55, 9}}}, 71, 64},
    {"wall of no width", {{{0, 0}, {0, 9}, {0, 9}, {0, 0}}}, 1, 10},
};

TEST(QuadMapping, ShortFormsGiveTheGeneralOnesPlaces)
{
    for (const QuadCase& c : kQuadCases) {
        const QuadMapping mapping(c.corners, {0, 0, c.width, c.height}, 64, 48);
        std::vector<std::int32_t> fast(static_cast<std::size_t>(c.width)), plain(fast);
        std::size_t inside = 0;
        for (int row = 0; row < c.height; ++row) {
            std::fill(fast.begin(), fast.end(), -1);
            mapping.mapRow(row, 0, fast);
            mapping.mapRowPlain(row, 0, plain);
            ASSERT_EQ(fast, plain) << c.name << ", row " << row;
            inside += static_cast<std::size_t>(
                std::count_if(fast.begin(), fast.end(), [](std::int32_t p) { return p >= 0; }));
        }
        EXPECT_GE(inside, static_cast<std::size_t>(c.height)) << c.name;
    }
}

TEST(QuadMapping, RandomWallsAndFloorsAgreeToo)
{
    std::mt19937 random(11);
    // Whole numbers meet the exact boundaries of pixels, quarters the places between them.
    const auto pick = [&](unsigned most) { return static_cast<double>(random() % (most * 4)) / 4; };
    const auto whole = [&](unsigned most) { return static_cast<double>(random() % most); };
    for (int round = 0; round < 3000; ++round) {
        QuadCorners corners;
        const double near = round % 2 ? pick(60) : whole(60),
                     far = round % 2 ? pick(60) : whole(60);
        const double end = round % 2 ? pick(90) : whole(90);
        switch (round % 3) {
        case 0: // a wall to the side
            corners = {{{0, near}, {0, 60 + whole(60)}, {end, 60 + far}, {end, whole(60)}}};
            break;
        case 1: // a wall ahead
            corners = {{{0, near}, {0, near + far}, {end, near + far}, {end, near}}};
            break;
        default:
            corners = {{{near, 0}, {far, end}, {60 + whole(60), end}, {60 + pick(60), 0}}};
        }
        const int width = 2 + static_cast<int>(random() % 700);
        const QuadMapping mapping(corners, {0, 0, 120, 120}, width, 2 + round % 600);
        std::vector<std::int32_t> fast(117), plain(117);
        for (int row = round % 7; row < 120; row += 7) {
            std::fill(fast.begin(), fast.end(), -1);
            mapping.mapRow(row, 3, fast);
            mapping.mapRowPlain(row, 3, plain);
            ASSERT_EQ(fast, plain) << "round " << round << ", row " << row;
        }
    }
}

Image checkers(int width, int height)
{
    Image image;
    image.create(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.getBitmap().setPixelRgba(x, y,
                                           0xFF000000U | static_cast<std::uint32_t>(x + y * width));
    image.getBitmap().setColorKeyEnabled(false);
    return image;
}

TEST(Quad, APictureInItsOwnSizeComesOutAsItIs)
{
    const Image picture = checkers(8, 6);
    Image target;
    target.create(8, 6);
    drawImageToQuad(picture, {{{0, 0}, {0, 6}, {8, 6}, {8, 0}}}, target.getBitmap());
    // Corners one past the last pixel: place x is trunc(7 * x / 8).
    EXPECT_EQ(target.getBitmap().getPixelValue(0, 0), picture.getBitmap().getPixelValue(0, 0));
    EXPECT_EQ(target.getBitmap().getPixelValue(4, 3), picture.getBitmap().getPixelValue(3, 2));
    Image narrow;
    narrow.create(1, 9);
    Image empty;
    EXPECT_EQ(createWarpedImage(narrow, {{{0, 0}, {0, 6}, {8, 6}, {8, 0}}}, empty).width, 0);
}

TEST(Quad, WarpedCopyMarksWhatLiesOutside)
{
    Image picture = checkers(8, 8);
    picture.setColorKey(0x00112233);
    Image result;
    const Rect box = createWarpedImage(picture, {{{10, 10}, {2, 20}, {30, 20}, {22, 10}}}, result);
    EXPECT_EQ(box, Rect(2, 10, 29, 11));
    EXPECT_EQ(result.getBitmap().getPixelValue(0, 0), 0x00332211U); // the key's colour, alpha 0
    EXPECT_EQ(result.getColorKey(), 0x00112233U);
}

TEST(Gradation, RunsFromStartToEndAndTruncates)
{
    const Gradation gradation{0, 255, 0, true};
    const auto table = strengthTable(gradation, 3);
    EXPECT_EQ(table, (std::vector<std::uint8_t>{255, 170, 85}));
    std::uint32_t run[] = {0xAAFFFFFF, 0xAAFFFFFF};
    applyGradation(gradation, table, 0, 1, run);
    EXPECT_EQ(run[0], 0xAAAAAAAA);
    EXPECT_EQ(run[1], 0xAA555555);
}

TEST(Quad, ConvexFillStaysInsideTheTarget)
{
    Image target;
    target.create(20, 10);
    fillConvexQuad(target.getBitmap(), {{{-5, 2}, {-5, 30}, {8, 30}, {8, 2}}}, 0x0000FF);
    EXPECT_EQ(target.getBitmap().getPixelColor(0, 2), 0x0000FFU);
    EXPECT_EQ(target.getBitmap().getPixelColor(8, 9), 0x0000FFU);
    EXPECT_EQ(target.getBitmap().getPixelColor(9, 5), 0U);
    EXPECT_EQ(target.getBitmap().getPixelColor(0, 1), 0U);
}

} // namespace
} // namespace varn
