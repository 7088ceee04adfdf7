#include "Component/Table.h"

#include "Component/Theme.h"
#include "Component/Translation.h"
#include "Component/native/NativeWindow.h"
#include "Component/native/Qt.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QPainter>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <algorithm>
#include <set>

namespace varn {

using native::fromQt;
using native::handleOf;
using native::toQt;
using native::widgetAs;
using native::widgetOf;

namespace {

/// Our model as the toolkit asks for it.
class ModelBridge final : public QAbstractTableModel
{
  public:
    bool checkable = false;
    std::set<int> checkedRows;
    std::function<void()> checked;

    void setSource(TableModel* next)
    {
        beginResetModel();
        model = next;
        life = next ? next->getLife() : std::weak_ptr<const void>();
        checkedRows.clear();
        endResetModel();
    }
    TableModel* getSource() const { return life.expired() ? nullptr : model; }
    void setHeaders(const QStringList& next)
    {
        const bool sameColumns = next.size() == headers.size();
        if (!sameColumns)
            beginResetModel();
        headers = next;
        if (!sameColumns)
            endResetModel();
        else if (!headers.isEmpty())
            emit headerDataChanged(Qt::Horizontal, 0, static_cast<int>(headers.size()) - 1);
    }
    void reset()
    {
        beginResetModel();
        endResetModel();
    }
    void rowChanged(int row) { emit dataChanged(index(row, 0), index(row, columnCount({}) - 1)); }

    int rowCount(const QModelIndex& parent) const override
    {
        return parent.isValid() || !getSource() ? 0 : getSource()->getRowCount();
    }
    int columnCount(const QModelIndex& parent) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(headers.size());
    }
    QVariant data(const QModelIndex& index, int role) const override
    {
        const TableModel* const source = getSource();
        if (!source || !index.isValid() || index.row() >= source->getRowCount())
            return {};
        if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
            return toQt(WStringView(source->getValueAt(index.row(), index.column())));
        if (role == Qt::TextAlignmentRole && source->isNumber(index.column()))
            return QVariant(Qt::AlignRight | Qt::AlignVCenter);
        if (role == Qt::BackgroundRole || role == Qt::ForegroundRole) {
            const std::optional<std::uint32_t> colour = source->getRowColor(index.row());
            if (!colour)
                return {};
            return toQt(role == Qt::BackgroundRole ? *colour : readableOn(*colour));
        }
        if (role == Qt::CheckStateRole && checkable && index.column() == 0)
            return checkedRows.contains(index.row()) ? Qt::Checked : Qt::Unchecked;
        return {};
    }
    bool setData(const QModelIndex& index, const QVariant& value, int role) override
    {
        if (role != Qt::CheckStateRole)
            return false;
        if (value.toInt() == Qt::Checked)
            checkedRows.insert(index.row());
        else
            checkedRows.erase(index.row());
        emit dataChanged(index, index);
        if (checked)
            checked();
        return true;
    }
    Qt::ItemFlags flags(const QModelIndex& index) const override
    {
        Qt::ItemFlags flags = QAbstractTableModel::flags(index);
        flags.setFlag(Qt::ItemIsUserCheckable, checkable && index.column() == 0);
        return flags;
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section >= 0 &&
            section < headers.size())
            return headers[section];
        return {};
    }

  private:
    QStringList headers;
    TableModel* model = nullptr;
    std::weak_ptr<const void> life;
};

/// Order and filter of the view.
class RowOrder final : public QSortFilterProxyModel
{
  public:
    const ModelBridge* bridge = nullptr;

  protected:
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override
    {
        const QString a = left.data().toString(), b = right.data().toString();
        if (bridge->getSource() && bridge->getSource()->isNumber(left.column()))
            return a.toDouble() < b.toDouble();
        return QString::localeAwareCompare(a, b) < 0;
    }
};

/// The toolkit's table, with a text where there are no rows.
class NativeTable final : public QTableView
{
  public:
    explicit NativeTable(QWidget* parent) : QTableView(parent) {}
    QString emptyText;

