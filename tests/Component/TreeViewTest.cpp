#include "Component/TreeView.h"
#include "Component/Application.h"
#include "Component/GroupComponent.h"
#include "Component/native/Robot.h"

#include <gtest/gtest.h>

namespace varn {
namespace {

class Journal final : public TreeViewListener
{
  public:
    std::vector<WString> calls;
    bool refuses = false;

    void itemSelected(TreeItem& item) override { calls.push_back(u"select " + item.text); }
    void itemActivated(TreeItem& item) override { calls.push_back(u"open " + item.text); }
    bool itemRenamed(TreeItem& item, WStringView text) override
    {
        calls.push_back(u"rename " + item.text + u" to " + WString(text));
        return !refuses;
    }
    void itemMoved(TreeItem& item) override { calls.push_back(u"move " + item.text); }
};

/// Crypt [ B1F, B2F ], Forest [ Glade ]
class TreeViewTest : public ::testing::Test
{
  protected:
    TreeViewTest()
    {
        top.createTopLevel();
        tree.createChild(&top, 0, 0, 200, 200);
        top.setBounds(0, 0, 220, 220);
        TreeItem& crypt = tree.getRoot().add(u"Crypt", 1);
        for (const WStringView floor : {u"B1F", u"B2F"})
            crypt.add(floor).editable = true;
        tree.getRoot().add(u"Forest", 1).add(u"Glade").editable = true;
        tree.setListener(&journal);
        tree.refresh();
        top.setVisible(true);
        Application::processMessages();
        journal.calls.clear(); // the first line is chosen when the focus comes
    }

    static WString spell(const TreeItem& item)
    {
        WString text = item.text;
        for (const auto& child : item.children)
            text += u'(' + spell(*child) + u')';
        return text;
    }

    GroupComponent top;
    TreeView tree;
    Journal journal;
};

TEST_F(TreeViewTest, SelectingByKeyTellsAndByProgramDoesNot)
{
    TreeItem& crypt = *tree.getRoot().children[0];
    tree.select(&crypt);
    EXPECT_TRUE(journal.calls.empty());
    robot::key(tree.getHandle(), kKeyDown);
    EXPECT_EQ(tree.getSelected(), crypt.children[0].get());
    robot::key(tree.getHandle(), kKeyReturn);
    EXPECT_EQ(journal.calls, (std::vector<WString>{u"select B1F", u"open B1F"}));
    tree.refresh();
    EXPECT_EQ(tree.getSelected(), crypt.children[0].get());
}

TEST_F(TreeViewTest, ADragMovesTheRecordsAsItMovesTheLines)
{
    tree.setDraggable([](const TreeItem& item) { return item.data == 1; });
    TreeItem* const floor = tree.getRoot().children[0]->children[1].get();
    robot::dragItem(tree.getHandle(), u"B2F", u"Forest");
    EXPECT_EQ(spell(tree.getRoot()), u"(Crypt(B1F))(Forest(Glade)(B2F))");
    EXPECT_EQ(floor->parent, tree.getRoot().children[1].get());
    ASSERT_FALSE(journal.calls.empty());
    EXPECT_EQ(journal.calls.back(), u"move B2F");
    robot::dragItem(tree.getHandle(), u"B2F", u"Glade"); // a floor holds nothing: in front of it
    EXPECT_EQ(spell(tree.getRoot()), u"(Crypt(B1F))(Forest(B2F)(Glade))");
    journal.calls.clear();
    robot::dragItem(tree.getHandle(), u"Forest", u"Glade"); // not into itself
    EXPECT_EQ(spell(tree.getRoot()), u"(Crypt(B1F))(Forest(B2F)(Glade))");
    EXPECT_EQ(journal.calls, (std::vector<WString>{u"select Forest"}));
}

} // namespace
} // namespace varn
