#include "Util/TempFolder.h"

#include "Support/TemporaryProject.h"
#include "Util/Colour.h"
#include "Util/FileLogger.h"

#include <gtest/gtest.h>

namespace varn {
namespace {

TEST(TempFolder, GoesWithItsFilesButNotWithSubFolders)
{
    test::TemporaryProject project;
    TempFolder folder("scratch");
    EXPECT_EQ(folder.make(), TempFolder::Made::Made);
    EXPECT_EQ(folder.make(), TempFolder::Made::Exists);
    project.write("kept", "");
    std::filesystem::create_symlink("../kept", "scratch/link");
    project.write("scratch/a", "");
    project.write("scratch/sub/b", "");
    EXPECT_FALSE(folder.remove());
    EXPECT_FALSE(project.has("scratch/a"));
    EXPECT_TRUE(project.has("scratch/sub/b"));
    EXPECT_TRUE(project.has("kept"));
    std::filesystem::remove_all("scratch/sub");
    EXPECT_TRUE(folder.remove());
    EXPECT_TRUE(folder.remove()) << "gone already";
    EXPECT_EQ(TempFolder("missing/deep").make(), TempFolder::Made::Failed);
    EXPECT_EQ(TempFolder().path().filename(), "Varn's MapEditor");
    std::filesystem::create_directory_symlink(".", "elsewhere");
    EXPECT_FALSE(TempFolder("elsewhere").remove());
    EXPECT_TRUE(project.has("kept"));
}

TEST(TempFile, GoesWithItsOwner)
{
    test::TemporaryProject project;
    TempFolder folder("scratch");
    folder.make();
    {
        const TempFile file(folder, u"..\\..\\preview.png");
        EXPECT_EQ(file.path(), "scratch/preview.png");
        project.write(file.path(), "x");
    }
    EXPECT_FALSE(project.has("scratch/preview.png"));
}

TEST(FileLogger, AppendsLinesOfUnits)
{
    test::TemporaryProject project;
    FileLogger logger;
    logger.write(u"lost");
    for (const WStringView line : {u"a", u"あ"}) {
        ASSERT_TRUE(logger.open("log"));
        logger.write(line);
    }
    logger.close();
    logger.write(u"lost");
    EXPECT_EQ(project.read("log"), std::string_view("a\0\r\0\n\0B0\r\0\n\0", 12));
    EXPECT_FALSE(logger.open("missing/log"));
}

TEST(Colour, HasItsLowestByteRed)
{
    EXPECT_EQ(toColourText(0x00C0FF01), u"#01ffc0");
    EXPECT_EQ(parseColour(u"#01fFc0"), 0x00C0FF01u);
    EXPECT_EQ(parseColour(u"01ffc0"), 0x00C0FF01u);
    for (const WStringView bad :
         {u"", u"#", u"#01ffc", u"#01ffc00", u"#01ffcg", u"##1ffc0", u"-1ffc0"})
        EXPECT_FALSE(parseColour(bad)) << toUtf8(bad);
}

} // namespace
} // namespace varn
