// What fills or changes the open floor: it shows before it does, and one undo takes it back.
#include "DialogFixture.h"

#include "Component/Application.h"
#include "Graphics/PngFile.h"
#include "MapEditor3D/frame/dialogs/MapGeneratorDialog.h"
#include "MapEditor3D/frame/dialogs/PhotoToMapDialog.h"
#include "MapEditor3D/frame/dialogs/ReplaceDialog.h"
#include "Util/File.h"

namespace varn::test {

namespace {

class GenerateTest : public DialogTest
{
  protected:
    GenerateTest()
    {
        editor.load(u"Dungeon/Ossuary.map");
        before = editor.getMap().cells;
    }

    /// Takes a field's text for another, as one who types does.
    static void retype(NativeHandle field, WStringView text)
    {
        robot::key(field, 'A', kHeldControl);
        robot::type(field, text);
    }

    WizMapEditor editor;
    WizMapCells before{};
};

/// A picture of two by two cells of 16 pixels: a wall around all of them, nothing inside, on a
/// ground of a colour of its own.
void drawPicture(const std::filesystem::path& file)
{
    constexpr int kSide = 32;
    constexpr std::uint32_t kInk = 0x000000, kGround = 0xC0B090;
    Bitmap picture;
    picture.create(kSide, kSide);
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x) {
            const bool edge = x == 0 || y == 0 || x == kSide - 1 || y == kSide - 1;
            picture.setPixelRgb(x, y, edge ? kInk : kGround);
        }
    replaceFile(file, asBytes(writePng(picture)));
}

} // namespace

TEST_F(GenerateTest, TheGeneratorsFloorFollowsTheSeedAndIsOneStep)
{
    MapGeneratorDialog dialog(editor);
    show(dialog);
    EXPECT_EQ(editor.getMap().cells, before) << "only the preview is filled";
    retype(control(dialog, u"Seed"), u"77");
    press(dialog, u"OK");

    Random random;
    random.seed(77);
    WizMap same = editor.getMap();
    same.cells = before;
    generator::DungeonGenerator({}, random).generate(same);
    EXPECT_EQ(editor.getMap().cells, same.cells);
    EXPECT_FALSE(editor.getMap().events.list().empty());
    editor.undo();
    EXPECT_EQ(editor.getMap().cells, before);
    EXPECT_FALSE(editor.canUndo());
}

TEST_F(GenerateTest, CancelLeavesTheFloor)
{
    MapGeneratorDialog dialog(editor);
    show(dialog);
    press(dialog, u"Execute");
    press(dialog, u"Cancel");
    EXPECT_FALSE(stands(dialog));
    EXPECT_EQ(editor.getMap().cells, before);
    EXPECT_FALSE(editor.canUndo());
}

TEST_F(GenerateTest, APictureIsDroppedMaskedAndRead)
{
    drawPicture(project.root() / "map.png");
    Settings settings(project.root() / "settings.ini");
    PhotoToMapDialog dialog(editor, settings);
    show(dialog);
    const NativeHandle picture = dialog.getPicture().getHandle();
    robot::dropFile(picture, u"map.png");
    ASSERT_EQ(dialog.getPicture().getImage().getWidth(), 32);
    EXPECT_EQ(dialog.getPicture().getGridColumns(), 2);
    EXPECT_EQ(dialog.getPreview().getMap().cellAt(0, 0).east, WallKind::Door)
        << "the ground counts as drawn until it is taken out";

    robot::press(picture, 20, 20, robot::Button::Right);
    robot::release(picture, 20, 20, robot::Button::Right);
    EXPECT_EQ(dialog.getPicture().getOptions().maskedColours,
              (std::vector<std::uint32_t>{0xC0B090}));
    press(dialog, u"Execute");
    const WizMapData corner = dialog.getPreview().getMap().cellAt(0, 0);
    EXPECT_EQ(corner.north, WallKind::Wall);
    EXPECT_EQ(corner.west, WallKind::Wall);
    EXPECT_EQ(corner.east, WallKind::None);
    EXPECT_EQ(corner.south, WallKind::None);
    EXPECT_EQ(settings.getSettingInt(kPhotoSection, u"TileSize", 0), 16);

    robot::press(picture, 20, 20);
    robot::release(picture, 20, 20);
    EXPECT_TRUE(dialog.getPicture().getOptions().maskedColours.empty());
    EXPECT_EQ(editor.getMap().cells, before);
    press(dialog, u"OK");
    EXPECT_NE(editor.getMap().cells, before);
    editor.undo();
    EXPECT_EQ(editor.getMap().cells, before);
}

TEST_F(GenerateTest, APictureThatIsNoneIsToldAndTheOneBeforeStays)
{
    drawPicture(project.root() / "map.png");
    project.write("broken.png", "no picture");
    Settings settings(project.root() / "settings.ini");
    PhotoToMapDialog dialog(editor, settings);
    show(dialog);
    ASSERT_TRUE(dialog.openImage(project.root() / "map.png"));
    EXPECT_FALSE(dialog.openImage(project.root() / "broken.png"));
    EXPECT_EQ(host.messages.size(), 1U);
    EXPECT_EQ(dialog.getPicture().getImage().getWidth(), 32);
}

TEST_F(GenerateTest, ReplacingSaysHowManyAndIsOneStep)
{
    editor.setLayer(EditorLayer::Floor);
    editor.setSelectedTile(0);
    ReplaceDialog dialog(editor);
    show(dialog);
    const int count = countTiles(editor.getMap(), {TileReplacement::Layer::Floor, 0, 1, {}});
    ASSERT_GT(count, 0);
    EXPECT_TRUE(control(dialog, toDecimal(count) + u" cells will be replaced."));
    press(dialog, u"Replace");
    EXPECT_EQ(countTiles(editor.getMap(), {TileReplacement::Layer::Floor, 0, 1, {}}), 0);
    editor.undo();
    EXPECT_EQ(editor.getMap().cells, before);
}

} // namespace varn::test
