#include "MapEditor3D/project/NewProject.h"

#include "Game/Database/SystemDatabase.h"
#include "Game/Map/GameResourceManager.h"
#include "Game/Map/MapFile.h"
#include "Game/Map/View/WizMapImage.h"
#include "MapEditor3D/ProjectSession.h"
#include "MapEditor3D/WizMapEditor.h"
#include "Support/RecordingHost.h"
#include "Support/TemporaryProject.h"
#include "Util/Exception.h"
#include "Util/File.h"
#include "Util/ProjectPath.h"

#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace varn::test {

namespace {

std::string readWhole(const fs::path& file)
{
    return readFile(file).value_or("");
}

std::size_t countFiles(const fs::path& folder)
{
    std::size_t count = 0;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        count += entry.is_regular_file() ? 1 : 0;
    return count;
}

} // namespace

TEST(NewProject, OpensWithoutAComplaint)
{
    TemporaryProject around;
    RecordingHost host;
    const fs::path folder = around.root() / "games" / "Mine";
    makeNewProject(folder, u"Salt & \"Smoke\" <1>");
    EXPECT_TRUE(isProjectFolder(folder));
    fs::current_path(folder);

    EXPECT_EQ(resolveProjectPath(Settings("none.ini")), kDungeonFolder);
    setMapFolder(WString(kDungeonFolder));
    MapHierarchy tree;
    ASSERT_TRUE(tree.load(u"Dungeon/MapHierarchy.ini"));
    ASSERT_EQ(tree.size(), 1U);
    WizMapEditor editor;
    editor.load(u"Dungeon/" + tree.at(0).name + u".map");
    EXPECT_EQ(editor.getMap().cols, 20);
    EXPECT_EQ(editor.getMap().cellAt(0, 0).north, WallKind::Wall);
    EXPECT_EQ(editor.getMap().cellAt(19, 19).east, WallKind::Wall);

    loadStartupTables();
    loadDatabaseTables();
    EXPECT_EQ(SystemDatabase::instance().getData()->getTitle(), "Salt & \"Smoke\" <1>");
    for (const MapPictures use : {MapPictures::View, MapPictures::Plan})
        WizMapImage(use).update(editor.getMap());
    GameResourceManager catalogue;
    ASSERT_TRUE(catalogue.loadDefault());
    for (const WString& file : catalogue.usedFiles())
        EXPECT_TRUE(isFile(file)) << toUtf8(file);
    EXPECT_TRUE(host.messages.empty()) << toUtf8(host.messages.empty() ? u"" : host.messages[0]);
}

TEST(NewProject, NeverTouchesWhatIsThere)
{
    TemporaryProject around;
    around.write("full/letter.txt", "mine");
    around.write("file", "");
    const struct
    {
        fs::path folder;
        bool refused;
    } kCases[] = {{around.root() / "full", true},
                  {around.root() / "file", true},
                  {around.root() / "file/below", true},
                  {"relative", true},
                  {around.root() / "new/and/deep", false}};
    for (const auto& one : kCases) {
        EXPECT_EQ(!newProjectFault(one.folder).empty(), one.refused) << one.folder;
        if (!one.refused)
            continue;
        EXPECT_THROW(makeNewProject(one.folder, u"A"), Exception) << one.folder;
    }
    EXPECT_EQ(around.read("full/letter.txt"), "mine");
    EXPECT_EQ(countFiles(around.root()), 2U);
}

TEST(NewProject, TakesAwayWhatItCouldNotFinish)
{
    TemporaryProject around;
    // The folder fits into the system's longest path, the deepest files in it do not.
    constexpr std::size_t kLongestPath = 4096, kRoomBelow = 30;
    fs::path folder = around.root();
    while (folder.native().size() + 200 < kLongestPath - kRoomBelow)
        folder /= std::string(180, 'x');
    folder /= std::string(kLongestPath - kRoomBelow - folder.native().size() - 1, 'y');
    EXPECT_THROW(makeNewProject(folder, u"A"), Exception);
    EXPECT_TRUE(fs::is_empty(around.root()));
}

TEST(NewProject, CopiesTheWholeDemo)
{
    TemporaryProject around;
    const fs::path demo = fs::path(VARN_SOURCE_DIR) / "demo";
    copyDemo(around.root() / "Demo");
    EXPECT_EQ(countFiles(around.root() / "Demo"), countFiles(demo));
    EXPECT_EQ(around.read("Demo/Dungeon/Cloister.map"), readWhole(demo / "Dungeon/Cloister.map"));
    EXPECT_THROW(copyDemo(around.root() / "Demo"), Exception);
}

} // namespace varn::test
