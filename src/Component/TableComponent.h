#pragma once

#include "Component/Scrollbar.h"
#include "Component/Table.h"
#include "Component/TableColumn.h"

#include <set>

namespace varn {

/// The kit's own drawn table. It answers to the messages of a list view, so what drives the
/// toolkit's table drives this one. Rows stand in the model's order.
class TableComponent : public Table, public Scrollbar
{
  public:
    enum class State
    {
        Idle = 0,
        Resizing = 1, ///< a column's edge is held
        Editing = 2   ///< a cell is to be edited in place
    };

    TableComponent();
    ~TableComponent() override;

    using Table::create;
    WString toString() const override;

    /// Borrowed; null: the empty model that a new table has.
    void setModel(TableModel* next) override;
    TableColumnModel& getColumnModel() { return columnModel; }
    void setColumnWidth(int column, int width);
    void ensureRowVisible(int row) override;
    void selectAll();
    int getColumnCount() const { return columnModel.getColumnCount(); }

    int getRowCount() const;
    int getSelectedRow() const override;
    std::vector<int> getSelectedRows() const override;
    void selectRow(int row) override;
    /// The row at a height of the window; -1: none.
    int findRow(int y) const;
    State getState() const { return state; }
    void setState(State next) { state = next; }
    /// Where the editor of a cell opens, below the click that asked for it.
    Point getEditPoint() const { return editPoint; }
    /// The key of the last `kKeyDownCode` notice.
    int getNotifiedKey() const { return notifiedKey; }
    int getHeaderHeight() const;
    int getRowHeight() const;

    MessageResult windowProc(NativeHandle window, std::uint32_t message, WordParam wParam,
                             LongParam lParam) override;
    void onCreate() override;
    void onSize(int width, int height) override;
    bool onKeyDown(int key, std::uint32_t flags) override;
    bool onLeftDown(const MouseEvent& event) override;
    bool onLeftUp(const MouseEvent& event) override;
    bool onLeftDoubleClick(const MouseEvent& event) override;
    bool onMouseMove(const MouseEvent& event) override;
    bool onMouseWheel(const MouseEvent& event, int delta) override;
    bool onSetFocus() override;
    bool onKillFocus() override;

  protected:
    bool paintsItself() const override { return true; }
    NativeHandle makeHandle(NativeHandle parent) override;
    void applyTexts() override;
    void modelChanged(const TableModelEvent& event) override;
    void paint(Graphics& graphics, const Rect& dirty) override;
    void scrolled() override;
    /// A click on no row.
    virtual void onEmptyClick(const MouseEvent&) {}

  private:
    int clientWidth() const;
    int fullyShownRows() const;
    Rect scrollTrack() const;
    void fitScrollbar();
    void takeRow(int row, std::uint32_t held);
    bool navigate(int key, std::uint32_t flags);
    void pressHeader(int x);
    void paintHeader(Graphics& graphics, double scale);
    void paintRow(Graphics& graphics, int row, double scale);
    void paintText(Graphics& graphics, const Rect& cell, WStringView text, bool right);

    DefaultTableModel noModel;
    TableColumnModel columnModel;
    std::set<int> selected;
    int current = -1;
    State state = State::Idle;
    int heldColumn = -1;
    int heldOffset = 0; ///< of the pointer from the edge
    Point editPoint;
    int notifiedKey = 0;
};

} // namespace varn
