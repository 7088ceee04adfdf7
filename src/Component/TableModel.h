#pragma once

#include "Component/Events.h"
#include "Util/Text.h"

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
    virtual ~TableModel() = default;
    virtual int getRowCount() const = 0;
    virtual int getColumnCount() const = 0;
    virtual WString getValueAt(int row, int column) const = 0;

    /// Where a number is shown, rows sort by it and not by its letters.
    virtual bool isNumber(int /*column*/) const { return false; }

    void addTableModelListener(TableModelListener* listener);
    void removeTableModelListener(TableModelListener* listener);
    /// Tells the listeners in the order they were added. False: there is none.
    bool fireTableChanged(const TableModelEvent& event) const;

  private:
    std::vector<TableModelListener*> listeners;
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
