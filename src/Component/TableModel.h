#pragma once

#include "Component/Events.h"
#include "Util/Text.h"

#include <memory>
#include <optional>
#include <vector>

namespace varn {

/// Row and column of a change, -1 for all of them.
struct TableModelEvent : EventObject
{
    enum Kind
    {
        Changed = 0,
        Inserted = 1,
        Removed = 2
    };

    int row = -1, column = -1;

    TableModelEvent(Kind kind, int row, int column)
        : EventObject(nullptr, kind), row(row), column(column)
    {}
};

/// Told when a model changes.
class TableModelListener : public EventListener
{
  public:
    virtual void tableChanged(const TableModelEvent& event) = 0;
    void handleEvent(const EventObject& event) final
    {
        tableChanged(static_cast<const TableModelEvent&>(event));
    }
};

/// What a table shows; the values are the owner's.
class TableModel
{
  public:
    TableModel() = default;
    virtual ~TableModel() = default;
    TableModel(const TableModel&) = delete;
    TableModel& operator=(const TableModel&) = delete;
    virtual int getRowCount() const = 0;
    virtual int getColumnCount() const = 0;
    virtual WString getValueAt(int row, int column) const = 0;

    /// Where a number is shown, rows sort by it and not by its letters.
    virtual bool isNumber(int /*column*/) const { return false; }
    /// A colour reference behind the row; nothing: the table's own.
    virtual std::optional<std::uint32_t> getRowColor(int /*row*/) const { return std::nullopt; }

    void addTableModelListener(TableModelListener* listener);
    void removeTableModelListener(TableModelListener* listener);
    /// Tells the listeners in the order they were added. False: there is none.
    bool fireTableChanged(const TableModelEvent& event) const;

    /// Expires with the model.
    std::weak_ptr<const void> getLife() const { return life; }

  private:
    std::vector<TableModelListener*> listeners;
    std::shared_ptr<const void> life = std::make_shared<char>();
};

/// No rows, no columns.
class DefaultTableModel : public TableModel
{
  public:
    int getRowCount() const override { return 0; }
    int getColumnCount() const override { return 0; }
    WString getValueAt(int, int) const override { return {}; }
};

} // namespace varn
