#pragma once

#include "Game/Database/GameDataList.h"

namespace varn {

/// A trap of a treasure box. Numbers that lead nowhere are kept as they are.
class TreasureBoxTrapData final : public GameRow
{
    WString name;
    WString name2;
    std::int32_t skillID = 0;
    std::int32_t scriptID = 0;
    std::int32_t target = 0;
    std::uint8_t contentsObtainable = 0;

  public:
    static const FieldTable& fieldTable();
    const FieldTable& getFieldTable() const override { return fieldTable(); }

    VARN_FIELD(SkillID, skillID)
    VARN_FIELD(ScriptID, scriptID)
    VARN_FIELD(Target, target)
    /// Non-zero: the contents survive the trap.
    VARN_FIELD(ContentsObtainable, contentsObtainable)
};

/// `TrapList.xml`.
class TreasureBoxTrapList final : public GameDataList<TreasureBoxTrapData, TreasureBoxTrapList>
{
  public:
    static const TableInfo kInfo;
};

/// A treasure box: gold, the traps it can carry, and three ranges of items. A range table lists
/// item rows in pairs, the first and the last of a range.
class TreasureBoxData final : public BaseDatabaseModel
{
    std::int32_t gold = 0;
    std::int32_t goldVariance = 0;
    std::vector<std::int32_t> traps;
    std::vector<std::int32_t> rangeTable0;
    std::vector<std::int32_t> rangeTable1;
    std::vector<std::int32_t> rangeTable2;

  public:
    static const FieldTable& fieldTable();
    const FieldTable& getFieldTable() const override { return fieldTable(); }

    VARN_FIELD(Gold, gold)
    VARN_FIELD(GoldVariance, goldVariance)
    VARN_FIELD(Traps, traps)
    VARN_FIELD(RangeTable0, rangeTable0)
    VARN_FIELD(RangeTable1, rangeTable1)
    VARN_FIELD(RangeTable2, rangeTable2)
};

/// `TreasureBoxList.xml`.
class TreasureBoxList final : public GameDataList<TreasureBoxData, TreasureBoxList>
{
  public:
    static const TableInfo kInfo;
};

} // namespace varn
