#include "Graphics/Bitmap.h"
#include "PictureBytes.h"
#include "Support/TemporaryProject.h"

#include <gtest/gtest.h>

namespace varn {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;
using test::makeBmp;
using test::makeGif;
using test::makePng;
using test::PngParts;

/// The stored rows of two pixels and what comes out.
struct PngCase
{
    const char* name;
    PngParts file;
    bool hasAlpha;
    std::uint32_t key, first, second;
};

const PngCase kPngCases[] = {
    {"RGBA: the first clear pixel is the key",
     {.colourType = 6, .rows = "\0\1\2\3\x80\xFF\0\0\0"s},
     true,
     0x0000FF,
     0x80010203,
     0x00FF0000},
    {"RGBA without a clear pixel: the first one",
     {.colourType = 6, .rows = "\0\1\2\3\x80\xFF\0\0\1"s},
     true,
     0x030201,
     0x80010203,
     0x01FF0000},
    {"RGB", {.rows = "\0\1\2\3\4\5\6"s}, false, 0x030201, 0xFF010203, 0xFF040506},
    {"RGB with a transparent colour",
     {.transparency = "\0\4\0\5\0\6"sv, .rows = "\0\1\2\3\4\5\6"s},
     true,
     0x060504,
     0xFF010203,
     0x00040506},
    {"palette",
     {.colourType = 3, .palette = "\1\2\3\4\5\6"sv, .rows = "\0\1\0"s},
     false,
     0x060504,
     0xFF040506,
     0xFF010203},
    {"palette of one bit",
     {.depth = 1, .colourType = 3, .palette = "\1\2\3\4\5\6"sv, .rows = "\0\x40"s},
     false,
     0x030201,
     0xFF010203,
     0xFF040506},
    {"palette with transparency",
     {.colourType = 3, .palette = "\1\2\3\4\5\6"sv, .transparency = "\x80\0"sv, .rows = "\0\0\1"s},
     true,
     0x060504,
     0x80010203,
     0x00040506},
    {"grey with alpha",
     {.colourType = 4, .rows = "\0\7\x80\x9\0"s},
     true,
     0x090909,
     0x80070707,
     0x00090909},
    {"grey stays black and without a key",
     {.colourType = 0, .rows = "\0\7\x9"s},
     false,
     Bitmap::kNoKey,
     0,
     0},
    {"16 bits are read as bytes",
     {.depth = 16, .rows = "\0\1\2\3\4\5\6\7\x8\x9\xA\xB\xC"s},
     false,
     0x050603,
     0xFF030605,
     0xFF020104},
};

TEST(PngFile, EveryColourType)
{
    for (const PngCase& c : kPngCases) {
        Bitmap bitmap;
        ASSERT_TRUE(bitmap.loadBytes(asBytes(makePng(c.file)), u"x.png")) << c.name;
        EXPECT_EQ(bitmap.hasAlphaChannel(), c.hasAlpha) << c.name;
        EXPECT_EQ(bitmap.getColorKey(), c.key) << c.name;
        EXPECT_EQ(bitmap.getPixelValue(0, 0), c.first) << c.name;
        EXPECT_EQ(bitmap.getPixelValue(1, 0), c.second) << c.name;
    }
}

/// Grey without alpha leaves flag and key of the picture before, and zeroed pixels.
TEST(PngFile, GreyAfterAPictureWithAlpha)
{
    Bitmap bitmap;
    bitmap.loadBytes(asBytes(makePng(kPngCases[0].file)), u"x.png");
    bitmap.loadBytes(asBytes(makePng({.colourType = 0, .rows = "\0\7\x9"s})), u"x.png");
    EXPECT_TRUE(bitmap.hasAlphaChannel());
    EXPECT_EQ(bitmap.getColorKey(), 0x0000FFU);
    EXPECT_EQ(bitmap.getPixelValue(0, 0), 0U);
}

struct HostileCase
{
    const char* name;
    WStringView path;
    std::string bytes;
    WStringView refusal; ///< the sentence; empty: silently left empty
};

const HostileCase kHostileCases[] = {
    {"PNG: no bytes", u"x.png", "", u"Couldn't open x.png"},
    {"PNG: a size that its bytes cannot hold", u"x.png",
     makePng({.width = 32766, .height = 32766, .rows = "\0\1\2\3\4\5\6"s}), u"Couldn't open x.png"},
    {"PNG: a side too large", u"x.png",
     makePng({.width = 40000, .height = 1, .rows = "\0"s + std::string(60000, '\1')}),
     u"Couldn't open x.png"},
    {"PNG: no width", u"x.png", makePng({.width = 0, .rows = "\0"s}), u"Couldn't open x.png"},
    {"PNG: rows missing", u"x.png", makePng({.height = 3, .rows = "\0\1\2\3\4\5\6"s}),
     u"Couldn't open x.png"},
    {"PNG: no palette", u"x.png", makePng({.colourType = 3, .rows = "\0\1\0"s}),
     u"Couldn't open x.png"},
    {"PNG: a filter that is none", u"x.png", makePng({.rows = "\x9\1\2\3\4\5\6"s}),
     u"Couldn't open x.png"},
    {"BMP: no bytes", u"x.bmp", "", u"Failed GetFileSize"},
    {"BMP: other signature", u"x.bmp", makeBmp({.behindHeader = "abcd", .signature = "MB"}), u""},
    {"BMP: header cut", u"x.bmp", makeBmp({}).substr(0, 40), u""},
    {"BMP: four bits", u"x.bmp", makeBmp({.bits = 4, .behindHeader = "abcd"}), u""},
    {"BMP: negative width", u"x.bmp", makeBmp({.width = -1, .behindHeader = "abcd"}), u""},
    {"BMP: no rows", u"x.bmp", makeBmp({.height = 0, .behindHeader = "abcd"}), u""},
    {"BMP: the most negative height", u"x.bmp",
     makeBmp({.height = INT32_MIN, .behindHeader = "abcd"}), u""},
    {"BMP: a size that its bytes cannot hold", u"x.bmp",
     makeBmp({.width = 32766, .height = 32766, .behindHeader = "abcd"}), u""},
    {"GIF: unknown version", u"x.gif", makeGif({.version = "90a"}), u"x.gif"},
    {"GIF: a screen that its bytes cannot hold", u"x.gif",
     makeGif({.screenWidth = 65535, .screenHeight = 65535}), u"x.gif"},
    {"GIF: an image of no width", u"x.gif", makeGif({.width = 0}), u"x.gif"},
    {"GIF: an image far off the screen", u"x.gif", makeGif({.left = 65000}), u"x.gif"},
    {"GIF: codes missing", u"x.gif", makeGif({.height = 9}), u"x.gif"},
    {"GIF: no image", u"x.gif", makeGif({}).substr(0, 27), u"x.gif"},
    {"JPEG: no bytes", u"x.jpg", "", u"x.jpg"},
    {"JPEG: a GIF in disguise", u"x.jpeg", makeGif({}), u"x.jpeg"},
    {"JPEG: only a frame header of 65500 by 65500", u"x.jpg",
     "\xFF\xD8\xFF\xC0\0\x0B\x8\xFF\xDC\xFF\xDC\1\1\x11\0\xFF\xD9"s, u"x.jpg"},
    {"no picture at all", u"x.xyz", "BM", u"x.xyz"},
};

TEST(PictureFiles, HostileBytesLeaveTheBitmapEmpty)
{
    for (const HostileCase& c : kHostileCases) {
        Bitmap bitmap;
        bitmap.create(3, 3);
        WString refusal;
        try {
            bitmap.loadBytes(asBytes(c.bytes), c.path);
        } catch (const Exception& fault) {
            refusal = fault.getMessage();
        }
        EXPECT_TRUE(bitmap.isEmpty()) << c.name;
        EXPECT_TRUE(bitmap.getPath().empty()) << c.name;
        EXPECT_NE(refusal.find(c.refusal), WString::npos) << c.name << ": " << toUtf8(refusal);
        EXPECT_EQ(refusal.empty(), c.refusal.empty()) << c.name << ": " << toUtf8(refusal);
    }
}

TEST(BmpFile, WhatIsCutIsLeftBlackAndTopDownComesUpsideDown)
{
    Bitmap bitmap;
    bitmap.loadBytes(asBytes(makeBmp({.height = 2, .behindHeader = "\1\2\3\0"s})), u"x.bmp");
    EXPECT_EQ(bitmap.getPixelValue(0, 1), 0x030201U); // rows from the bottom
    EXPECT_EQ(bitmap.getPixelValue(0, 0), 0U);
    bitmap.loadBytes(asBytes(makeBmp({.height = -2, .behindHeader = "\1\2\3\0\4\5\6\0"s})),
                     u"x.bmp");
    EXPECT_EQ(bitmap.getPixelValue(0, 1), 0x030201U);
    EXPECT_EQ(bitmap.getColorKey(), 0x040506U);
    // More palette entries than there are bytes, and an index without one.
    bitmap.loadBytes(
        asBytes(makeBmp({.bits = 8, .coloursUsed = 0xFFFFFFFF, .behindHeader = "\1\2\3\4"s})),
        u"x.bmp");
    EXPECT_EQ(bitmap.getPixelValue(0, 0), 0U);
}

TEST(GifFile, TransparentColourByThePalette)
{
    Bitmap bitmap;
    bitmap.loadBytes(asBytes(makeGif({.transparentIndex = 0})), u"x.gif");
    EXPECT_EQ(bitmap.getColorKey(), 0xFF0000U); // the palette's red, its bytes as they stand
    EXPECT_EQ(bitmap.getPixelColor(0, 0), bitmap.getColorKey());
    EXPECT_EQ(bitmap.getPixelColor(1, 0), 0x00FF00U);
    // Beyond the palette: the key is black, and nothing of the picture is.
    bitmap.loadBytes(asBytes(makeGif({.transparentIndex = 9})), u"x.gif");
    EXPECT_EQ(bitmap.getColorKey(), 0U);
    EXPECT_EQ(bitmap.getPixelColor(0, 0), 0x0000FFU);
}

TEST(JpegFile, OpaqueColoursAndEveryCutRefused)
{
    const std::string bytes = test::readSource("fuzz/corpus/jpeg/plain");
    Bitmap bitmap;
    bitmap.loadBytes(asBytes(bytes), u"x.JPEG");
    ASSERT_FALSE(bitmap.isEmpty());
    EXPECT_FALSE(bitmap.hasAlphaChannel());
    EXPECT_EQ(bitmap.getColorKey(), bitmap.getPixelColor(0, 0));
    for (std::size_t cut = 0; cut + 2 < bytes.size(); cut += 7) {
        Bitmap part;
        EXPECT_THROW(part.loadBytes(asBytes(bytes).first(cut), u"x.jpg"), Exception) << cut;
        EXPECT_TRUE(part.isEmpty()) << cut;
    }
}

TEST(Bitmap, NeutralNamesAreReadByTheirContent)
{
    const test::TemporaryProject project;
    project.write("wall.dat", makePng(kPngCases[2].file));
    Bitmap bitmap;
    EXPECT_THROW(bitmap.load(u"wall.bmp"), Exception);
    Bitmap::neutralNames = true;
    EXPECT_TRUE(bitmap.load(u"wall.bmp"));
    EXPECT_THROW(bitmap.load(u"door.bmp"), Exception);
    Bitmap::neutralNames = false;
    EXPECT_TRUE(bitmap.isEmpty());
}

} // namespace
} // namespace varn
