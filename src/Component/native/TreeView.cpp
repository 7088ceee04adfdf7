#include "Component/TreeView.h"

#include "Component/native/Icons.h"
#include "Component/native/NativeWindow.h"
#include "Component/native/Qt.h"

#include <QDropEvent>
#include <QHeaderView>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <algorithm>

namespace varn {

using native::fromQt;
using native::handleOf;
using native::toQt;
using native::widgetAs;
using native::widgetOf;

TreeItem& TreeItem::add(WStringView childText, int childData)
{
    TreeItem& child = *children.emplace_back(std::make_unique<TreeItem>());
    child.text = childText;
    child.data = childData;
    child.parent = this;
    return child;
}

namespace {

constexpr int kItemRole = Qt::UserRole;

TreeItem* itemOf(const QTreeWidgetItem* line)
{
    return line ? static_cast<TreeItem*>(line->data(0, kItemRole).value<void*>()) : nullptr;
}

} // namespace

/// The toolkit's tree, with lines for the items.
class NativeTree final : public QTreeWidget
{
  public:
    NativeTree(QWidget* parent, TreeView& view) : QTreeWidget(parent), view(view)
    {
        header()->hide();
        setEditTriggers(QAbstractItemView::EditKeyPressed);
        setContextMenuPolicy(Qt::CustomContextMenu);
        setUniformRowHeights(true);
        setExpandsOnDoubleClick(false);
        connect(this, &QTreeWidget::currentItemChanged, this,
                [this](QTreeWidgetItem* line) { selected(line); });
        connect(this, &QTreeWidget::itemActivated, this,
                [this](QTreeWidgetItem* line) { tell(line, &TreeViewListener::itemActivated); });
        connect(this, &QTreeWidget::itemChanged, this,
                [this](QTreeWidgetItem* line) { renamed(line); });
        connect(this, &QTreeWidget::itemExpanded, this,
                [this](QTreeWidgetItem* line) { expanded(line, true); });
        connect(this, &QTreeWidget::itemCollapsed, this,
                [this](QTreeWidgetItem* line) { expanded(line, false); });
        connect(this, &QWidget::customContextMenuRequested, this,
                [this](const QPoint& point) { menu(point); });
    }

    void fill()
    {
        const QSignalBlocker quiet(this);
        TreeItem* const before = itemOf(currentItem());
        clear();
        for (const auto& child : view.root.children)
            addTopLevelItem(makeLine(*child));
        expandLines(invisibleRootItem());
        if (QTreeWidgetItem* const line = find(invisibleRootItem(), before))
            setCurrentItem(line);
    }
    QTreeWidgetItem* find(QTreeWidgetItem* above, const TreeItem* item) const
    {
        for (int i = 0; item && i < above->childCount(); ++i) {
            if (itemOf(above->child(i)) == item)
                return above->child(i);
            if (QTreeWidgetItem* const found = find(above->child(i), item))
                return found;
        }
        return nullptr;
    }

  protected:
    void dropEvent(QDropEvent* event) override
    {
        QTreeWidgetItem* const dragged = currentItem();
        QTreeWidget::dropEvent(event);
        TreeItem* const item = itemOf(dragged);
        if (!item)
            return;
        reorder(view.root, invisibleRootItem());
        if (view.listener)
            view.listener->itemMoved(*item);
    }

