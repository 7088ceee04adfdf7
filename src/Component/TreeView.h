#pragma once

#include "Component/Component.h"

#include <optional>

namespace varn {

/// One node of a tree. Nodes are owned by their parent.
class TreeItem
{
  public:
    WString text;
    WString mark; ///< shown behind the text, no part of it
    WString icon; ///< of the icon table; empty for none
    int data = 0; ///< the owner's own
    bool editable = false;
    bool bold = false; ///< the one that is open
    bool expanded = true;
    std::vector<std::unique_ptr<TreeItem>> children;
    TreeItem* parent = nullptr;
    std::optional<bool> checked; ///< of the box before the text; nothing: it has none

    TreeItem& add(WStringView childText, int childData = 0);
};

/// Told what happens to a tree.
class TreeViewListener
{
  public:
    virtual ~TreeViewListener() = default;
    virtual void itemSelected(TreeItem&) {}
    /// Double click or Return.
    virtual void itemActivated(TreeItem&) {}
    /// False: the new text is refused.
    virtual bool itemRenamed(TreeItem&, WStringView /*text*/) { return true; }
    /// Right button or menu key, at a point of the tree; null: beside the items.
    virtual void menuRequested(TreeItem*, int /*x*/, int /*y*/) {}
    /// The box before an item was ticked or cleared by hand.
    virtual void itemChecked(TreeItem&) {}
    virtual void itemExpanded(TreeItem&, bool /*expanded*/) {}
    /// The person dragged items; the tree's own nodes have moved already.
    virtual void itemMoved(TreeItem&) {}
};

/// The tree control of the toolkit.
class BaseTreePane : public Component
{
  protected:
    bool paintsItself() const override { return false; }
};

/// A tree of `TreeItem` records under a hidden root.
class TreeView : public BaseTreePane
{
  public:
    TreeItem& getRoot() { return root; }
    const TreeItem& getRoot() const { return root; }
    void setListener(TreeViewListener* next) { listener = next; }
    TreeViewListener* getListener() const { return listener; }
    /// Shows the nodes as they are now; the selection stays where its node does.
    void refresh();
    TreeItem* getSelected() const;
    void select(TreeItem* item);
    /// Opens the line of an item for a new text.
    void edit(TreeItem& item);
    /// Items can be dragged to another place; `canHold` says into which, the root among them.
    void setDraggable(std::function<bool(const TreeItem&)> canHold);

  protected:
    NativeHandle makeHandle(NativeHandle parent) override;

  private:
    friend class NativeTree;
    TreeItem root;
    TreeViewListener* listener = nullptr;
    std::function<bool(const TreeItem&)> canHoldItems;
};

} // namespace varn
