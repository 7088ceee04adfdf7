#include "Util/ProjectPath.h"

#include "Support/TemporaryProject.h"

#include <gtest/gtest.h>

namespace varn {
namespace {

TEST(ProjectPath, IgnoresCaseWhereThePathIsNotFoundAsWritten)
{
    test::TemporaryProject project;
    project.write("Dungeon/B1F.map", "");
    project.write("Graphics/Walls/brick.png", "");
    project.write("Graphics/Walls/Brick.PNG", "");
    project.write("ÜBUNG/Сцена.txt", "");
    project.write("画像/ＡＢ.png", "");
    project.write("a/x/only", "");
    project.write("A/y", "");
    const std::string root = project.root().string();
    const struct
    {
        WStringView path;
        std::string found;
    } cases[] = {
        {u"", ""},
        {u"Dungeon/B1F.map", "Dungeon/B1F.map"},
        {u"dungeon\\b1f.MAP", "Dungeon/B1F.map"},
        {u"DUNGEON/", "Dungeon/"},
        {u"DUNGEON/../GRAPHICS", "Dungeon/../Graphics"},
        {u"Graphics/Walls/brick.png", "Graphics/Walls/brick.png"},
        {u"graphics/walls/BRICK.png", "Graphics/Walls/Brick.PNG"}, // the first in byte order
        {u"übung/сЦЕНА.txt", "ÜBUNG/Сцена.txt"},
        {u"画像\\ａｂ.PNG", "画像/ＡＢ.png"},
        {u"dungeon/New Floor.map", "Dungeon/New Floor.map"},
        {u"dungeon/New/Deep\\er.map", "Dungeon/New/Deep/er.map"},
        {u"Dungeon/B1F.map/below", "Dungeon/B1F.map/below"},
        {u"A/X/only", "A/X/only"}, // "A" is there as written, so "a" is not tried
        {u"Dungeon/B1F.map\0.png", "Dungeon/B1F.map"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(resolveProjectPath(c.path), c.found) << toUtf8(c.path);
    EXPECT_EQ(resolveProjectPath(fromUtf8(root + "/dungeon")), root + "/Dungeon");
    EXPECT_TRUE(isFile(u"DUNGEON\\b1f.map"));
    EXPECT_FALSE(isFolder(u"DUNGEON\\b1f.map"));
    EXPECT_TRUE(isFolder(u"dungeon"));
    EXPECT_FALSE(isFile(u"dungeon"));
    EXPECT_FALSE(pathExists(u"dungeon/B2F.map"));
}

TEST(ProjectPath, TakesBothSeparators)
{
    const struct
    {
        WStringView path, fileName, stem;
    } cases[] = {
        {u"a/b.c/d.map", u"d.map", u"a/b.c/d"},
        {u"a\\b.c\\d", u"d", u"a\\b.c\\d"},
        {u"d.tar.gz", u"d.tar.gz", u"d.tar"},
        {u"a/", u"", u"a/"},
        {u"", u"", u""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(fileNameOf(c.path), c.fileName);
        EXPECT_EQ(withoutExtension(c.path), c.stem);
    }
    EXPECT_EQ(withForwardSlashes(u"a\\b/c"), u"a/b/c");
    EXPECT_EQ(toWide("日本/a"), u"日本/a");
}

} // namespace
} // namespace varn