  private:
    QTreeWidgetItem* makeLine(TreeItem& item) const
    {
        auto* const line = new QTreeWidgetItem; // owned by its parent
        line->setText(0, toQt(WStringView(item.text)));
        line->setData(0, kItemRole, QVariant::fromValue(static_cast<void*>(&item)));
        if (!item.icon.empty())
            line->setIcon(0, native::makeIcon(item.icon));
        Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
        flags.setFlag(Qt::ItemIsEditable, item.editable);
        if (view.canHoldItems) {
            flags.setFlag(Qt::ItemIsDragEnabled, item.editable);
            flags.setFlag(Qt::ItemIsDropEnabled, view.canHoldItems(item));
        }
        line->setFlags(flags);
        if (item.bold) {
            QFont font = line->font(0);
            font.setBold(true);
            line->setFont(0, font);
        }
        for (const auto& child : item.children)
            line->addChild(makeLine(*child));
        return line;
    }
    void expandLines(QTreeWidgetItem* above)
    {
        for (int i = 0; i < above->childCount(); ++i) {
            QTreeWidgetItem* const line = above->child(i);
            if (const TreeItem* const item = itemOf(line))
                line->setExpanded(item->expanded);
            expandLines(line);
        }
    }
    void selected(QTreeWidgetItem* line) { tell(line, &TreeViewListener::itemSelected); }
    void tell(const QTreeWidgetItem* line, void (TreeViewListener::*what)(TreeItem&))
    {
        TreeItem* const item = itemOf(line);
        if (item && view.listener)
            (view.listener->*what)(*item);
    }
    void renamed(QTreeWidgetItem* line)
    {
        TreeItem* const item = itemOf(line);
        const WString text = fromQt(line->text(0));
        if (!item || text == item->text)
            return;
        if (!view.listener || view.listener->itemRenamed(*item, text))
            item->text = text;
        const QSignalBlocker quiet(this);
        line->setText(0, toQt(WStringView(item->text)));
    }
    void expanded(const QTreeWidgetItem* line, bool open)
    {
        TreeItem* const item = itemOf(line);
        if (!item)
            return;
        item->expanded = open;
        if (view.listener)
            view.listener->itemExpanded(*item, open);
    }
    void menu(const QPoint& point)
    {
        const QPoint inTree = viewport()->mapTo(this, point);
        if (view.listener)
            view.listener->menuRequested(itemOf(itemAt(point)), inTree.x(), inTree.y());
    }

    /// Gives the records the order of the lines.
    static void collect(TreeItem& above, std::vector<std::unique_ptr<TreeItem>>& all)
    {
        for (auto& child : above.children) {
            collect(*child, all);
            all.push_back(std::move(child));
        }
        above.children.clear();
    }
    static void place(TreeItem& above, QTreeWidgetItem* line,
                      std::vector<std::unique_ptr<TreeItem>>& all)
    {
        for (int i = 0; i < line->childCount(); ++i) {
            TreeItem* const item = itemOf(line->child(i));
            const auto found = std::ranges::find(all, item, &std::unique_ptr<TreeItem>::get);
            if (found == all.end())
                continue;
            item->parent = &above;
            above.children.push_back(std::move(*found));
            place(*item, line->child(i), all);
        }
    }
    static void reorder(TreeItem& root, QTreeWidgetItem* lines)
    {
        std::vector<std::unique_ptr<TreeItem>> all;
        collect(root, all);
        place(root, lines, all);
    }

    TreeView& view;
};

static NativeTree& treeOf(NativeHandle handle)
{
    return *static_cast<NativeTree*>(widgetOf(handle));
}

NativeHandle TreeView::makeHandle(NativeHandle parent)
{
    return handleOf(new NativeTree(widgetOf(parent), *this));
}

void TreeView::refresh()
{
    if (handle)
        treeOf(handle).fill();
}

TreeItem* TreeView::getSelected() const
{
    return handle ? itemOf(treeOf(handle).currentItem()) : nullptr;
}

void TreeView::select(TreeItem* item)
{
    if (!handle)
        return;
    NativeTree& tree = treeOf(handle);
    const QSignalBlocker quiet(&tree);
    tree.setCurrentItem(tree.find(tree.invisibleRootItem(), item));
}

void TreeView::edit(TreeItem& item)
{
    if (!handle)
        return;
    NativeTree& tree = treeOf(handle);
    if (QTreeWidgetItem* const line = tree.find(tree.invisibleRootItem(), &item))
        tree.editItem(line);
}

void TreeView::setDraggable(std::function<bool(const TreeItem&)> canHold)
{
    canHoldItems = std::move(canHold);
    if (!handle)
        return;
    treeOf(handle).setDragDropMode(QAbstractItemView::InternalMove);
    treeOf(handle).setDefaultDropAction(Qt::MoveAction);
    Qt::ItemFlags top = Qt::ItemIsEnabled;
    top.setFlag(Qt::ItemIsDropEnabled, canHoldItems(root));
    treeOf(handle).invisibleRootItem()->setFlags(top);
    refresh();
}

} // namespace varn