  protected:
    void paintEvent(QPaintEvent* event) override
    {
        QTableView::paintEvent(event);
        if (emptyText.isEmpty() || model()->rowCount() > 0)
            return;
        QPainter painter(viewport());
        painter.setPen(palette().color(QPalette::PlaceholderText));
        constexpr int kMargin = 16;
        painter.drawText(viewport()->rect().adjusted(kMargin, kMargin, -kMargin, -kMargin),
                         Qt::AlignCenter | Qt::TextWordWrap, emptyText);
    }
};

} // namespace

struct Table::Implementation final : TableModelListener
{
    explicit Implementation(Table& owner) : owner(owner)
    {
        order.bridge = &bridge;
        order.setSourceModel(&bridge);
        order.setFilterKeyColumn(-1);
        order.setFilterCaseSensitivity(Qt::CaseInsensitive);
    }

    void tableChanged(const TableModelEvent& event) override { owner.modelChanged(event); }
    void followModel(const TableModelEvent& event)
    {
        if (event.id == TableModelEvent::Changed && event.row >= 0) {
            bridge.rowChanged(event.row);
            return;
        }
        const std::vector<int> selected = owner.getSelectedRows();
        const int current = owner.getSelectedRow();
        bridge.reset();
        owner.selectRow(current);
        if (selected.size() > 1)
            selectAlso(selected);
    }
    void selectAlso(const std::vector<int>& rows)
    {
        quiet = true;
        for (const int row : rows)
            view->selectionModel()->select(order.mapFromSource(bridge.index(row, 0)),
                                           QItemSelectionModel::Select | QItemSelectionModel::Rows);
        quiet = false;
    }

    Table& owner;
    ModelBridge bridge;
    RowOrder order;
    NativeTable* view = nullptr;
    bool quiet = false; // a selection that the program makes is no action
};

Table::Table() : implementation(std::make_unique<Implementation>(*this))
{
    constexpr std::uint32_t kExtendedStyle = 0x861;
    windowClass = u"SysListView32";
    extendedStyle = kExtendedStyle;
}

Table::~Table()
{
    Table::setModel(nullptr);
    Table::destroy(); // the view goes before the models it shows
}

void Table::destroy()
{
    implementation->view = nullptr;
    Component::destroy();
}

void Table::forgetHandle()
{
    implementation->view = nullptr;
    Component::forgetHandle();
}

void Table::onCreate()
{
    native::setTitle(handle, u"This is a Table");
    applyColumns();
}

void Table::modelChanged(const TableModelEvent& event)
{
    implementation->followModel(event);
}

bool Table::create(BaseWindow* parent, bool showHeader, bool checkboxes)
{
    constexpr std::uint32_t kStyle = 0x56A10009, kCheckboxStyle = 0x56A11009;
    header = showHeader;
    checkable = checkboxes;
    style = checkboxes ? kCheckboxStyle : kStyle;
    return Component::create(parent);
}

NativeHandle Table::makeHandle(NativeHandle parent)
{
    Implementation& own = *implementation;
    own.bridge.checkable = checkable;
    auto* const view = new NativeTable(widgetOf(parent));
    own.view = view;
    view->setModel(&own.order);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setSelectionMode(QAbstractItemView::SingleSelection);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->setShowGrid(false);
    view->setAlternatingRowColors(true);
    view->setWordWrap(false);
    view->setTabKeyNavigation(false);
    view->verticalHeader()->hide();
    view->verticalHeader()->setDefaultSectionSize(view->fontMetrics().height() + 6);
    view->horizontalHeader()->setVisible(header);
    view->horizontalHeader()->setHighlightSections(false);
    view->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    QObject::connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, view, [this] {
        if (!implementation->quiet)
            fireAction();
    });
    QObject::connect(view, &QAbstractItemView::activated, view, [this] { fireEvent(kReturnCode); });
    return handleOf(view);
}

