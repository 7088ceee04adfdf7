#include "PaneFixture.h"

#include "MapEditor3D/frame/panes/MapTreePane.h"

namespace varn::test {

namespace {

struct TreeListener : MapTreePaneListener
{
    std::vector<std::string> calls;
    void mapOpenRequested(WStringView name) override { calls.push_back("open " + toUtf8(name)); }
    void mapCreateRequested(std::optional<std::size_t> parent) override
    {
        calls.push_back("create in " + (parent ? std::to_string(*parent) : "root"));
    }
    void mapEditRequested(WStringView name) override { calls.push_back("edit " + toUtf8(name)); }
    void mapExportRequested(const std::vector<WString>& names) override
    {
        std::string call = "export";
        for (const WString& name : names)
            call += " " + toUtf8(name);
        calls.push_back(call);
    }
    void mapRenamed(WStringView before, WStringView after) override
    {
        calls.push_back("renamed " + toUtf8(before) + " " + toUtf8(after));
    }
    void mapDeleted(WStringView name) override { calls.push_back("deleted " + toUtf8(name)); }
};

/// The hierarchy of the demo: The Priory (Cloister, Ossuary), Under the Lake (Orchard).
class MapTreePaneTest : public PaneTest
{
  protected:
    MapTreePaneTest()
    {
        pane.setListener(&listener);
        show(pane);
    }
    TreeItem& root() { return *pane.getTree().getRoot().children.front(); }
    TreeItem& item(std::size_t folder, std::size_t map)
    {
        return *root().children.at(folder)->children.at(map);
    }
    TreeViewListener& tree() { return *pane.getTree().getListener(); }
    std::string savedTree() const { return project.read("Dungeon/MapHierarchy.ini"); }

