#include "Game/Map/View/DungeonView.h"

#include "Game/Database/WizFloor.h"
#include "Support/RecordingHost.h"
#include "Support/TemporaryProject.h"

#include <gtest/gtest.h>

namespace varn {
namespace {

/// A picture whose every pixel tells its place, so that a wrong one shows.
void writePicture(WStringView path, int red)
{
    Bitmap bitmap;
    bitmap.setAlphaChannel(true);
    bitmap.create(32, 32);
    for (int y = 0; y < 32; ++y)
        for (int x = 0; x < 32; ++x)
            bitmap.setPixelRgb(x, y, static_cast<std::uint32_t>(x * 8 | y * 8 << 8 | red << 16));
    ASSERT_TRUE(bitmap.saveAs(path));
}

class View : public ::testing::Test
{
  protected:
    View()
    {
        WizFloorList::instance().clear();
        std::filesystem::create_directories("Graphics/System");
        writePicture(u"Graphics/System/eventFloor.png", 10);
        writePicture(u"wall.png", 200);
        writePicture(u"door.png", 100);
        writePicture(u"floor.png", 30);
        map.cols = map.rows = 12;
        map.setImageName(ImageType::Wall, u"wall.png");
        map.setImageName(ImageType::Door, u"door.png");
        map.setImageName(ImageType::Floor, u"floor.png");
        map.fogEnabled = false;
    }

    void draw(DungeonView& view, Graphics& surface, const Viewpoint& viewer,
              Mirror mirror = Mirror::Off)
    {
        surface.setSize(160, 120);
        view.drawView(surface, {0, 0, 160, 120}, viewer, mirror);
    }

    static int redAt(const Graphics& surface, int x, int y)
    {
        return static_cast<int>(surface.getBitmap().getPixelValue(x, y) >> 16 & 0xFF);
    }

    test::TemporaryProject project;
    test::RecordingHost host;
    WizMap map;
};

TEST_F(View, WallsDoorsFloorAndNothing)
{
    map.setWall(1, Direction::North, 5, 4);
    map.setWall(2, Direction::West, 5, 5);
    DungeonView view(map);
    Graphics surface;
    draw(view, surface, {5, 5, Direction::North});
    EXPECT_EQ(redAt(surface, 80, 20), 0);   // above the far wall: no ceiling, black
    EXPECT_EQ(redAt(surface, 80, 60), 200); // the wall one step ahead
    EXPECT_EQ(redAt(surface, 5, 60), 100);  // the door at the left hand
    EXPECT_EQ(redAt(surface, 80, 115), 30); // the floor at the feet
    map.setWall(0, Direction::North, 5, 4);
    draw(view, surface, {5, 5, Direction::North});
    EXPECT_EQ(redAt(surface, 80, 60), 0);
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(View, KeptPiecesGiveTheSamePictureAndMirrorIsExact)
{
    for (int i = 0; i < 12; ++i) {
        map.setWall(1, Direction::North, i, 3);
        map.setWall(i % 2 ? 2 : 1, Direction::East, i, 5);
    }
    map.setWall(2, Direction::East, 7, 6);
    map.fogEnabled = true;
    map.fogColor = 0x604020;
    map.setVisibleDistance(4);
    DungeonView view(map);
    Graphics first, again, mirrored;
    draw(view, first, {6, 6, Direction::North});
    draw(view, again, {6, 6, Direction::North});
    draw(view, mirrored, {6, 6, Direction::North}, Mirror::On);
    for (int y = 0; y < 120; ++y) {
        for (int x = 0; x < 160; ++x) {
            ASSERT_EQ(first.getBitmap().getPixelColor(x, y), again.getBitmap().getPixelColor(x, y));
            ASSERT_EQ(first.getBitmap().getPixelColor(x, y),
                      mirrored.getBitmap().getPixelColor(159 - x, y));
        }
    }
}

TEST_F(View, FogPullsFarWallsToItsColour)
{
    map.setWall(1, Direction::North, 5, 5);
    map.setWall(1, Direction::North, 8, 1);
    map.fogEnabled = true;
    map.fogColor = 0x000000;
    map.setVisibleDistance(5);
    DungeonView view(map);
    Graphics near, far;
    draw(view, near, {5, 5, Direction::North});
    draw(view, far, {8, 5, Direction::North});
    const int nearRed = redAt(near, 80, 60), farRed = redAt(far, 80, 60);
    EXPECT_LT(nearRed, 200);
    EXPECT_LT(farRed, nearRed / 2);
    EXPECT_GT(farRed, 0);
}

TEST_F(View, FogLeavesTheKeyColourClear)
{
    Bitmap bars; // 24 bits: the colour of its first pixel is the key
    bars.create(32, 32);
    for (int y = 0; y < 32; ++y)
        for (int x = 0; x < 32; ++x)
            bars.setPixelRgb(x, y, y < 16 ? 0x406080 : 0x00C000);
    ASSERT_TRUE(bars.saveAs(u"bars.bmp"));
    map.setImageName(ImageType::Wall, u"bars.bmp");
    map.setWall(1, Direction::North, 5, 5);
    map.fogEnabled = true;
    map.fogColor = 0x0000FF;
    map.setVisibleDistance(2);
    DungeonView view(map);
    Graphics surface;
    draw(view, surface, {5, 5, Direction::North});
    EXPECT_EQ(redAt(surface, 80, 45), 0); // a saved bitmap comes back upside down
    EXPECT_GT(redAt(surface, 80, 75), 0);
}

TEST_F(View, AMissingPictureIsToldOnceAndLeftOut)
{
    map.setImageName(ImageType::Wall, u"lost.png");
    map.setWall(1, Direction::North, 5, 5);
    DungeonView view(map);
    Graphics surface;
    draw(view, surface, {5, 5, Direction::North});
    draw(view, surface, {5, 5, Direction::North});
    ASSERT_EQ(host.messages.size(), 1U);
    EXPECT_EQ(host.messages[0], u"lost.png\nCouldn't load this image file.");
    EXPECT_EQ(redAt(surface, 80, 115), 30);
}

} // namespace
} // namespace varn
