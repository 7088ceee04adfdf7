#include "Graphics/Bitmap.h"
#include "Graphics/BmpFile.h"
#include "Graphics/GifFile.h"
#include "Graphics/Image.h"
#include "Graphics/PngFile.h"
#include "Support/TemporaryProject.h"

#include <gtest/gtest.h>

namespace varn {
namespace {

TEST(Bitmap, CreateRefusesWhatItCannotHold)
{
    Bitmap bitmap;
    ASSERT_TRUE(bitmap.create(100, -50));
    EXPECT_EQ(bitmap.getHeight(), 50);
    for (const auto& [width, height] :
         {std::pair(0, 100), {100, 0}, {-1, 5}, {32767, 1}, {1, 32767}}) {
        EXPECT_FALSE(bitmap.create(width, height)) << width << " by " << height;
        EXPECT_EQ(bitmap.getWidth(), 100);
    }
    EXPECT_TRUE(bitmap.create(32766, 1));
    bitmap.setAlphaChannel(true);
    bitmap.create(2, 1);
    EXPECT_EQ(bitmap.getPixelValue(1, 0), 0xFF000000U);
    Image image;
    image.create(5000, 10);
    EXPECT_EQ(image.getWidth(), 4096);
}

Bitmap painted(bool alpha)
{
    Bitmap bitmap;
    bitmap.setAlphaChannel(alpha);
    bitmap.create(5, 3);
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 5; ++x)
            bitmap.setPixelRgba(x, y,
                                0x7F000000U + static_cast<std::uint32_t>(x * 40 + y * 0x2211));
    return bitmap;
}

TEST(Bitmap, PngKeepsPixelsAndAlpha)
{
    const test::TemporaryProject project;
    Bitmap source = painted(true);
    source.setPixelRgba(3, 1, 0x000000FF); // blue, not to be seen: the key
    ASSERT_TRUE(source.saveAs(u"a.PNG"));
    Bitmap back;
    back.load(u"a.PNG");
    EXPECT_TRUE(back.hasAlphaChannel());
    EXPECT_EQ(back.getColorKey(), 0xFF0000U);
    for (int x = 0; x < 5; ++x)
        EXPECT_EQ(back.getPixelValue(x, 2), source.getPixelValue(x, 2));

    Bitmap opaque = painted(false);
    opaque.saveAs(u"b.png");
    EXPECT_EQ(opaque.getPixelValue(0, 0) >> 24, 255U);
}

TEST(Bitmap, AnyOtherExtensionWritesTheBitmapLayout)
{
    const test::TemporaryProject project;
    Bitmap source = painted(false);
    ASSERT_TRUE(source.saveAs(u"c.xyz"));
    const std::string bytes = project.read("c.xyz");
    EXPECT_EQ(bytes.size(), 54U + 5 * 3 * 4);
    EXPECT_EQ(bytes.substr(0, 2), "BM");
    Bitmap back;
    back.loadBytes(asBytes(bytes), u"c.bmp"); // top-down files come out upside down
    EXPECT_EQ(back.getPixelValue(2, 0), source.getPixelValue(2, 2));
    EXPECT_FALSE(back.hasAlphaChannel());
}

/// A bitmap file of one row with the given bits.
std::string bmp(std::uint16_t bits, std::uint32_t coloursUsed, std::string_view behindHeader,
                int width)
{
    ByteWriter out;
    out.bytes("BM");
    out.zeros(12);
    out.u32(40);
    out.u32(static_cast<std::uint32_t>(width));
    out.u32(1);
    out.u16(1);
    out.u16(bits);
    out.zeros(16);
    out.u32(coloursUsed);
    out.u32(0);
    out.bytes(behindHeader);
    return out.take();
}

TEST(Bitmap, BmpOfEveryDepth)
{
    using namespace std::string_view_literals;
    struct
    {
        std::uint16_t bits;
        std::uint32_t used;
        std::string_view data;
        std::uint32_t expected;
    } const cases[] = {
        {8, 2, "\1\2\3\4\5\6\7\10\1\0\0\0"sv, 0x08070605},
        {16, 0, "\x1F\xF8"sv, 0x00FF00FF},
        {16, 0, "\x10\x04"sv, 0x00008183}, // 16 * 255 / 31 truncated, 32 * 255 / 63
        {24, 0, "\1\2\3\0"sv, 0x00030201},
        {32, 0, "\1\2\3\4"sv, 0x04030201},
    };
    for (const auto& c : cases) {
        Bitmap bitmap;
        bitmap.loadBytes(asBytes(bmp(c.bits, c.used, c.data, 1)), u"x.bmp");
        ASSERT_FALSE(bitmap.isEmpty()) << c.bits;
        EXPECT_EQ(bitmap.getPixelValue(0, 0), c.expected) << c.bits;
    }
    Bitmap bitmap;
    EXPECT_TRUE(bitmap.loadBytes(asBytes(bmp(4, 0, "", 1)), u"x.bmp"));
    EXPECT_TRUE(bitmap.isEmpty());
    EXPECT_TRUE(bitmap.getPath().empty());
}

/// 2 by 1 pixels, palette red and green, the second transparent.
const std::string kGif = {"GIF89a\2\0\1\0\x80\0\0"
                          "\xFF\0\0\0\xFF\0"
                          "!\xF9\4\1\0\0\1\0"
                          ",\0\0\0\0\2\0\1\0\0"
                          "\2\2\x44\x0A\0;",
                          13 + 6 + 8 + 10 + 6};

TEST(Bitmap, GifPaintsOnItsTransparentColour)
{
    const auto header = readGifHeader(asBytes(kGif));
    ASSERT_TRUE(header && header->transparentColour);
    EXPECT_EQ(*header->transparentColour, 0x00FF00U);
    Bitmap bitmap;
    bitmap.loadBytes(asBytes(kGif), u"x.gif");
    EXPECT_EQ(bitmap.getPixelColor(0, 0), 0x0000FFU); // red
    EXPECT_EQ(bitmap.getPixelColor(1, 0), bitmap.getColorKey());
}

TEST(Bitmap, DamagedFilesAreRefusedAtEveryCut)
{
    Bitmap source = painted(true);
    const std::string png = writePng(source);
    for (const auto& [bytes, name] : {std::pair(png, u"x.png"), std::pair(kGif, u"x.gif")}) {
        for (std::size_t cut = 0; cut + 20 < bytes.size(); ++cut) {
            Bitmap bitmap;
            try {
                bitmap.loadBytes(asBytes(bytes).first(cut), name);
                ADD_FAILURE() << "cut at " << cut;
            } catch (const Exception& fault) {
                EXPECT_NE(fault.getMessage().find(name), WString::npos);
                EXPECT_TRUE(bitmap.isEmpty());
            }
        }
    }
    Bitmap bitmap;
    EXPECT_THROW(bitmap.load(u"picture.xyz"), Exception);
    EXPECT_THROW(bitmap.load(u"missing.png"), Exception);
}

} // namespace
} // namespace varn
