#include "MapEditor3D/project/ResourceUsage.h"

#include "Support/TemporaryProject.h"

#include <gtest/gtest.h>

namespace varn::test {

TEST(ResourceUsage, FindsWhatNamesAFile)
{
    TemporaryProject project;
    project.writeUtf16("Dungeon/One.xml", u"<Map bgm=\"Mere.MID\" wall=\"Graphics/x/wall.png\"/>");
    project.writeUtf16("Data/Enemies.xml", u"<Enemies><data imageID=\"3\"/></Enemies>");
    project.writeUtf16("Data/ResourceManager.xml", u"<BGM path=\"Audio/BGM/mere.mid\"/>");
    project.write("Scripts/a/b.txt", "playBGM(\"mere.mid\"); // hallwall.png");

    const struct
    {
        ResourceCategory category;
        const char16_t* path;
        int id;
        std::vector<WString> named;
    } kCases[] = {
        {ResourceCategory::BackgroundMusic,
         u"Audio/BGM/mere.mid",
         1,
         {u"Dungeon/One.xml", u"Scripts/a/b.txt"}},
        {ResourceCategory::Wall, u"Graphics/x/wall.png", 1, {u"Dungeon/One.xml"}},
        {ResourceCategory::EnemyImage, u"Graphics/Enemies/rat.png", 3, {u"Data/Enemies.xml"}},
        {ResourceCategory::EnemyImage, u"Graphics/Enemies/rat.png", 4, {}},
        {ResourceCategory::SoundEffect, u"Audio/SE/unheard.wav", 3, {}},
    };
    const ResourceUsage usage;
    for (const auto& one : kCases) {
        ResourceItem item;
        item.path = one.path;
        item.id = one.id;
        EXPECT_EQ(usage.find(one.category, item), one.named) << toUtf8(one.path) << ' ' << one.id;
    }
}

} // namespace varn::test
