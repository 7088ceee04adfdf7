#pragma once

#include "Game/Database/GameDataList.h"

namespace varn {

/// A flag of the game and its value at the start: 0 false, 1 true.
class FlagModel final : public GameRow
{
    WString name;
    std::int32_t id = 0;
    std::int32_t value = 0;

  public:
    static const FieldTable& fieldTable();
    const FieldTable& getFieldTable() const override { return fieldTable(); }

    VARN_FIELD(Id, id)
    VARN_FIELD(Value, value)
};

class FlagDatabase final : public GameDataList<FlagModel, FlagDatabase>
{
  public:
    static const TableInfo kInfo;
};

} // namespace varn
