#pragma once

#include "Game/Database/GameDataList.h"

namespace varn {

/// The `.dat` record of an enemy's action. (Record names end in "_": C++ reserves those that begin
/// with one.)
struct EnemyActionData_
{
    FixedText<20, 19> name;
    std::uint8_t type;
    std::uint8_t unused21[57];
    std::uint16_t id;
};
static_assert(sizeof(EnemyActionData_) == 80);

/// How an enemy acts in battle.
class EnemyActionData final : public GameRow
{
    EnemyActionData_ record{};
    WString name2;
    std::vector<std::uint8_t> commandSkillIDs;

  public:
    static const FieldTable& fieldTable();
    const FieldTable& getFieldTable() const override { return fieldTable(); }

    VARN_FIELD(Type, record.type)
    VARN_FIELD(Id, record.id)
    /// Skill rows.
    VARN_FIELD(CommandSkillIDs, commandSkillIDs)
};

class EnemyActionList final : public GameDataList<EnemyActionData, EnemyActionList>
{
  public:
    static const TableInfo kInfo;
};

} // namespace varn
