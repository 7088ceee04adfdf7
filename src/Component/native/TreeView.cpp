#include "Component/TreeView.h"

#include "Component/native/Icons.h"
#include "Component/native/NativeWindow.h"
#include "Component/native/Qt.h"

#include <QDropEvent>
#include <QHeaderView>
#include <QMimeData>
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

constexpr int kItemRole = Qt::UserRole; // a number: a drag carries the data of its line

const QString kTreeFormat = QStringLiteral("application/x-varn-tree");

TreeItem* itemOf(const QTreeWidgetItem* line)
{
    return line ? reinterpret_cast<TreeItem*>(line->data(0, kItemRole).value<quintptr>()) : nullptr;
}

/// A line that shows its item's text with the mark and is edited without it.
class Line final : public QTreeWidgetItem
{
  public:
    explicit Line(const WString& mark) : mark(toQt(WStringView(mark))) {}
    QVariant data(int column, int role) const override
    {
        const QVariant value = QTreeWidgetItem::data(column, role);
        return role == Qt::DisplayRole ? value.toString() + mark : value;
    }

  private:
    QString mark;
};

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
        connect(this, &QTreeWidget::itemChanged, this,
                [this](QTreeWidgetItem* line) { checked(line); });
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
    QMimeData* mimeData(const QList<QTreeWidgetItem*>& lines) const override
    {
        QMimeData* const data = QTreeWidget::mimeData(lines); // owned by the drag
        if (data)
            data->setData(kTreeFormat, nameOfTree());
        return data;
    }
    void dragEnterEvent(QDragEnterEvent* event) override
    {
        if (isOwn(*event))
            event->acceptProposedAction();
    }
    void dragMoveEvent(QDragMoveEvent* event) override
    {
        QTreeWidget::dragMoveEvent(event); // scrolls, and shows where
        const TreeItem* const item = itemOf(currentItem());
        event->setAccepted(isOwn(*event) && item &&
                           canMove(*item, placeAt(event->position().toPoint())));
    }
    /// The record moves; the lines follow.
    void dropEvent(QDropEvent* event) override
    {
        if (!isOwn(*event))
            return;
        TreeItem* const item = itemOf(currentItem());
        event->setDropAction(Qt::IgnoreAction); // or the view would take the dragged line away
        event->accept();
        if (!item || !move(*item, placeAt(event->position().toPoint())))
            return;
        fill();
        setCurrentItem(find(invisibleRootItem(), item));
        if (view.listener)
            view.listener->itemMoved(*item);
    }

  private:
    QByteArray nameOfTree() const { return QByteArray::number(reinterpret_cast<quintptr>(this)); }
    /// The drag began in this tree.
    bool isOwn(const QDropEvent& event) const
    {
        return event.mimeData()->data(kTreeFormat) == nameOfTree();
    }
    QTreeWidgetItem* makeLine(TreeItem& item) const
    {
        auto* const line = new Line(item.mark); // owned by its parent
        line->setText(0, toQt(WStringView(item.text)));
        line->setData(0, kItemRole, QVariant::fromValue(reinterpret_cast<quintptr>(&item)));
        if (!item.icon.empty())
            line->setIcon(0, native::makeIcon(item.icon));
        Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
        flags.setFlag(Qt::ItemIsEditable, item.editable);
        if (view.canHoldItems) {
            flags.setFlag(Qt::ItemIsDragEnabled, item.editable);
            flags.setFlag(Qt::ItemIsDropEnabled, view.canHoldItems(item));
        }
        line->setFlags(flags);
        if (item.checked) {
            line->setFlags(line->flags() | Qt::ItemIsUserCheckable);
            line->setCheckState(0, *item.checked ? Qt::Checked : Qt::Unchecked);
        }
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
        const WString text = fromQt(line->data(0, Qt::EditRole).toString());
        if (!item || text == item->text)
            return;
        if (!view.listener || view.listener->itemRenamed(*item, text))
            item->text = text;
        const QSignalBlocker quiet(this);
        line->setText(0, toQt(WStringView(item->text)));
    }
    void checked(const QTreeWidgetItem* line)
    {
        TreeItem* const item = itemOf(line);
        const bool isChecked = line->checkState(0) == Qt::Checked;
        if (!item || !item->checked || *item->checked == isChecked)
            return;
        item->checked = isChecked;
        if (view.listener)
            view.listener->itemChecked(*item);
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

    /// Where a dragged item goes: in front of a child of `above`, or behind them all.
    struct Place
    {
        TreeItem* above;
        const TreeItem* before; ///< null: behind all
    };
    Place placeAt(const QPoint& point) const
    {
        TreeItem* const target = itemOf(itemAt(point));
        if (!target)
            return {&view.root, nullptr};
        const QRect line = visualItemRect(itemAt(point));
        const int quarter = line.height() / 4;
        const bool onLine =
            point.y() >= line.top() + quarter && point.y() <= line.bottom() - quarter;
        if (onLine && view.canHoldItems && view.canHoldItems(*target))
            return {target, nullptr};
        const auto& siblings = target->parent->children;
        auto next = std::ranges::find(siblings, target, &std::unique_ptr<TreeItem>::get);
        if (point.y() > line.center().y())
            ++next;
        return {target->parent, next == siblings.end() ? nullptr : next->get()};
    }
    static bool isWithin(const TreeItem* item, const TreeItem& outer)
    {
        while (item && item != &outer)
            item = item->parent;
        return item != nullptr;
    }
    bool canMove(const TreeItem& item, const Place& place) const
    {
        return view.canHoldItems && view.canHoldItems(*place.above) &&
               !isWithin(place.above, item) && place.before != &item;
    }
    bool move(TreeItem& item, const Place& place) const
    {
        if (!canMove(item, place))
            return false;
        auto& from = item.parent->children;
        const auto found = std::ranges::find(from, &item, &std::unique_ptr<TreeItem>::get);
        std::unique_ptr<TreeItem> moved = std::move(*found);
        from.erase(found);
        auto& into = place.above->children;
        const auto before = std::ranges::find(into, place.before, &std::unique_ptr<TreeItem>::get);
        moved->parent = place.above;
        into.insert(before, std::move(moved));
        return true;
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