void Table::applyTexts()
{
    Component::applyTexts();
    Implementation& own = *implementation;
    if (!own.view)
        return;
    QStringList headers;
    for (const Column& column : columns)
        headers << toQt(WStringView(translate(column.english)));
    own.bridge.setHeaders(headers);
    own.view->emptyText = emptyText.empty() ? QString() : toQt(WStringView(translate(emptyText)));
    own.view->viewport()->update();
}

void Table::setColumns(std::vector<Column> next)
{
    columns = std::move(next);
    applyTexts();
    applyColumns();
}

void Table::applyColumns()
{
    Implementation& own = *implementation;
    if (!own.view)
        return;
    QHeaderView& headerView = *own.view->horizontalHeader();
    for (int i = 0; i < static_cast<int>(columns.size()); ++i) {
        const int width = columns[static_cast<std::size_t>(i)].width;
        if (width > 0)
            own.view->setColumnWidth(i, width);
        headerView.setSectionResizeMode(i, width > 0 ? QHeaderView::Interactive
                                                     : QHeaderView::Stretch);
    }
}

void Table::setModel(TableModel* next)
{
    if (TableModel* const before = getModel())
        before->removeTableModelListener(implementation.get());
    if (next)
        next->addTableModelListener(implementation.get());
    implementation->bridge.setSource(next);
}

TableModel* Table::getModel() const
{
    return implementation->bridge.getSource();
}

int Table::getSelectedRow() const
{
    if (!implementation->view)
        return -1;
    // The focus alone makes a row the current one, without choosing it.
    const QItemSelectionModel& selection = *implementation->view->selectionModel();
    const QModelIndex index = selection.currentIndex();
    const bool chosen = index.isValid() && selection.isRowSelected(index.row());
    return chosen ? implementation->order.mapToSource(index).row() : -1;
}

std::vector<int> Table::getSelectedRows() const
{
    std::vector<int> rows;
    if (implementation->view)
        for (const QModelIndex& index : implementation->view->selectionModel()->selectedRows())
            rows.push_back(implementation->order.mapToSource(index).row());
    std::ranges::sort(rows);
    return rows;
}

void Table::selectRow(int row)
{
    Implementation& own = *implementation;
    if (!own.view)
        return;
    own.quiet = true;
    const QModelIndex index = own.order.mapFromSource(own.bridge.index(row, 0));
    if (index.isValid())
        own.view->selectRow(index.row());
    else
        own.view->selectionModel()->clear();
    own.quiet = false;
}

void Table::ensureRowVisible(int row)
{
    if (implementation->view)
        implementation->view->scrollTo(
            implementation->order.mapFromSource(implementation->bridge.index(row, 0)));
}

bool Table::isRowChecked(int row) const
{
    return implementation->bridge.checkedRows.contains(row);
}

void Table::setRowChecked(int row, bool checked)
{
    implementation->bridge.setData(implementation->bridge.index(row, 0),
                                   checked ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
}

void Table::onCheck(std::function<void()> action)
{
    implementation->bridge.checked = std::move(action);
}

void Table::setFilter(WStringView text)
{
    implementation->order.setFilterFixedString(toQt(text));
}

void Table::setEmptyText(WStringView english)
{
    emptyText = english;
    applyTexts();
}

void Table::setSortable(bool sortable)
{
    if (!implementation->view)
        return;
    // Rows stand in the model's order until a header is clicked.
    implementation->view->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    implementation->view->setSortingEnabled(sortable);
    if (sortable)
        implementation->order.sort(-1);
}

void Table::sortBy(int column)
{
    if (implementation->view)
        implementation->view->sortByColumn(column, Qt::AscendingOrder);
}

void Table::setMultipleSelection(bool multiple)
{
    if (implementation->view)
        implementation->view->setSelectionMode(multiple ? QAbstractItemView::ExtendedSelection
                                                        : QAbstractItemView::SingleSelection);
}

} // namespace varn
