#include "Game/Map/Map2D.h"

#include "Support/RecordingHost.h"
#include "Support/TemporaryProject.h"
#include "Util/TextFile.h"

#include <gtest/gtest.h>

namespace varn {
namespace {

using test::TemporaryProject;
using Tiles = std::vector<std::uint16_t>;

Map2D sample()
{
    Map2D map;
    map.col = 3;
    map.row = 2;
    map.layer = 2;
    map.tiles = {1, 2, 3, 4, 5, 6, 11, 12, 13, 14, 15, 0x1234};
    return map;
}

std::string own(const std::string& sizes, char bits, const std::string& tiles)
{
    return "MAP2" + std::string("\1\0", 2) + sizes + bits + std::string(4, '\0') + tiles;
}

std::string chunk(char tag, const std::string& data)
{
    return std::string{tag, static_cast<char>(data.size())} + data;
}

TEST(Map2D, WritesTheDocumentedBytes)
{
    Map2D map = sample();
    map.endian = 7;
    const std::string expected =
        std::string("MAP2\1\7\3\0\2\0\2\x10\0\0\0\0", 16) +
        std::string("\1\0\2\0\3\0\4\0\5\0\6\0\x0B\0\x0C\0\x0D\0\x0E\0\x0F\0\x34\x12", 24);
    EXPECT_EQ(map.toBytes(), expected);
    Map2D again;
    ASSERT_TRUE(again.fromBytes(asBytes(expected), u"F"));
    EXPECT_EQ(again.toBytes(), expected);
    EXPECT_EQ(again.tileAt(1, 2, 1), 0x1234);
}

TEST(Map2D, RefusesWhatIsNoMap)
{
    const std::string one("\1\0\1\0\1", 5);
    const std::string wide("\xFF\xFF\xFF\xFF\xFF", 5);
    const struct
    {
        const char* name;
        std::string bytes;
        bool throws; ///< else: false
    } cases[] = {
        {"empty", "", false},
        {"other magic", "MAP3", false},
        {"foreign magic in another case", "\x0AlcfMapUnit", false},
        {"cut in the head", "MAP2\1", true},
        {"cut in the tiles", own(one, 16, "x"), true},
        {"huge", own(wide, 16, "xx"), true},
        {"32 bits a tile", own(one, 32, "xxxx"), true},
        {"0 bits a tile", own(one, 0, ""), true},
        {"foreign, huge without layers",
         "\x0ALcfMapUnit" + chunk(2, "\x83\xFF\x7F") + chunk(3, "\x83\xFF\x7F"), true},
        {"foreign, too wide", "\x0ALcfMapUnit" + chunk(2, "\x84\x80\x7F"), true},
        {"foreign, endless number", "\x0ALcfMapUnit\x02" + std::string(12, '\xFF'), true},
        {"foreign, chunk too long", "\x0ALcfMapUnit\x02\x7F", true},
    };
    for (const auto& c : cases) {
        Map2D map = sample();
        const std::string before = map.toBytes();
        if (c.throws)
            EXPECT_THROW(map.fromBytes(asBytes(c.bytes), u"F"), Exception) << c.name;
        else
            EXPECT_FALSE(map.fromBytes(asBytes(c.bytes), u"F")) << c.name;
        EXPECT_EQ(map.toBytes(), before) << c.name;
    }
}

TEST(Map2D, ReadsSmallTiles)
{
    Map2D map;
    ASSERT_TRUE(map.fromBytes(asBytes(own(std::string("\2\0\1\0\1", 5), 8, "\x05\xFE")), u"F"));
    EXPECT_EQ(map.tiles, (Tiles{5, 254}));
}

TEST(Map2D, ImportsAForeignMapUnit)
{
    const std::string first("\x00\x00\xE8\x03", 4);  // 0, 1000
    const std::string second("\x10\x27\x11\x27", 4); // 10000, 10001
    Map2D map;
    ASSERT_TRUE(
        map.fromBytes(asBytes("\x0ALcfMapUnit" + chunk(1, "skipped") + chunk(2, "\2") +
                              chunk(3, "\1") + chunk(71, first) + chunk(72, second) + "junk"),
                      u"F"));
    EXPECT_EQ(map.col, 2);
    EXPECT_EQ(map.row, 1);
    EXPECT_EQ(map.layer, 2);
    EXPECT_EQ(map.tiles, (Tiles{0, 3, 0, 1 + 18 + 8 * 30}));
}

TEST(Map2D, TranslatesForeignTiles)
{
    const struct
    {
        int value, tile;
    } cases[] = {
        {999, 0},
        {1500, 3},
        {2999, 120},
        {3500, 0},
        {4000, 240},
        {4049, 240},
        {4050, 243},
        {4200, 6},
        {4550, 9 + 30 * 12},
        {4599, 9 + 30 * 12},
        {4600, 0},
        {5000, 12},
        {5007, 43},
        {9999, 12 + 1 + 30 * 833},
        {10000, 0},
        {10006, 288},
        {10047, 258 + 5 + 30 * 7},
        {10048, 24},
        {65535, 5 + 6 * 578 + 18 + 15 * 30},
    };
    for (const auto& c : cases)
        EXPECT_EQ(translateForeignTile(static_cast<std::uint16_t>(c.value)), c.tile) << c.value;
}

TEST(Map2D, MovesItsTiles)
{
    const struct
    {
        const char* name;
        void (*change)(Map2D&);
        int col, row;
        Tiles tiles;
    } cases[] = {
        {"shift",
         [](Map2D& m) { m.shift(1, 0); },
         3,
         2,
         {3, 1, 2, 6, 4, 5, 13, 11, 12, 0x1234, 14, 15}},
        {"shift up, backwards",
         [](Map2D& m) { m.shift(-4, -1); },
         3,
         2,
         {5, 6, 4, 2, 3, 1, 15, 0x1234, 14, 12, 13, 11}},
        {"equal offsets do nothing", [](Map2D& m) { m.shift(1, 1); }, 3, 2, sample().tiles},
        {"rotate",
         [](Map2D& m) { m.rotate(); },
         2,
         3,
         {3, 6, 2, 5, 1, 4, 13, 0x1234, 12, 15, 11, 14}},
        {"reflect",
         [](Map2D& m) { m.reflect(); },
         3,
         2,
         {3, 2, 1, 6, 5, 4, 13, 12, 11, 0x1234, 15, 14}},
    };
    for (const auto& c : cases) {
        Map2D map = sample();
        c.change(map);
        EXPECT_EQ(map.col, c.col) << c.name;
        EXPECT_EQ(map.row, c.row) << c.name;
        EXPECT_EQ(map.tiles, c.tiles) << c.name;
    }
    try {
        Map2D().rotate();
        FAIL();
    } catch (const Exception& fault) {
        EXPECT_EQ(fault.getMessage(), u"Error: MapData is null. Couldn't rotete the map.");
    }
}

TEST(Map2D, SavesAndLoadsItsPair)
{
    const TemporaryProject project;
    Map2D map = sample();
    map.names = {"one", "two"};
    map.imageNames = {u"a.png", u"b&c.png"};
    map.enemyTableId = 4;
    map.loop = 1;
    map.events.add(std::make_unique<GameEvent>());
    map.areas.paint(1, 2, 3);
    ASSERT_TRUE(map.save(u"field"));
    const WString text = decodeBytes(asBytes(project.read("field.xml"))).text;
    EXPECT_TRUE(text.starts_with(u"<?xml version=\"1.0\" encoding=\"UTF-16\"?>\r\n\r\n<Map col='3' "
                                 u"row='2' layer='2' endian='0' "
                                 u"enemyTableID='4' loop='1' name=\"one\" name=\"two\" bgm=\"\" "
                                 u"images=\"a.png|b&amp;c.png\">\r\n"
                                 u"\t<Event name"))
        << toUtf8(text);
    EXPECT_TRUE(text.ends_with(u"coordinates=\"2,3\"></Area>\r\n</Map>\r\n"));

    std::filesystem::create_directory("Project2D");
    for (const char* file : {"field.map", "field.xml"})
        std::filesystem::rename(file, std::filesystem::path("Project2D") / file);
    Map2D again;
    ASSERT_TRUE(again.load(u"field.map"));
    EXPECT_EQ(again.fileName, u"Project2D/field");
    EXPECT_EQ(again.names[0], "two") << "both stand under one key, the later wins";
    EXPECT_EQ(again.imageNames, map.imageNames);
    EXPECT_EQ(again.tiles, map.tiles);
    EXPECT_EQ(again.events.size(), 1U);
    EXPECT_EQ(again.areas, map.areas);
    EXPECT_FALSE(again.load(u"none.map"));

    Map2D empty;
    ASSERT_TRUE(empty.save(u"new.map"));
    EXPECT_EQ(project.read("new.map").size(), 16U + 100 * 100 * 2);
}

} // namespace
} // namespace varn
