#pragma once

#include "Game/Database/GameTable.h"

namespace varn {

/// The table of row class `T` whose one instance is of list class `L`. `L` declares
/// `static const TableInfo kInfo`.
template <class T, class L>
class GameDataList : public GameTable
{
  public:
    using Row = T;

    /// The process-wide table, made at the first use.
    static L& instance()
    {
        static L list;
        return list;
    }

    /// Throws std::out_of_range.
    T& at(std::size_t index) { return static_cast<T&>(rowAt(index)); }
    const T& at(std::size_t index) const { return static_cast<const T&>(rowAt(index)); }
    /// Null outside the table.
    T* find(std::int64_t index) { return static_cast<T*>(findRow(index)); }
    const T* find(std::int64_t index) const { return static_cast<const T*>(findRow(index)); }
    void add(T row) { append(std::make_unique<T>(std::move(row))); }

  protected:
    GameDataList() : GameTable(L::kInfo) {}
};

} // namespace varn