    TreeListener listener;
    MapTreePane pane{session, editor};
};

} // namespace

TEST_F(MapTreePaneTest, ShowsTheHierarchyAndTheOpenMap)
{
    EXPECT_EQ(root().text, u"Project");
    EXPECT_EQ(item(0, 1).text, u"Ossuary");
    EXPECT_TRUE(item(0, 0).bold);
    editor.load(u"Dungeon/Ossuary.map");
    EXPECT_FALSE(item(0, 0).bold);
    EXPECT_TRUE(item(0, 1).bold);

    editor.eventsEdited();
    EXPECT_EQ(item(0, 1).mark, u" *");
    EXPECT_EQ(item(0, 1).text, u"Ossuary");
    editor.doSave();
    EXPECT_EQ(item(0, 1).mark, u"");
}

TEST_F(MapTreePaneTest, TheMenuHasTheToolsWordsAndAsksTheListener)
{
    pane.selectMap(u"Ossuary");
    std::vector<WString> texts;
    for (const MenuLine& line : pane.menuLines())
        if (line.text != u"-")
            texts.push_back(line.text);
    EXPECT_EQ(texts,
              (std::vector<WString>{u"Edit...", u"Create a new map...", u"New Folder", u"Delete",
                                    u"Open file location", u"Export this map as HTML..."}));

    for (const auto command : {MapTreePane::kOpen, MapTreePane::kEdit, MapTreePane::kCreateMap,
                               MapTreePane::kExportHtml})
        pane.run(command);
    pane.getTree().select(root().children[1].get());
    pane.run(MapTreePane::kCreateMap);
    pane.getTree().select(&root());
    pane.run(MapTreePane::kCreateMap);
    pane.run(MapTreePane::kExportHtml);
    EXPECT_EQ(listener.calls,
              (std::vector<std::string>{"open Ossuary", "edit Ossuary", "create in 0",
                                        "export Ossuary", "create in 3", "create in root",
                                        "export Cloister Ossuary Orchard"}));

    pane.selectMap(u"Orchard");
    pane.run(MapTreePane::kOpenLocation);
    ASSERT_EQ(host.opened.size(), 1U);
    EXPECT_EQ(std::filesystem::canonical(toUtf8(host.opened[0])),
              std::filesystem::canonical(project.root() / "Dungeon"));
}

TEST_F(MapTreePaneTest, RenamesFilesTreeAndOpenMap)
{
    EXPECT_FALSE(tree().itemRenamed(item(0, 0), u"Orchard"));
    ASSERT_EQ(host.messages.size(), 1U);
    EXPECT_EQ(host.messages[0], u"There is a file with the same name. please change the name");
    EXPECT_FALSE(tree().itemRenamed(root(), u"Game"));

    EXPECT_TRUE(tree().itemRenamed(item(0, 0), u"The Garth"));
    EXPECT_TRUE(project.has("Dungeon/The Garth.map"));
    EXPECT_FALSE(project.has("Dungeon/Cloister.xml"));
    EXPECT_EQ(editor.getMapName(), u"The Garth");
    EXPECT_NE(savedTree().find("2 1 The Garth\n"), std::string::npos);
    EXPECT_EQ(listener.calls, std::vector<std::string>{"renamed Cloister The Garth"});
    pane.refresh();
    EXPECT_TRUE(item(0, 0).bold);
    EXPECT_TRUE(editor.doSave());
    EXPECT_FALSE(project.has("Dungeon/Cloister.map"));
}

TEST_F(MapTreePaneTest, ReturnInTheLineRenames)
{
    pane.getTree().setFocus();
    pane.selectMap(u"Orchard");
    pane.run(MapTreePane::kRename);
    const NativeHandle line = robot::focused();
    robot::type(line, u"Hedge");
    robot::key(line, kKeyReturn);
    Application::processMessages();
    EXPECT_TRUE(project.has("Dungeon/Hedge.map"));
    EXPECT_EQ(item(1, 0).text, u"Hedge");
}

TEST_F(MapTreePaneTest, DeletesAfterTheQuestion)
{
    pane.getTree().select(&root());
    pane.run(MapTreePane::kDelete);
    EXPECT_EQ(host.messages, std::vector<WString>{u"Can't delete the root item."});

    pane.selectMap(u"Orchard");
    robot::key(pane.getTree().getHandle(), kKeyDelete);
    ASSERT_EQ(host.questions.size(), 1U);
    EXPECT_EQ(host.questions[0].text, u"May I delete this map?");
    EXPECT_TRUE(project.has("Dungeon/Orchard.map")) << "answered no";

    host.answers = {Answer::Yes};
    pane.run(MapTreePane::kDelete);
    EXPECT_FALSE(project.has("Dungeon/Orchard.map"));
    EXPECT_FALSE(project.has("Dungeon/Orchard.xml"));
    EXPECT_EQ(savedTree().find("Orchard"), std::string::npos);
    EXPECT_TRUE(root().children[1]->children.empty());
    EXPECT_EQ(listener.calls, std::vector<std::string>{"deleted Orchard"});
}

TEST_F(MapTreePaneTest, DraggedEntriesMoveInTheFile)
{
    // What the tree does by itself when a line is dropped.
    const auto drop = [this](TreeItem& from, std::size_t place, TreeItem& to, std::size_t at) {
        auto moved = std::move(from.children[place]);
        from.children.erase(from.children.begin() + static_cast<std::ptrdiff_t>(place));
        moved->parent = &to;
        TreeItem& dropped = *moved;
        to.children.insert(to.children.begin() + static_cast<std::ptrdiff_t>(at), std::move(moved));
        tree().itemMoved(dropped);
    };
    drop(*root().children[0], 1, *root().children[1], 0); // Ossuary before Orchard
    EXPECT_EQ(savedTree(), "1 8192 The Priory\n2 1 Cloister\n1 8193 Under the Lake\n2 2 Ossuary\n"
                           "2 3 Orchard\n");
    drop(root(), 1, root(), 0); // the second folder with its maps before the first
    EXPECT_EQ(savedTree(), "1 8193 Under the Lake\n2 2 Ossuary\n2 3 Orchard\n"
                           "1 8192 The Priory\n2 1 Cloister\n");
    drop(*root().children[1], 0, pane.getTree().getRoot(), 1); // beside the root: to its end
    EXPECT_EQ(savedTree(), "1 8193 Under the Lake\n2 2 Ossuary\n2 3 Orchard\n"
                           "1 8192 The Priory\n1 1 Cloister\n");
}

TEST_F(MapTreePaneTest, ANewFolderIsMadeWhereTheSelectionIsAndNamedAtOnce)
{
    pane.selectMap(u"Cloister");
    pane.run(MapTreePane::kCreateFolder);
    EXPECT_NE(savedTree().find("2 8194 New folder\n"), std::string::npos);
    const NativeHandle line = robot::focused();
    robot::type(line, u"Cellars");
    robot::key(line, kKeyReturn);
    Application::processMessages();
    EXPECT_NE(savedTree().find("2 8194 Cellars\n"), std::string::npos);
}

} // namespace varn::test
