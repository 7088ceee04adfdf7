#pragma once

#include "Component/GroupComponent.h"
#include "Component/TableComponent.h"
#include "Component/TableToolbar.h"

namespace varn {

/// A drawn table with its tool bar, for the sub-lists of a row. Its action is a change of the rows
/// or of the selection.
class BaseDataTable : public GroupComponent, public ActionListener, public TableToolbar::Listener
{
  public:
    /// @param ordered  rows can be moved up and down
    explicit BaseDataTable(bool ordered = true);
    ~BaseDataTable() override = default;

    TableComponent& getTable() { return table; }
    TableToolbar& getToolbar() { return toolbar; }
    void onCreate() override;

    void handleEvent(const EventObject& event) override;
    void plusPressed(TableToolbar& bar) override;
    void minusPressed(TableToolbar& bar) override;
    void directionPressed(TableToolbar& bar, bool upwards) override;

  protected:
    /// A row behind `row`, or at the end for -1; false: there is no room for more.
    virtual bool addRow(int row) = 0;
    virtual void removeRow(int row) = 0;
    /// Lets two neighbours change places.
    virtual void swapRows(int first, int second) = 0;
    /// Another row was selected.
    virtual void rowSelected(int /*row*/) {}

    /// Shows the rows as they are and selects one; -1: none.
    void showRows(int select);
    /// The same after a change, which it tells.
    void rowsChanged(int select);

  private:
    void fitButtons();

    TableToolbar toolbar;
    TableComponent table;
};

} // namespace varn
