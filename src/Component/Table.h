#pragma once

#include "Component/Component.h"
#include "Component/TableModel.h"

namespace varn {

/// The toolkit's list view in report mode. Rows are those of the model whatever the order and the
/// filter of the view. Its action is the choice of a row, by hand or not; a double click or Return
/// fires `kReturnCode`.
class Table : public Component
{
  public:
    struct Column
    {
        WString english; ///< header
        int width = 0;   ///< pixels; 0: what is left
    };

    Table();
    ~Table() override;

    /// @param checkboxes  a box before each row
    bool create(BaseWindow* parent, bool showHeader, bool checkboxes = false);
    bool create(BaseWindow* parent) override { return create(parent, true); }

    void setColumns(std::vector<Column> next);
    /// Borrowed; null: an empty one. A model that dies leaves the table empty.
    virtual void setModel(TableModel* next);
    TableModel* getModel() const;

    virtual int getSelectedRow() const; ///< -1: none
    virtual std::vector<int> getSelectedRows() const;
    /// -1: none.
    virtual void selectRow(int row);
    virtual void ensureRowVisible(int row);
    bool isRowChecked(int row) const;
    void setRowChecked(int row, bool checked);
    /// A box changed, by hand or not.
    void onCheck(std::function<void()> action);
    /// Shows only rows that hold the text in some column.
    void setFilter(WStringView text);
    /// Said in the middle of a table without rows. @param english  follows the language
    void setEmptyText(WStringView english);
    void setSortable(bool sortable);
    /// As a click on the header of a sortable table does.
    void sortBy(int column);
    void setMultipleSelection(bool multiple);

    void onCreate() override;
    void forgetHandle() override;
    void destroy() override;

  protected:
    bool paintsItself() const override { return false; }
    NativeHandle makeHandle(NativeHandle parent) override;
    void applyTexts() override;
    const std::vector<Column>& getColumns() const { return columns; }
    const WString& getEmptyText() const { return emptyText; }
    bool isHeaderShown() const { return header; }
    /// Something of the model changed.
    virtual void modelChanged(const TableModelEvent& event);

  private:
    struct Implementation;
    void applyColumns();

    std::unique_ptr<Implementation> implementation;
    std::vector<Column> columns;
    WString emptyText; // English
    bool header = true;
    bool checkable = false;
};

} // namespace varn
