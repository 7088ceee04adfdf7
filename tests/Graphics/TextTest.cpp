#include "Graphics/Graphics.h"
#include "Support/GoldenPicture.h"

#include <set>

namespace varn {
namespace {

constexpr std::uint32_t kPaper = 0xF0E8E0, kInk = 0x203080;

void layPaper(Graphics& surface)
{
    surface.fillRect({0, 0, surface.getWidth(), surface.getHeight()}, kPaper, 255);
    surface.setTextColor(kInk);
}

TEST(Text, WithoutAntialiasingTheSameEverywhere)
{
    Graphics surface(200, 96);
    layPaper(surface);
    surface.selectFont({.height = 16});
    surface.drawString(u"Gate of ribs\r\n扉は開いた。", 4, 2);
    surface.selectFont({.family = u"No Such Family", .height = 12, .bold = true});
    surface.lineGap = 3;
    surface.drawString(u"a\tb\tc\nギザ ＡＢＣ", 4, 40);
    surface.drawBorderString(u"12 HP", 150, 60, 0xFFFFFF, 0x000000);
    surface.selectFont({.height = 9, .underline = true});
    surface.drawString(u"cut at the edge of the surface, and not past it", 60, 84);
    std::set<std::uint32_t> colours;
    for (int y = 0; y < surface.getHeight(); ++y)
        for (int x = 0; x < surface.getWidth(); ++x)
            colours.insert(surface.getBitmap().getPixelColor(x, y));
    EXPECT_EQ(colours, (std::set<std::uint32_t>{kPaper, kInk, 0xFFFFFF, 0x000000}));
    EXPECT_TRUE(test::isGolden(surface.getBitmap(), "Graphics/golden/text.png"));
}

TEST(Text, WidthIsThatOfTheWidestLine)
{
    Graphics surface(8, 8);
    surface.selectFont({.height = 16});
    const int wide = surface.getStringWidth(u"longer");
    EXPECT_EQ(wide, 6 * 8);
    EXPECT_EQ(surface.getStringWidth(u"ab\r\nlonger"), wide);
    EXPECT_EQ(surface.getStringWidth(u"longer\n\n\r"), wide);
    EXPECT_EQ(surface.getStringWidth(u"扉x"), 16 + 8);
    EXPECT_EQ(surface.getStringWidth(u""), 0);
    EXPECT_GT(surface.getStringWidth(u"a\tb"), surface.getStringWidth(u"ab"));
    EXPECT_EQ(raster().measureFont({.height = 16}).height, 16);
}

TEST(Text, FamiliesAreListed)
{
    const std::vector<WString> families = raster().fontFamilies();
    EXPECT_NE(std::find(families.begin(), families.end(), u"VL Gothic"), families.end());
}

TEST(Shapes, LieWhereTheyAreTold)
{
    Graphics surface(120, 64);
    layPaper(surface);
    surface.setFillColor(0x3060C0);
    surface.setPen(0x102030);
    surface.fillOval(4, 4, 40, 24);
    surface.fillArc(50, 4, 28, 28, 0, 270);
    surface.fillRoundRect(84, 4, 30, 20, 10, 10);
    surface.drawFramedRect({4, 36, 30, 20}, 3, 0xFFFFFF, 0x0000A0);
    surface.fillPolygon(std::vector<Point>{{44, 40}, {60, 36}, {74, 58}, {40, 60}});
    surface.drawPolygon(std::vector<Point>{{84, 36}, {112, 40}, {98, 58}}, 2, 0x008000);
    surface.drawLine(0, 63, 119, 63, 0x0000FF);
    surface.drawLine(119, 0, 119, 62);
    EXPECT_EQ(surface.getBitmap().getPixelColor(119, 63), 0x0000FFU); // both ends are drawn
    EXPECT_TRUE(test::isGolden(surface.getBitmap(), "Graphics/golden/shapes.png"));
}

} // namespace
} // namespace varn
