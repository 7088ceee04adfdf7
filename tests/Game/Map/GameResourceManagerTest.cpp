#include "Game/Map/GameResourceManager.h"

#include "Parser/XMLParser.h"
#include "Support/RecordingHost.h"
#include "Support/TemporaryProject.h"

#include <gtest/gtest.h>

namespace varn {
namespace {

using test::RecordingHost;
using test::TemporaryProject;

void readInto(GameResourceManager& manager, WStringView text)
{
    XMLParser parser;
    ASSERT_TRUE(parser.parse(WString(text)));
    manager.fromElement(*parser.getRootElement());
}

TEST(GameResourceManager, ReadsAndWritesTheCatalogue)
{
    GameResourceManager manager;
    readInto(
        manager,
        u"<ResourceManager>"
        u"<EnemyImageList scale='1.25'><EnemyImage path='Graphics\\Enemies\\a.png' "
        u"id='3'/></EnemyImageList>"
        u"<BackgroundMusicList><BGM id='1' path='Audio/BGM/x.ogg'/>text<Other id='2' "
        u"path='y'/></BackgroundMusicList>"
        u"<FloorList><Background id='7' path='f' movementType='1' scalingType='2'/></FloorList>"
        u"<DoorList></DoorList><Strange><BGM id='9'/></Strange>"
        u"</ResourceManager>");
    const ResourceItem* floor = manager.findByPath(ResourceCategory::Floor, u"f");
    ASSERT_NE(floor, nullptr);
    EXPECT_NE(dynamic_cast<const ImageResourceItem*>(floor), nullptr) << "the item's tag decides";
    EXPECT_NE(manager.findByPath(ResourceCategory::EnemyImage, u"graphics\\enemies/A.png"),
              nullptr);
    EXPECT_EQ(manager.findByPath(ResourceCategory::Floor, u"Graphics/Enemies/a.png"), nullptr);
    EXPECT_EQ(manager.findById(ResourceCategory::BackgroundMusic, 2)->path, u"y");

    EXPECT_EQ(
        manager.toXml(),
        u"<ResourceManager>\r\n"
        u"\t<BackgroundMusicList>\r\n"
        u"\t\t<BGM id=\"1\" path=\"Audio/BGM/x.ogg\"></BGM>\r\n"
        u"\t\t<BGM id=\"2\" path=\"y\"></BGM>\r\n"
        u"\t</BackgroundMusicList>\r\n"
        u"\t<EnemyImageList scale=\"1.2\">\r\n"
        u"\t\t<EnemyImage id=\"3\" path=\"Graphics/Enemies/a.png\"></EnemyImage>\r\n"
        u"\t</EnemyImageList>\r\n"
        u"\t<FloorList>\r\n"
        u"\t\t<Texture id=\"7\" path=\"f\" movementType=\"1\" scalingType=\"2\"></Texture>\r\n"
        u"\t</FloorList>\r\n"
        u"</ResourceManager>");
}

TEST(GameResourceManager, ReadsTheScale)
{
    const struct
    {
        WStringView attribute, written;
    } cases[] = {
        {u"", u"1.0"},
        {u"scale='2'", u"2.0"},
        {u"scale=' .75x'", u"0.8"},
        {u"scale='-1e1'", u"-10.0"},
        {u"scale='big'", u"0.0"},
        {u"scale='1e99'", u"0.0"},
        {u"scale='inf'", u"0.0"},
    };
    for (const auto& c : cases) {
        GameResourceManager manager;
        readInto(manager, u"<R><EnemyImageList " + WString(c.attribute) +
                              u"><EnemyImage/></EnemyImageList></R>");
        EXPECT_NE(manager.toXml().find(u"scale=\"" + WString(c.written) + u"\""), WString::npos)
            << toUtf8(c.attribute) << toUtf8(manager.toXml());
    }
    GameResourceManager manager;
    manager.scale = 3;
    readInto(manager, u"<R><EnemyImageList/></R>");
    EXPECT_EQ(manager.scale, 3) << "a missing attribute keeps the old value";
}

TEST(GameResourceManager, ListsUsedFilesOnce)
{
    GameResourceManager manager;
    manager.add(ResourceCategory::Door, u"d.png");
    manager.add(ResourceCategory::SoundEffect, u"Audio\\SE\\a.wav");
    manager.add(ResourceCategory::SoundEffect, u"b.wav");
    manager.add(ResourceCategory::BackgroundMusic, u"Audio/SE/a.wav");
    manager.add(ResourceCategory::Wall, u"d.png");
    EXPECT_EQ(manager.usedFiles(), (std::vector<WString>{u"Audio/SE/a.wav", u"b.wav", u"d.png"}));
    EXPECT_EQ(manager.items(ResourceCategory::SoundEffect)[1]->id, 2);
    manager.remove(ResourceCategory::SoundEffect, 0);
    EXPECT_EQ(manager.add(ResourceCategory::SoundEffect, u"c").id, 3);
    EXPECT_EQ(resourceFolders().size(), 10U);
}

TEST(GameResourceManager, LoadsAndSavesItsDocument)
{
    const TemporaryProject project;
    RecordingHost host;
    GameResourceManager manager;
    manager.add(ResourceCategory::Background, u"Graphics/Backgrounds/sky.png");
    EXPECT_FALSE(manager.loadDefault());
    EXPECT_TRUE(manager.usedFiles().empty()) << "emptied by the load that failed";

    project.write("Data/keep", "");
    manager.add(ResourceCategory::Background, u"Graphics/Backgrounds/sky.png");
    ASSERT_TRUE(manager.save());
    const WString text = manager.toDocument();
    EXPECT_EQ(decodeBytes(asBytes(project.read("Data/ResourceManager.xml"))).text, text);
    GameResourceManager again;
    ASSERT_TRUE(again.loadDefault());
    EXPECT_EQ(again.toDocument(), text);
}

} // namespace
} // namespace varn
