#include "Game/Map/MapHierarchy.h"

#include "Game/GameResourceFile.h"
#include "Game/Map/MapFile.h"
#include "Game/Map/MapTree.h"
#include "Game/Map/WizMap.h"
#include "Support/RecordingHost.h"
#include "Support/TemporaryProject.h"

#include <gtest/gtest.h>

namespace varn {
namespace {

using test::RecordingHost;
using test::TemporaryProject;

constexpr WStringView kTree = u"1 8192 Crypt\n"
                              u"2 1 B1F\n"
                              u"2 8200 Deep\n"
                              u"3 4 B 2 F\n"
                              u"1 2 Glade\n";

MapHierarchy treeOf(WStringView text)
{
    MapHierarchy tree;
    EXPECT_EQ(tree.parse(text), std::nullopt);
    return tree;
}

TEST(MapHierarchy, ReadsLines)
{
    const struct
    {
        const char* name;
        WStringView text, again; ///< `again`: what is written
        std::optional<std::size_t> stoppedAt;
    } cases[] = {
        {"empty", u"", u"", {}},
        {"blanks in names", u"0 1  a  b \n", u"0 1  a  b \n", {}},
        {"blanks before numbers", u" 0  1 a\n", u"0 1 a\n", {}},
        {"CR LF", u"0 1 a\r\n1 2 b\r\n", u"0 1 a\n1 2 b\n", {}},
        {"LF in a CR LF text is no line end", u"0 1 a\nb\r\n1 2 c\r\n", u"0 1 a\nb\n1 2 c\n", {}},
        {"no end of line", u"0 8191 a", u"0 8191 a\n", {}},
        {"empty name", u"0 1 \n", u"0 1 \n", {}},
        {"not numeric", u"x y z\n", u"0 0 z\n", {}},
        {"too short", u"0 1 a\n0 2\n0 3 c\n", u"0 1 a\n", 2},
        {"empty line inside", u"0 1 a\n\n0 3 c\n", u"0 1 a\n", 2},
        {"empty lines at the end", u"0 1 a\n\n\n", u"0 1 a\n", {}},
        {"too short at the end", u"0 1 a\n0", u"0 1 a\n", 2},
    };
    for (const auto& c : cases) {
        MapHierarchy tree;
        EXPECT_EQ(tree.parse(c.text), c.stoppedAt) << c.name;
        EXPECT_EQ(tree.toText(), c.again) << c.name;
    }
    EXPECT_FALSE(treeOf(u"0 8191 a").at(0).isFolder());
    EXPECT_TRUE(treeOf(u"0 8192 a").at(0).isFolder());
}

TEST(MapHierarchy, SurvivesItsFileWhateverTheNames)
{
    const TemporaryProject project;
    for (const WStringView name :
         {u"plain", u"\u5730\u4e0b\u30bd\u8868", u"caf\u00e9 \ud55c\uad6d", u"\u65e5"}) {
        MapHierarchy tree = treeOf(u"1 1 " + WString(name) + u"\n");
        ASSERT_TRUE(tree.save(u"Tree.ini"));
        MapHierarchy again;
        ASSERT_TRUE(again.load(u"tree.INI"));
        EXPECT_EQ(again, tree) << toUtf8(name);
    }
    treeOf(u"1 1 \u65e5\n").save(u"Tree.ini");
    EXPECT_EQ(project.read("Tree.ini"), "1 1 \x93\xFA\n") << "Shift_JIS where it holds the names";

    project.write("utf16.ini",
                  std::string("\xFF\xFE", 2) + std::string("1\0 \0002\0 \0a\0\n\0", 12));
    MapHierarchy tree;
    ASSERT_TRUE(tree.load(u"utf16.ini"));
    ASSERT_TRUE(tree.save(u"utf16.ini"));
    EXPECT_EQ(project.read("utf16.ini").substr(0, 4), std::string("\xFF\xFE\x31\0", 4))
        << "as found";
    EXPECT_FALSE(tree.load(u"none.ini"));
    EXPECT_TRUE(tree.empty());

    project.write("empty.ini", "");
    ASSERT_TRUE(tree.load(u"empty.ini"));
    tree.addMap({}, u"a");
    ASSERT_TRUE(tree.save(u"empty.ini"));
    EXPECT_EQ(project.read("empty.ini"), "1 1 a\n") << "an empty file has no encoding to keep";
}

TEST(MapHierarchy, TellsOfLinesThatItDidNotRead)
{
    const TemporaryProject project;
    RecordingHost host;
    project.write("t.ini", "0 1 a\n0 2\n0 3 c\n");
    MapHierarchy tree;
    EXPECT_TRUE(tree.load(u"t.ini"));
    EXPECT_EQ(host.messages,
              std::vector<WString>{
                  u"t.ini\r\nLine 2 is too short. The lines from there on were not read."});

    const std::string before = project.read("t.ini");
    for (int time = 0; time < 2; ++time)
        ASSERT_TRUE(tree.save(u"t.ini"));
    EXPECT_EQ(project.read("t.ini.bak"), before) << "what was not read is kept";
}

TEST(MapHierarchy, KnowsItsTree)
{
    const MapHierarchy tree = treeOf(kTree);
    using List = std::vector<std::size_t>;
    EXPECT_EQ(tree.childrenOf({}), (List{0, 4}));
    EXPECT_EQ(tree.childrenOf(0), (List{1, 2}));
    EXPECT_EQ(tree.childrenOf(4), List{});
    EXPECT_EQ(tree.parentOf(3), 2U);
    EXPECT_EQ(tree.parentOf(2), 0U);
    EXPECT_EQ(tree.parentOf(4), std::nullopt);
    EXPECT_EQ(tree.endOf(0), 4U);
    EXPECT_EQ(tree.findMap(u"glade"), 4U);
    EXPECT_EQ(tree.findMap(u"Crypt"), std::nullopt) << "a folder";
    EXPECT_EQ(tree.findById(8200), 2U);
    // A file may skip levels, and its second tree may stand higher than its first.
    const MapHierarchy odd = treeOf(u"5 8192 a\n9 1 b\n7 2 c\n2 3 d\n");
    EXPECT_EQ(odd.childrenOf({}), (List{0, 3}));
    EXPECT_EQ(odd.childrenOf(0), (List{1, 2}));
}

TEST(MapHierarchy, ChangesItsTree)
{
    const struct
    {
        const char* name;
        bool (*change)(MapHierarchy&);
        WStringView text; ///< empty: refused and unchanged
    } cases[] = {
        {"map under a folder", [](MapHierarchy& t) { return t.addMap(0, u"new") == 4; },
         u"1 8192 Crypt\n2 1 B1F\n2 8200 Deep\n3 4 B 2 F\n2 5 new\n1 2 Glade\n"},
        {"map beside a map", [](MapHierarchy& t) { return t.addMap(3, u"new") == 4; },
         u"1 8192 Crypt\n2 1 B1F\n2 8200 Deep\n3 4 B 2 F\n3 5 new\n1 2 Glade\n"},
        {"folder under the root", [](MapHierarchy& t) { return t.addFolder({}) == 5; },
         u"1 8192 Crypt\n2 1 B1F\n2 8200 Deep\n3 4 B 2 F\n1 2 Glade\n1 8201 New folder\n"},
        {"removing a folder lifts what it holds", [](MapHierarchy& t) { return t.remove(0), true; },
         u"1 1 B1F\n1 8200 Deep\n2 4 B 2 F\n1 2 Glade\n"},
        {"folder to another folder", [](MapHierarchy& t) { return t.move(2, std::nullopt); },
         u"1 8192 Crypt\n2 1 B1F\n1 2 Glade\n1 8200 Deep\n2 4 B 2 F\n"},
        {"map before its sibling", [](MapHierarchy& t) { return t.move(4, 0, 1); },
         u"1 8192 Crypt\n2 2 Glade\n2 1 B1F\n2 8200 Deep\n3 4 B 2 F\n"},
        {"map deeper", [](MapHierarchy& t) { return t.move(1, 2); },
         u"1 8192 Crypt\n2 8200 Deep\n3 4 B 2 F\n3 1 B1F\n1 2 Glade\n"},
        {"where it stands", [](MapHierarchy& t) { return t.move(4, std::nullopt); }, kTree},
        {"into itself", [](MapHierarchy& t) { return !t.move(0, 2); }, kTree},
        {"into a map", [](MapHierarchy& t) { return !t.move(0, 4); }, kTree},
        {"before no child of it", [](MapHierarchy& t) { return !t.move(4, 0, 3); }, kTree},
        {"rename", [](MapHierarchy& t) { return t.rename(1, u"b 1"), true; },
         u"1 8192 Crypt\n2 1 b 1\n2 8200 Deep\n3 4 B 2 F\n1 2 Glade\n"},
    };
    for (const auto& c : cases) {
        MapHierarchy tree = treeOf(kTree);
        EXPECT_TRUE(c.change(tree)) << c.name;
        EXPECT_EQ(toUtf8(tree.toText()), toUtf8(c.text)) << c.name;
    }
    MapHierarchy fresh;
    fresh.addFolder({}, u"f");
    fresh.addMap(0, u"m");
    EXPECT_EQ(fresh.toText(), u"1 8192 f\n2 1 m\n");
}

TEST(MapHierarchy, DrawsIdsThatAreFree)
{
    MapHierarchy tree = treeOf(u"1 8191 last\n1 1 a\n1 3 b\n");
    tree.addMap({}, u"gap");
    EXPECT_EQ(tree.at(3).id, 2) << "the greatest is used up";

    WString all;
    for (int id = 1; id < kFirstFolderId; ++id)
        all += u"1 " + toDecimal(id) + u" m\n";
    tree = treeOf(all);
    EXPECT_THROW(tree.addMap({}, u"one more"), Exception);
    EXPECT_EQ(tree.size(), 8191U);
}

TEST(MapDatabase, ListsTheMaps)
{
    const TemporaryProject project;
    closeProjectArchive();
    MapDatabase maps;
    EXPECT_FALSE(maps.load());

    GameResourceFile archive;
    archive.addText(u"Dungeon/MapHierarchy.ini", WString(kTree));
    ASSERT_TRUE(archive.save(u"GameData.gamedata"));
    closeProjectArchive();
    ASSERT_TRUE(maps.load());
    ASSERT_EQ(maps.items().size(), 3U);
    EXPECT_EQ(maps.items()[1].index, 3);
    EXPECT_EQ(maps.items()[1].depth, 3);
    EXPECT_EQ(maps.items()[1].id, 4);
    EXPECT_EQ(maps.items()[1].name, u"B 2 F");

    archive.clear();
    archive.addText(u"Dungeon/MapHierarchy.ini", u"0 1 地図\n"); // would pass for Shift_JIS
    ASSERT_TRUE(archive.save(u"GameData.gamedata"));
    closeProjectArchive();
    ASSERT_TRUE(maps.load());
    ASSERT_EQ(maps.items().size(), 1U);
    EXPECT_EQ(maps.items()[0].name, u"地図");

    project.write("Project/MapHierarchy.ini", "0 1 plain\n\n0 2 behind an empty line\n");
    ASSERT_TRUE(maps.load());
    ASSERT_EQ(maps.items().size(), 1U);
    EXPECT_EQ(maps.items()[0].name, u"plain");
    closeProjectArchive();
}

TEST(MapTree, CreatesRenamesAndDeletesMapsWithTheirFiles)
{
    const TemporaryProject project;
    closeProjectArchive();
    RecordingHost host;
    MapHierarchy tree;
    WizMap map;
    const auto lastMessage = [&] {
        WString last = host.messages.empty() ? u"" : host.messages.back();
        host.messages.clear();
        return last;
    };

    ASSERT_EQ(mapTree::createMap(tree, {}, u"B1F", map), 0U);
    EXPECT_TRUE(project.has("Dungeon/B1F.map") && project.has("Dungeon/B1F.xml"));
    constexpr WStringView kTaken = u"There is a file with the same name. please change the name";
    EXPECT_EQ(mapTree::createMap(tree, {}, u"b1f", map), std::nullopt);
    EXPECT_EQ(lastMessage(), kTaken);
    EXPECT_EQ(mapTree::createMap(tree, {}, u"../x", map), std::nullopt);
    EXPECT_EQ(lastMessage(), u"Contains invalid characters");
    EXPECT_EQ(tree.size(), 1U);

    ASSERT_TRUE(mapTree::createMap(tree, {}, u"B2F", map));
    EXPECT_FALSE(mapTree::rename(tree, 0, u"B2F"));
    EXPECT_EQ(lastMessage(), kTaken);
    EXPECT_TRUE(mapTree::rename(tree, 0, u"b1f")) << "only the case";
    EXPECT_TRUE(mapTree::rename(tree, 0, u"Crypt 1"));
    EXPECT_TRUE(project.has("Dungeon/Crypt 1.map") && project.has("Dungeon/Crypt 1.xml"));
    EXPECT_FALSE(project.has("Dungeon/b1f.map") || project.has("Dungeon/B1F.xml"));
    EXPECT_EQ(tree.toText(), u"1 1 Crypt 1\n1 2 B2F\n");

    EXPECT_FALSE(mapTree::remove(tree, {}));
    EXPECT_EQ(lastMessage(), u"Can't delete the root item.");
    EXPECT_FALSE(mapTree::remove(tree, 0)) << "the answer was No";
    host.japanese = true;
    host.answers = {Answer::Yes};
    EXPECT_TRUE(mapTree::remove(tree, 0));
    EXPECT_EQ(host.questions[0].text, u"May I delete this map?");
    EXPECT_EQ(host.questions[1].text,
              u"\u524a\u9664\u3057\u3066\u3082\u3088\u308d\u3057\u3044\u3067\u3059\u304b\uff1f");
    EXPECT_FALSE(project.has("Dungeon/Crypt 1.map") || project.has("Dungeon/Crypt 1.xml"));
    EXPECT_TRUE(project.has("Dungeon/B2F.map"));
    EXPECT_EQ(tree.toText(), u"1 2 B2F\n");
}

} // namespace
} // namespace varn
