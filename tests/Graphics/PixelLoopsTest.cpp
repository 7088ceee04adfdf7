#include "Graphics/PixelLoops.h"

#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace varn {
namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes noise(std::mt19937& random, std::size_t count)
{
    Bytes bytes(count);
    for (std::uint8_t& byte : bytes)
        byte = static_cast<std::uint8_t>(random());
    return bytes;
}

RowStyle anyStyle(std::mt19937& random, const Bytes& source)
{
    RowStyle style;
    style.hasAlpha = random() & 1;
    style.keyed = random() & 1;
    const std::size_t pixel = random() % (source.size() / 4) * 4;
    style.key = source[pixel] | source[pixel + 1] << 8U | source[pixel + 2] << 16U;
    style.toneStrength = random() & 1 ? static_cast<std::uint8_t>(random()) : 0;
    style.tone = random() & 0xFFFFFF;
    style.opacity = random() & 1 ? static_cast<std::uint8_t>(random()) : 255;
    return style;
}

TEST(PixelLoops, VectorsGiveTheBytesOfThePlainForm)
{
    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round) {
        const std::size_t count = random() % 70;
        Bytes source = noise(random, (count + 1) * 4);
        // Runs of one alpha take the shortcuts; few colours make the key meet often.
        for (std::size_t i = 0; i <= count && round % 3 == 0; ++i)
            source[i * 4 + 3] = i / 16 % 2 ? 255 : 0;
        for (std::size_t i = 0; i <= count && round % 2 == 0; ++i)
            std::fill_n(source.begin() + static_cast<std::ptrdiff_t>(i) * 4, 3, random() & 1);
        const RowStyle style = anyStyle(random, source);
        Bytes fast = noise(random, (count + 1) * 4), plain = fast;
        blendRow(style, source.data(), fast.data(), count);
        blendRowPlain(style, source.data(), plain.data(), count);
        ASSERT_EQ(fast, plain) << "round " << round;
        blendColour(style.tone, style.opacity, fast.data(), count);
        blendColourPlain(style.tone, style.opacity, plain.data(), count);
        ASSERT_EQ(fast, plain) << "colour, round " << round;
    }
}

TEST(PixelLoops, FogAndKeyedCopyAgreeToo)
{
    std::mt19937 random(9);
    for (int round = 0; round < 500; ++round) {
        const std::size_t count = random() % 60;
        std::vector<std::uint32_t> source(count + 1);
        for (std::uint32_t& pixel : source)
            pixel = random() & (round % 2 ? 0xFFFFFFFF : 0xFF000001);
        const Bytes strengths = noise(random, count + 8);
        std::vector<std::uint32_t> fast = source, plain = source;
        const std::uint32_t colour = random() & 0xFFFFFF;
        fogRowAcross(colour, strengths.data(), fast.data(), count);
        fogRowAcrossPlain(colour, strengths.data(), plain.data(), count);
        ASSERT_EQ(fast, plain) << "fog, round " << round;
        fogRow(colour, strengths[0], fast.data(), count);
        fogRowPlain(colour, strengths[0], plain.data(), count);
        ASSERT_EQ(fast, plain) << "even fog, round " << round;
        Bytes fastTarget(count * 4 + 4, 9), plainTarget = fastTarget;
        copyUnlessKey(source[0] & 0xFFFFFF, source.data(), fast.data(), fastTarget.data(), count);
        copyUnlessKeyPlain(source[0] & 0xFFFFFF, source.data(), fast.data(), plainTarget.data(),
                           count);
        ASSERT_EQ(fastTarget, plainTarget) << "copy, round " << round;
    }
}

/// One pixel by hand: source, target, what comes out.
struct PixelCase
{
    const char* name;
    RowStyle style;
    std::uint8_t source[4], target[4], expected[4];
};

const PixelCase kPixelCases[] = {
    {"alpha 0 leaves the target", {.hasAlpha = true}, {9, 9, 9, 0}, {1, 2, 3, 4}, {1, 2, 3, 4}},
    {"alpha 255 covers, the target's alpha stays",
     {.hasAlpha = true},
     {9, 8, 7, 255},
     {1, 2, 3, 4},
     {9, 8, 7, 4}},
    {"mixing truncates toward zero on both sides",
     {.hasAlpha = true},
     {0, 255, 10, 128},
     {255, 0, 11, 0},
     {127, 128, 11, 0}}, // 255 - 255 * 128 / 255, 255 * 128 / 255, 11 - 128 / 255
    {"the key hides", {.keyed = true, .key = 0x030201}, {1, 2, 3, 77}, {5, 5, 5, 5}, {5, 5, 5, 5}},
    {"the key is not tested with alpha",
     {.hasAlpha = true, .keyed = true, .key = 0x030201},
     {1, 2, 3, 255},
     {5, 5, 5, 5},
     {1, 2, 3, 5}},
    {"half opacity is 127 of 255",
     {.opacity = 127},
     {200, 0, 255, 0},
     {100, 255, 255, 9},
     {150, 128, 255, 9}},
    {"a full tone gives its colour",
     {.toneStrength = 255, .tone = 0x102030},
     {1, 2, 3, 0},
     {0, 0, 0, 0},
     {0x30, 0x20, 0x10, 0}},
};

TEST(PixelLoops, OnePixelByHand)
{
    for (const PixelCase& c : kPixelCases) {
        std::uint8_t target[4];
        std::copy_n(c.target, 4, target);
        blendRow(c.style, c.source, target, 1);
        EXPECT_TRUE(std::equal(target, target + 4, c.expected))
            << c.name << ": " << int{target[0]} << " " << int{target[1]} << " " << int{target[2]};
    }
}

} // namespace
} // namespace varn
