#include "Game/Map/View/DungeonView.h"
#include "Game/Map/View/MapPicture.h"
#include "PictureScene.h"
#include "Support/GoldenPicture.h"
#include "Util/Random.h"

namespace varn {
namespace {

constexpr int kWidth = 160, kHeight = 120;

class Golden : public test::PictureScene
{
  protected:
    ::testing::AssertionResult view(const std::string& name, const Viewpoint& viewer,
                                    Mirror mirror = Mirror::Off)
    {
        DungeonView view(map);
        Graphics surface(kWidth, kHeight);
        // Twice: what is kept of the first must give the same.
        for (int i = 0; i < 2; ++i) {
            programRandom().seed(5);
            view.drawView(surface, {0, 0, kWidth, kHeight}, viewer, mirror);
        }
        return test::isGolden(surface.getBitmap(), "Game/Map/View/golden/" + name + ".png");
    }

    /// Kind k on the north edge of column k in row 5; one-way kinds along a corridor in column 5.
    void buildKinds()
    {
        map.cols = 14;
        for (int kind = 0; kind < 14; ++kind)
            map.setWall(kind, Direction::North, kind, 5);
    }
    void buildCorridor()
    {
        const int left[] = {3, 12, 4}, right[] = {13, 4, 3};
        for (int i = 0; i < 3; ++i) {
            map.setWall(left[i], Direction::West, 5, 8 - i);
            map.setWall(right[i], Direction::East, 5, 8 - i);
        }
    }
};

TEST_F(Golden, EveryWallKindFromBothSides)
{
    buildKinds();
    map.fogEnabled = false;
    EXPECT_TRUE(view("kinds-0-6", {3, 7, Direction::North}));
    EXPECT_TRUE(view("kinds-7-13", {10, 7, Direction::North}));
    EXPECT_TRUE(view("kinds-6-0-behind", {3, 2, Direction::South}));
    EXPECT_TRUE(view("kinds-13-7-behind", {10, 2, Direction::South}));
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(Golden, OneWayCorridorInFogToTheFilledDistance)
{
    buildCorridor();
    map.fillDistantView = true;
    EXPECT_TRUE(view("corridor", {5, 8, Direction::North}));
}

TEST_F(Golden, EventsByPositionADarkCellAndALookThroughAWarp)
{
    for (const Direction facing : kSides)
        place(Sign, 5, 7, facing);
    place(Plate, 5, 7, Direction::East);
    place(Plate, 4, 7);
    place(Lamp, 5, 6);
    place(Idol, 6, 6);
    place(Gloom, 4, 6);
    place(Gate, 5, 5, {}, u"warp(1, 1);");
    place(Idol, 1, 1);
    map.setWall(1, Direction::West, 1, 1);
    map.setWall(2, Direction::North, 1, 0);
    EXPECT_TRUE(view("events", {5, 8, Direction::North}));
}

TEST_F(Golden, ADarkPlaceByLightIsVeiled)
{
    buildCorridor();
    place(Gloom, 5, 8);
    map.light = {.active = true, .power = 150};
    EXPECT_TRUE(view("veiled", {5, 8, Direction::North}));
}

TEST_F(Golden, BackgroundStaysWhereItDoesNotFlip)
{
    map.setImageName(ImageType::Ceiling, u"");
    map.setImageName(ImageType::Background, u"sky.png");
    map.setWall(2, Direction::West, 5, 8);
    map.setWall(1, Direction::North, 6, 7);
    EXPECT_TRUE(view("flipped", {5, 8, Direction::North}, Mirror::On));
}

TEST_F(Golden, PrintedMapOfEveryKind)
{
    map.cols = 14;
    map.rows = 3;
    for (int kind = 0; kind < 14; ++kind) {
        map.setWall(kind, Direction::North, kind, 1);
        map.setWall(kind, Direction::West, kind, 2);
        map.cellAt(kind, 2).floor = static_cast<std::uint8_t>(kind % 8);
    }
    place(Sign, 3, 0, Direction::North);
    place(Gate, 13, 2);
    place(Idol, 0, 1);
    WizFloorList::instance().at(Idol).setVisibility2D(false);
    WizMapImage images(MapPictures::Plan);
    images.update(map);
    Graphics surface;
    drawMapPicture(surface, map, images);
    EXPECT_EQ(surface.getWidth(), 14 * 16 + 32);
    EXPECT_TRUE(test::isGolden(surface.getBitmap(), "Game/Map/View/golden/printed.png"));
    EXPECT_TRUE(host.messages.empty());
}

} // namespace
} // namespace varn
