#include "Game/Database/LanguageManager.h"
#include "Game/Database/WizFloor.h"
#include "MapEditor3D/canvas/PointerInfo.h"
#include "MapEditor3D/canvas/TilePalette.h"
#include "Support/RecordingHost.h"
#include "Support/TemporaryProject.h"

#include <gtest/gtest.h>

namespace varn::test {

namespace {

/// The demo's kinds of events and a map of 20 by 20 with one of each thing at (12, 12).
class PaletteTest : public ::testing::Test
{
  protected:
    PaletteTest()
    {
        for (const char* const file : {"English.xml", "Japanese.xml"})
            project.write(std::string("Languages/") + file,
                          readSource(std::string("assets/Languages/") + file));
        project.write("Data/EventFloor.xml", readSource("demo/Data/EventFloor.xml"));
        EXPECT_TRUE(WizFloorList::instance().load(u"EventFloor.xml", 0));
        WizMap& map = editor.getMap();
        map.setWall(WallKind::HalfDoor, Direction::North, 12, 12);
        map.cellAt(12, 12).floor = 3;
        map.areas.paint(2, 12, 12);
        map.areas.at(0).name = "Ossuary";
        auto event = std::make_unique<GameEvent>();
        event->x = event->y = 12;
        event->names[0] = u"Hob";
        event->type = 1;
        map.events.add(std::move(event));
        speak(u"Languages/English.xml");
    }
    ~PaletteTest() override
    {
        speak(u"Languages/English.xml");
        WizFloorList::instance().resize(0);
    }
    static void speak(WStringView file) { EXPECT_TRUE(LanguageManager::instance().load(file)); }

    TemporaryProject project;
    RecordingHost host;
    WizMapEditor editor;
};

} // namespace

TEST_F(PaletteTest, ThePlaceUnderThePointerIsToldInBothLanguagesAndCoordinates)
{
    const auto lineAt = [&](CanvasCell place, CoordinateSystem first) {
        const auto info = lookUnder(editor, place);
        return info ? toUtf8(describe(*info, first).line()) : "outside";
    };
    const CanvasCell full{{12, 12}, Direction::North};
    EXPECT_EQ(lineAt(full, CoordinateSystem::Game),
              "X 12  Y 07 (map 12,12)    Wall: 1/2 Door, north edge    Floor tile 3    "
              "Area 2 \"Ossuary\"    Event \"Hob\" (Treasure)");
    EXPECT_EQ(lineAt({{20, 3}, Direction::West}, CoordinateSystem::Map),
              "X 00  Y 03 (game 0,16)    Wall: None, west edge")
        << "the first column behind the last";
    EXPECT_EQ(lineAt({{21, 3}, Direction::West}, CoordinateSystem::Map), "outside");
    EXPECT_EQ(lineAt({{-1, 3}, Direction::West}, CoordinateSystem::Map), "outside");

    speak(u"Languages/Japanese.xml");
    EXPECT_EQ(
        lineAt(full, CoordinateSystem::Game),
        "X 12  Y 07 (マップ 12,12)    北の辺: 1/2の扉    床タイル 3    エリア 2「Ossuary」    "
        "イベント「Hob」（Treasure）");
}

TEST_F(PaletteTest, AScreenReaderHearsAllWallsOfTheCell)
{
    editor.getMap().setWall(WallKind::Wall, Direction::West, 12, 12);
    editor.placeWalker({3, 3});
    const auto say = [&](MapCell cell) {
        return toUtf8(
            announce(*lookUnder(editor, {cell, Direction::None}), CoordinateSystem::Game));
    };
    EXPECT_EQ(say({12, 12}), "X 12  Y 07 (map 12,12), north edge: 1/2 Door, west edge: Wall, "
                             "Floor tile 3, Area 2 \"Ossuary\", Event \"Hob\" (Treasure)");
    EXPECT_EQ(say({3, 3}), "X 03  Y 16 (map 3,3), no walls, the walker stands here");
    speak(u"Languages/Japanese.xml");
    EXPECT_EQ(say({3, 3}), "X 03  Y 16 (マップ 3,3), 壁なし, 歩行者がここにいます");
}

TEST_F(PaletteTest, OffersTheValuesOfTheLayerInForce)
{
    TilePalette palette(editor);
    const auto names = [&](EditorLayer layer) {
        editor.setLayer(layer);
        std::string all;
        for (const PaletteEntry& entry : palette.entries())
            all += std::to_string(entry.value) + " " + toUtf8(entry.name) + "|";
        return all;
    };
    EXPECT_TRUE(names(EditorLayer::Wall).starts_with("0 None|1 Wall|2 Door|3 SW Door|"));
    EXPECT_TRUE(names(EditorLayer::Floor).starts_with("0 No floor|1 Floor tile 1|"));
    EXPECT_TRUE(names(EditorLayer::Event).starts_with("0 Message|1 Treasure|2 Warp|"));
    EXPECT_EQ(names(EditorLayer::Area), "0 No area|2 Ossuary|3 New area|");
    speak(u"Languages/Japanese.xml");
    EXPECT_EQ(names(EditorLayer::Area), "0 エリアなし|2 Ossuary|3 新しいエリア|");
    EXPECT_TRUE(names(EditorLayer::Wall).ends_with("13 北東へ抜けるシャッター|"));
}

TEST_F(PaletteTest, DigitsPickValuesAndBracketsGoRound)
{
    editor.setLayer(EditorLayer::Wall);
    const auto walls = TilePalette(editor).entries();
    EXPECT_EQ(valueOfDigit(walls, 0), WallKind::None);
    EXPECT_EQ(valueOfDigit(walls, 9), WallKind::HalfSwDoor);
    EXPECT_EQ(cycledValue(walls, WallKind::NeShutter, 1), WallKind::None);
    EXPECT_EQ(cycledValue(walls, WallKind::None, -1), WallKind::NeShutter);
    EXPECT_EQ(cycledValue(walls, 200, 1), WallKind::Wall);

    editor.setLayer(EditorLayer::Area);
    const auto areas = TilePalette(editor).entries();
    EXPECT_EQ(valueOfDigit(areas, 1), std::nullopt);
    EXPECT_EQ(cycledValue(areas, 0, 1), 2);
}

} // namespace varn::test
