#pragma once

#include "Game/Database/GameDataList.h"

namespace varn {

/// The `.dat` record of an encounter table. The lists are not in it: a row read from a record has
/// none.
struct EnemyEmergeTableData_
{
    FixedText<70> name;
    std::uint16_t id;
};
static_assert(sizeof(EnemyEmergeTableData_) == 72);

/// An encounter table: which enemies appear, each with its weight at the same index.
class EnemyTableModel final : public GameRow
{
    EnemyEmergeTableData_ record{};
    std::vector<std::uint8_t> enemyIDs;
    std::vector<std::uint8_t> enemyPriorities;

  public:
    static const FieldTable& fieldTable();
    const FieldTable& getFieldTable() const override { return fieldTable(); }

    VARN_FIELD(Id, record.id)
    VARN_FIELD(EnemyIDs, enemyIDs)
    VARN_FIELD(EnemyPriorities, enemyPriorities)
};

class EnemyTableDatabase final : public GameDataList<EnemyTableModel, EnemyTableDatabase>
{
  public:
    static const TableInfo kInfo;
};

} // namespace varn
