#pragma once

#include "Util/Text.h"

#include <cstddef>
#include <vector>

namespace varn {

/// One column of a drawn table.
struct TableColumn
{
    WString header; ///< in the language in force
    int width = 80; ///< pixels
    int x = 0;      ///< left edge, by the columns before it
};

/// The columns of a drawn table, from left to right.
class TableColumnModel
{
  public:
    /// A column is never narrower.
    static constexpr int kLeastWidth = 24;

    int getColumnCount() const { return static_cast<int>(columns.size()); }
    TableColumn& getColumn(int column) { return columns[static_cast<std::size_t>(column)]; }
    const TableColumn& getColumn(int column) const
    {
        return columns[static_cast<std::size_t>(column)];
    }
    void addColumn(TableColumn column) { columns.push_back(std::move(column)); }
    void clear() { columns.clear(); }

    /// A column at or past the count is ignored. The last column is stretched to `clientWidth`
    /// where the columns would stop short of it.
    void setWidth(int column, int width, int clientWidth);
    /// Gives every column its place, and the last one what is left of `clientWidth`.
    void layOut(int clientWidth);
    /// The column whose right edge can be gripped at `x`; -1: none.
    int findGrip(int x) const;

  private:
    std::vector<TableColumn> columns;
};

} // namespace varn
