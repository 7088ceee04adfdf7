#pragma once

#include "Game/Database/GameDataList.h"

namespace varn {

/// The `.dat` record of an item table. The items are not in it: a row read from a record has none.
struct ItemTableData_
{
    FixedText<20> name;
    std::uint8_t unused20[29];
};
static_assert(sizeof(ItemTableData_) == 49);

/// The items that a fight can leave behind, each with its chance (percent) at the same index.
class ItemTableData final : public BaseDatabaseModel
{
    ItemTableData_ record{};
    std::vector<std::int32_t> itemIDs;
    std::vector<std::int32_t> itemRates;

  public:
    static const FieldTable& fieldTable();
    const FieldTable& getFieldTable() const override { return fieldTable(); }

    VARN_FIELD(ItemIDs, itemIDs)
    VARN_FIELD(ItemRates, itemRates)
};

class ItemTableList final : public GameDataList<ItemTableData, ItemTableList>
{
  public:
    static const TableInfo kInfo;
};

} // namespace varn
