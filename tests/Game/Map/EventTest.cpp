#include "Game/Map/GameEvent.h"

#include "Game/Database/WizFloor.h"
#include "Game/Map/AreaManager.h"
#include "Parser/XMLParser.h"

#include <gtest/gtest.h>

namespace varn {
namespace {

const Element& parsed(XMLParser& parser, WStringView text)
{
    EXPECT_TRUE(parser.parse(WString(text)));
    return *parser.getRootElement();
}

template <class T>
T readFrom(WStringView text)
{
    XMLParser parser;
    T value;
    value.fromXml(parsed(parser, text));
    return value;
}

template <class T>
WString written(const T& value)
{
    NodeArena arena;
    return value.toXml(arena)->toString();
}

TEST(GameEvent, TakesEveryAttribute)
{
    const auto event = readFrom<GameEvent>(
        u"<Event name='n' name2='m' x='-1' y='2' direction='77' type='4' move='5' trigger='6' "
        u"hitbox='1' priority='8' aliveFlag='9' conditions='10' sprite='s'>a &lt; b &amp;&amp; "
        u"c</Event>");
    EXPECT_EQ(event.names[1], u"m");
    EXPECT_EQ(event.x, -1);
    EXPECT_EQ(event.direction.getValue(), 77) << "kept, though it is no direction";
    EXPECT_EQ(event.aliveFlag, 9);
    EXPECT_EQ(event.sprite, u"s");
    EXPECT_EQ(event.script, u"a < b && c");
    EXPECT_EQ(written(event),
              u"<Event name=\"n\" name2=\"m\" x=\"-1\" y=\"2\" direction=\"77\" type=\"4\" "
              u"move=\"5\" trigger=\"6\" "
              u"hitbox=\"1\" priority=\"8\" conditions=\"10\">a &lt; b &amp;&amp; c</Event>");

    const auto bare = readFrom<GameEvent>(u"<Event/>");
    EXPECT_EQ(bare.priority, 0) << "what a file lacks is 0, whatever a new event starts with";
    EXPECT_EQ(bare.conditions, -1);
    EXPECT_EQ(readFrom<GameEvent>(u"<Event conditions='0'/>").conditions, -1);
}

TEST(GameEvent, IsATreasureBoxWhereItsTypeSaysSo)
{
    WizFloorData plain, box;
    box.setTreasurebox(true);
    WizFloorList& floors = WizFloorList::instance();
    floors.clear();
    floors.add(plain);
    floors.add(box);

    EventManager events;
    for (const WStringView text :
         {u"<Event type='0' treasureboxID='3'/>", u"<Event type='1' treasureboxID='3'/>",
          u"<Event type='2' treasureboxID='3'/>", u"<Event type='-1'/>"}) {
        XMLParser parser;
        events.addFromXml(parsed(parser, text));
    }
    floors.clear();
    const EventManager copy = events;
    for (std::size_t i = 0; i < copy.size(); ++i) {
        const auto* treasure = dynamic_cast<const TreasureBoxEvent*>(&copy.at(i));
        EXPECT_EQ(treasure != nullptr, i == 1) << i;
        EXPECT_EQ(treasure != nullptr ? treasure->treasureboxID : 3, 3) << i;
    }
}

TEST(EventManager, ChecksNames)
{
    EventManager events;
    GameEvent& first = events.add(std::make_unique<GameEvent>());
    first.names[0] = u"Gate";
    const struct
    {
        WStringView name;
        const GameEvent* self;
        WStringView fault;
    } cases[] = {
        {u"", nullptr, u"Please enter the name"},
        {u"Gate", nullptr, u"There is an event with the same name"},
        {u"Gate", &first, u""},
        {u"gate", nullptr, u""},
        {u"Ga<te", &first, u"Contains invalid characters"},
        {u"a\nb", nullptr, u"Contains invalid characters"},
        {u"it's", nullptr, u"Contains invalid characters"},
        {u"\u9580 / 1", nullptr, u""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(events.nameFault(c.name, c.self), c.fault) << toUtf8(c.name);
}

TEST(WarpScript, ReadsTheTarget)
{
    const struct
    {
        WStringView script;
        std::optional<MapCell> target;
    } cases[] = {
        {u"warp(3, 14);", MapCell{3, 14}},
        {u"\r\n warp ( 0x10,0 ) ; trace(1);", MapCell{16, 0}},
        {u"// down\nwarp(/* x */ 1, 2);", MapCell{1, 2}},
        {u"warp(3, 4)", std::nullopt}, // six tokens
        {u"warp(-3, 4);", std::nullopt},
        {u"warp(a, 4);", std::nullopt},
        {u"warp(1.5, 4);", std::nullopt},
        {u"Warp(3, 4);", std::nullopt},
        {u"x.warp(3, 4);", std::nullopt},
        {u"warp(99999999999, 4);", std::nullopt},
        {u"warp(0x, 4);", std::nullopt},
        {u"/* warp(3, 4);", std::nullopt},
        {u"", std::nullopt},
    };
    for (const auto& c : cases)
        EXPECT_EQ(parseWarp(c.script), c.target) << toUtf8(c.script);
    EXPECT_EQ(parseWarp(warpScript({12, 7})), (MapCell{12, 7}));
}

TEST(AreaModel, ReadsCoordinatesAndOlderRectangles)
{
    const struct
    {
        WStringView attributes, coordinates;
    } cases[] = {
        {u"coordinates='3,2 4,1 3,1 3,2'", u"3,1 4,1 3,2"},
        {u"coordinates='1 1,2,3  5,6 x'", u"5,6"},
        {u"coordinates='' x='1' y='1' width='2' height='2'", u""},
        {u"x='1' y='2' width='2' height='3'", u"1,2 2,2 1,3 2,3 1,4 2,4"},
        {u"x='99' y='-1' width='2147483647' height='2'", u"99,0"},
        {u"", u""},
    };
    for (const auto& c : cases) {
        const auto area = readFrom<AreaModel>(u"<Area " + WString(c.attributes) + u"/>");
        EXPECT_EQ(written(area), u"<Area name=\"\" number=\"0\" room=\"0\" enemyTableID=\"0\" "
                                 u"teleportIntrusionBlock=\"0\" coordinates=\"" +
                                     WString(c.coordinates) + u"\"></Area>")
            << toUtf8(c.attributes);
    }
    const auto full =
        readFrom<AreaModel>(u"<Area name='n' number='2' room='1' enemyTableID='3' "
                            u"teleportIntrusionBlock='5' coordinates='1,1'>text</Area>");
    EXPECT_EQ(readFrom<AreaModel>(written(full)), full);
    EXPECT_EQ(full.text, u"text");
    EXPECT_TRUE(full.teleportIntrusionBlock);
}

TEST(AreaManager, PaintsInOrderOfNumbers)
{
    AreaManager areas;
    EXPECT_FALSE(areas.paint(0, 1, 1)) << "nothing to erase";
    EXPECT_TRUE(areas.paint(5, 1, 1));
    EXPECT_TRUE(areas.paint(2, 1, 1));
    EXPECT_TRUE(areas.paint(9, 3, 3));
    EXPECT_TRUE(areas.paint(5, 0, 1));
    EXPECT_FALSE(areas.paint(5, 1, 1)) << "there already";
    ASSERT_EQ(areas.size(), 3U);
    EXPECT_EQ(areas.at(0).number, 2);
    EXPECT_EQ(areas.at(2).number, 9);
    EXPECT_EQ(areas.areaAt(1, 1)->number, 5) << "the later number wins";
    EXPECT_EQ(areas.areaAt(7, 7), nullptr);

    EXPECT_TRUE(areas.paint(0, 1, 1)) << "taken out of both";
    ASSERT_EQ(areas.size(), 2U) << "area 2 lost its last cell";
    EXPECT_EQ(areas.at(0).number, 5);
    EXPECT_TRUE(areas.at(0).contains(0, 1));
    EXPECT_FALSE(areas.paint(0, 1, 1));
}

} // namespace
} // namespace varn
