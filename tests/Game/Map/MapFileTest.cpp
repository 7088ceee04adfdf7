#include "Game/Map/MapFile.h"

#include "Game/Database/WizFloor.h"
#include "Game/GameResourceFile.h"
#include "Game/Map/WizMap.h"
#include "Parser/XMLParser.h"
#include "Support/RecordingHost.h"
#include "Support/TemporaryProject.h"

#include <gtest/gtest.h>

namespace varn {
namespace {

using test::RecordingHost;
using test::TemporaryProject;

/// A project without tables and without an archive.
class MapFile : public testing::Test
{
  protected:
    MapFile() { reset(); }
    ~MapFile() override { reset(); }

    static void reset()
    {
        WizFloorList::instance().clear();
        closeProjectArchive();
        setMapFolder(u"Project/");
    }

    TemporaryProject project;
    RecordingHost host;
};

std::string gridOf(int cols, int rows, const std::string& cells)
{
    const auto low = [](int value) { return static_cast<char>(value & 0xFF); };
    return std::string{low(cols), low(cols >> 8), low(rows), low(rows >> 8)} + cells;
}

WString readText(const TemporaryProject& project, const char* path)
{
    const std::string bytes = project.read(path);
    EXPECT_EQ(bytes.substr(0, 2), "\xFF\xFE");
    return decodeBytes(asBytes(bytes)).text;
}

WString attributeOf(const WizMap& map, WStringView key)
{
    for (const MapAttribute& attribute : map.attributes()) {
        if (attribute.key == key)
            return attribute.value;
    }
    return u"(none)";
}

TEST_F(MapFile, WritesTheDocumentedBytes)
{
    WizMap map;
    map.cols = 7;
    map.rows = 3;
    map.cellAt(6, 2) = {1, 2, 3, 4, 255};
    map.cellAt(0, 0).floor = 5;
    std::string expected = gridOf(7, 3, std::string(7 * 3 * 5, '\0'));
    expected[4 + 4] = 5;
    expected.replace(expected.size() - 5, 5, "\1\2\3\4\xFF");
    EXPECT_EQ(writeMapGrid(map.cells, 7, 3), expected);

    const MapGrid grid = readMapGrid(asBytes(expected), u"F");
    EXPECT_EQ(grid.cols, 7);
    EXPECT_EQ(grid.rows, 3);
    EXPECT_EQ(grid.cells, map.cells);
}

TEST_F(MapFile, ReadsOddSizes)
{
    std::string counted; // floor bytes 0, 1, 2, ... of a file that is 120 wide
    for (int i = 0; i < 240; ++i)
        counted += std::string(4, '\0') + static_cast<char>(i);
    const struct
    {
        const char* name;
        std::string bytes;
        int cols, rows, secondRow; ///< the floor byte of the first cell of the second row
    } cases[] = {
        {"nothing each way", gridOf(0, 0, ""), 1, 1, 0},
        {"no columns", gridOf(0, 7, ""), 1, 7, 0},
        {"no rows but cells", gridOf(3, 0, counted), 3, 1, 0},
        {"too wide: rows slip", gridOf(120, 2, counted), 100, 2, 100},
        {"bytes behind the cells", gridOf(2, 2, counted), 2, 2, 2},
        {"too wide, just enough", gridOf(101, 1, counted.substr(0, 500)), 100, 1, 0},
    };
    for (const auto& c : cases) {
        const MapGrid grid = readMapGrid(asBytes(c.bytes), u"F");
        EXPECT_EQ(grid.cols, c.cols) << c.name;
        EXPECT_EQ(grid.rows, c.rows) << c.name;
        EXPECT_EQ(grid.cells[kMapStride].floor, c.secondRow) << c.name;
    }
}

TEST_F(MapFile, RefusesAGridThatEndsEarly)
{
    const std::string whole = gridOf(3, 2, std::string(30, '\1'));
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_THROW(readMapGrid(asBytes(whole).first(size), u"F"), Exception) << size;
    try {
        readMapGrid(asBytes(whole).first(20), u"Dungeon/B1F.map");
    } catch (const Exception& fault) {
        EXPECT_EQ(fault.getMessage(),
                  u"Dungeon/B1F.map: the file ends at byte 20; its 3 by 2 cells need 34");
    }
}

TEST_F(MapFile, WritesTheSideDocument)
{
    project.write("Dungeon/keep", "");
    WizMap map;
    map.cols = 2;
    map.rows = 1;
    map.names = {"Crypt \"1\"", narrow(u"\u5730\u4e0b & <")};
    map.bgm = u"dark.ogg";
    map.enemyTableId = 4;
    map.level = -2;
    map.setVisibleDistance(3);
    map.fogColor = 0x332211;
    map.teleportable = false;
    map.setImageName(ImageType::Floor, u"Graphics/Dungeon/Floors/a.png");
    GameEvent& event = map.events.add(std::make_unique<GameEvent>());
    event.names = {u"Door's", u""};
    event.x = 1;
    event.direction = Direction::South;
    event.aliveFlag = 7;
    event.sprite = u"lost";
    event.script = u"if (a < 1)\r\n\tMB(\"x\");";
    auto box = std::make_unique<TreasureBoxEvent>();
    box->treasureboxID = 12;
    box->priority = 2;
    map.events.add(std::move(box));
    map.areas.paint(2, 4, 3);
    map.areas.paint(2, 3, 3);
    map.areas.paint(1, 9, 0);
    map.areas.findByNumber(2)->type = 1;
    map.areas.findByNumber(2)->text = u"note";
    ASSERT_TRUE(map.save(u"Dungeon/B1F.map"));

    EXPECT_EQ(project.read("Dungeon/B1F.map").size(), 4U + 2 * 5);
    EXPECT_EQ(map.fileName, u"Dungeon/B1F");
    EXPECT_EQ(
        readText(project, "Dungeon/B1F.xml"),
        u"<?xml version=\"1.0\" encoding=\"UTF-16\"?>\r\n"
        u"<Map name=\"Crypt &quot;1&quot;\" name2=\"\u5730\u4e0b &amp; &lt;\" bgm=\"dark.ogg\" "
        u"bgs=\"\" "
        u"footstep=\"\" doorSe=\"door.wav\" background2D=\"\" floor2D=\"\" wall2D=\"\" "
        u"background=\"\" "
        u"floor=\"Graphics/Dungeon/Floors/a.png\" ceiling=\"\" wall=\"\" door=\"\" level='-2' "
        u"visibleDistance='3' enemyTable='4' fillDistantView='0' fogEnabled='1' fogColor='#112233' "
        u"teleportable='0' displayable='1' encounterSteps='100'>\r\n"
        u"<Event name=\"Door's\" name2=\"\" x=\"1\" y=\"0\" direction=\"4\" type=\"0\" move=\"0\" "
        u"trigger=\"0\" "
        u"hitbox=\"0\" priority=\"-1\" conditions=\"-1\">if (a &lt; "
        u"1)\r\n\tMB(&quot;x&quot;);</Event>\r\n"
        u"<Event name=\"\" name2=\"\" x=\"0\" y=\"0\" direction=\"0\" type=\"0\" move=\"0\" "
        u"trigger=\"0\" "
        u"hitbox=\"0\" priority=\"2\" conditions=\"-1\" treasureboxID=\"12\"></Event>\r\n"
        u"<Area name=\"\" number=\"1\" room=\"0\" enemyTableID=\"0\" teleportIntrusionBlock=\"0\" "
        u"coordinates=\"9,0\"></Area>\r\n"
        u"<Area name=\"\" number=\"2\" room=\"1\" enemyTableID=\"0\" teleportIntrusionBlock=\"0\" "
        u"coordinates=\"3,3 4,3\">note</Area>\r\n"
        u"</Map>\r\n");

    WizMap again;
    again.load(u"dungeon\\b1f.MAP");
    EXPECT_EQ(again.names, map.names);
    EXPECT_EQ(again.events.at(0).script, event.script);
    EXPECT_EQ(again.events.at(0).sprite, u"");
    EXPECT_EQ(again.areas, map.areas);
    EXPECT_EQ(again.fogColor, map.fogColor);
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(MapFile, TakesAttributesAndTheirDefaults)
{
    for (const char* file : {"Graphics/mine.png", "Graphics/Dungeon/other.png"})
        project.write(file, "");
    const struct
    {
        WStringView attribute; ///< as written in the root
        WStringView key, value;
    } cases[] = {
        {u"", u"footstep", u"footstep.wav"},
        {u"", u"doorSe", u"door.wav"},
        {u"footstep=''", u"footstep", u""},
        {u"", u"enemyTable", u"0"},
        {u"", u"encounterSteps", u"100"},
        {u"", u"fogColor", u"#000000"},
        {u"", u"fogEnabled", u"1"},
        {u"", u"fillDistantView", u"0"},
        {u"fogEnabled='-4' ", u"fogEnabled", u"1"},
        {u"teleportable='x'", u"teleportable", u"0"},
        {u"fogColor='#0aFf10'", u"fogColor", u"#0aff10"},
        {u"fogColor='red'", u"fogColor", u"#000000"},
        {u"fogColor='#12345g'", u"fogColor", u"#000000"},
        {u"visibleDistance='9'", u"visibleDistance", u"5"},
        {u"visibleDistance='-1'", u"visibleDistance", u"0"},
        {u"level='+12 '", u"level", u"12"},
        {u"", u"wall2D", u"Graphics/Dungeon/wall2D.png"},
        {u"wall2D='Graphics/no.png'", u"wall2D", u"Graphics/Dungeon/wall2D.png"},
        {u"wall2D='graphics/MINE.png'", u"wall2D", u"graphics/MINE.png"},
        {u"floor2D=''", u"floor2D", u"Graphics/System/floor2D.png"},
        {u"", u"background2D", u""},
        {u"background2D='Graphics/no.png'", u"background2D", u""},
        {u"background2D='Graphics/mine.png'", u"background2D", u"Graphics/mine.png"},
        {u"ceiling='Graphics/no.png'", u"ceiling", u""},
        {u"background='Graphics/mine.png'", u"background", u"Graphics/mine.png"},
        {u"", u"wall", u"Graphics/Dungeon/wall.png"},
        {u"door=''", u"door", u"Graphics/Dungeon/door.png"},
        {u"door='Graphics\\Dungeon\\other.png'", u"door", u"Graphics\\Dungeon\\other.png"},
    };
    for (const auto& c : cases) {
        project.write("m.map", gridOf(1, 1, "12345"));
        project.writeUtf16("m.xml", u"<Map " + WString(c.attribute) + u"></Map>");
        WizMap map;
        map.fogEnabled = map.teleportable = false;
        map.load(u"m.map");
        EXPECT_EQ(attributeOf(map, c.key), c.value) << toUtf8(c.attribute) << ' ' << toUtf8(c.key);
    }
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(MapFile, PassesOverViewPicturesWhenToldTo)
{
    project.write("m.map", gridOf(1, 1, "12345"));
    project.writeUtf16("m.xml", u"<Map wall='a.png'></Map>");
    WizMap map;
    map.skipViewImages = true;
    map.load(u"m.map");
    EXPECT_EQ(map.getImageName(ImageType::Wall), u"");
    EXPECT_EQ(map.getImageName(ImageType::Wall2D), u"Graphics/Dungeon/wall2D.png");
}

TEST_F(MapFile, FindsAFloorWhereItLies)
{
    const std::string grid = gridOf(1, 1, "12345");
    project.writeUtf16("below.xml", u"<Map level='1'></Map>");
    const struct
    {
        const char* file;
        WStringView folder, asked, base;
    } cases[] = {
        {"Dungeon/a.map", u"Project/", u"Dungeon/a.map", u"Dungeon/a"},
        {"Project/Dungeon/b.map", u"Project/", u"Dungeon/b.map", u"Project/Dungeon/b"},
        {"Maps/Dungeon/c.map", u"Maps", u"Dungeon/c.map", u"Maps/Dungeon/c"},
        {"Maps/d.map", u"Maps/", u"Dungeon/d.map", u"Maps/d"},
        {"Project/e.map", u"Maps/", u"e.map", u"Project/e"},
    };
    for (const auto& c : cases) {
        project.write(c.file, grid);
        setMapFolder(WString(c.folder));
        WizMap map;
        map.load(c.asked);
        EXPECT_EQ(map.fileName, c.base) << c.file;
        EXPECT_EQ(map.cellAt(0, 0).floor, '5') << c.file;
    }
}

TEST_F(MapFile, ReadsFromTheArchive)
{
    project.write("packed.map", gridOf(2, 1, "1234567890"));
    GameResourceFile archive;
    archive.addFile(u"Dungeon/B1F.map", u"packed.map");
    // The declaration of a document as it is written; the archive holds its text in UTF-8.
    archive.addText(u"Dungeon/B1F.xml", u"<?xml version=\"1.0\" encoding=\"UTF-16\"?>\r\n"
                                        u"<Map name='地図' level='7' wall2D='Graphics/w.png'><Area "
                                        u"number='3' x='1' y='2' width='2' height='3'/></Map>");
    archive.addText(u"Graphics/w.png", u"picture");
    ASSERT_TRUE(archive.save(u"GameData.gamedata"));

    WizMap map;
    map.load(u"Anywhere/B1F.map");
    EXPECT_EQ(map.cols, 2);
    EXPECT_EQ(widen(map.names[0]), u"地図");
    EXPECT_EQ(map.level, 7);
    EXPECT_EQ(map.getImageName(ImageType::Wall2D), u"Graphics/w.png");
    EXPECT_EQ(map.areas.at(0).getCoordinates().size(), 6U);
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(MapFile, RefusesAMissingFloorAndIsCleared)
{
    WizMap map;
    map.cellAt(0, 0).floor = 1;
    map.events.add(std::make_unique<GameEvent>());
    try {
        map.load(u"Dungeon/none.map");
        FAIL();
    } catch (const Exception& fault) {
        EXPECT_EQ(fault.getMessage(), u"Couldn't open Dungeon/none.map");
    }
    EXPECT_TRUE(map.events.empty());
    EXPECT_EQ(map.cells, WizMapCells());
}

TEST_F(MapFile, LoadsWithoutItsSideDocument)
{
    project.write("m.map", gridOf(1, 1, "12345"));
    WizMap map;
    map.level = 5;
    map.load(u"m.map");
    EXPECT_EQ(map.level, 0);
    EXPECT_EQ(map.cellAt(0, 0).floor, '5');
    EXPECT_EQ(host.messages, std::vector<WString>{u"Couldn't load this xml file.\nm.xml"});
}

TEST_F(MapFile, KeepsABrokenSideDocumentThroughASave)
{
    const std::string broken = "<Map level='5'><Event></Map>";
    project.write("m.map", gridOf(1, 1, "12345"));
    project.write("m.xml", broken);
    WizMap map;
    map.load(u"m.map");
    ASSERT_FALSE(host.messages.empty());
    EXPECT_EQ(host.messages.back(), u"Couldn't load this xml file.\nm.xml");
    ASSERT_TRUE(map.save(map.fileName));
    EXPECT_EQ(project.read("m.xml.bak"), broken);
    map.level = 1;
    ASSERT_TRUE(map.save(map.fileName));
    EXPECT_EQ(project.read("m.xml.bak"), broken) << "only once";
}

TEST_F(MapFile, SavesNothingWhereItCannot)
{
    WizMap map;
    map.fileName = u"before";
    EXPECT_FALSE(map.save(u"no/such/folder/m"));
    EXPECT_EQ(map.fileName, u"before");
    project.write("blocked.xml/inside", ""); // a folder where the side document should stand
    EXPECT_TRUE(map.save(u"blocked"));
    EXPECT_TRUE(project.has("blocked.map"));
}

} // namespace
} // namespace varn
