#pragma once

#include "Component/Button.h"
#include "Component/Label.h"
#include "Component/Table.h"
#include "DatabaseDialog/FieldPane.h"
#include "DatabaseDialog/FilterPane.h"

#include <deque>

namespace varn {

/// What a window shows of a table.
struct PageOutline
{
    enum class Shape
    {
        Rows,  ///< a list of rows, and the fields of one
        OneRow ///< a table of one row
    };
    WStringView title; ///< of its tab
    GameTable* table = nullptr;
    Shape shape = Shape::Rows;
    /// Finds the faults in the texts of the row; null: nothing to check.
    WString (*check)(WStringView name, WStringView text) = nullptr;
};

/// The rows of a table at the left, the fields of the selected one at the right. Rows can be
/// copied, pasted, cleared, marked and counted; the copy lives as long as the page and is not the
/// desktop's.
class DatabasePage : public GroupComponent, private FilterPane::FilterListener
{
  public:
    explicit DatabasePage(const PageOutline& outline);
    ~DatabasePage() override;

    void onCreate() override;
    GameTable& getTable() const { return table; }
    FieldPane& getFields() { return fields; }
    FilterPane& getFilter() { return filter; }
    /// The rows that pass the filter, in order.
    std::vector<int> getShownRows() const;
    int getSelectedRow() const { return selected; }
    /// Stores the fields of the row before and shows those of another one.
    void selectRow(int row);
    /// Writes the fields of the selected row into the row.
    void store();
    /// Other tables may have changed.
    void refresh();

    // The row menu.
    void copyRow();
    void pasteRow();
    void clearRow();
    /// @param marker  a row of the markers, -1 for none
    void markRow(int marker);
    void changeMaximum();
    /// The table has so many rows from now on; too many are told and refused.
    void setMaximum(std::size_t count);
    /// Compiles the texts of the selected row and tells what is wrong.
    void check();
    const WString& getCheckResult() const { return checkResult; }

  private:
    class RowList;
    class RowTable;

    void buildList(GroupComponent& pane);
    void buildFields(GroupComponent& pane);
    void filterChanged() override;
    GameRow* findSelected() const;
    void showSelected();
    void rowChanged();
    void fitCount();
    void showMenu(int x, int y);

    PageOutline outline;
    GameTable& table;
    FieldPane fields;
    FilterPane filter;
    std::unique_ptr<RowList> rows;
    std::unique_ptr<RowTable> list;
    Splitter halves;
    GroupComponent listPane, fieldSide;
    ScrollPane scroll;
    Label idLabel, countLabel, result;
    Button maximumButton, checkButton;
    std::vector<std::unique_ptr<GameRow>> copied; ///< at most one
    int selected = -1;
    WString checkResult;
};

} // namespace varn
