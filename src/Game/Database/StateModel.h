#pragma once

#include "Game/Database/GameDataList.h"

namespace varn {

/// The `.dat` record of a state.
struct WizCharStateData_
{
    FixedText<11> name;
    std::uint8_t unused11;
    std::uint8_t removalConditions;
    std::uint8_t actionRestriction;
    std::uint8_t recoverRateOnAttack;
    std::uint8_t recoverRateOnAction;
    std::uint8_t recoverRateOnStep;
    std::uint8_t failureRateOnAttack;
    std::uint8_t failureRateOnMagic;
    std::uint8_t failureRateOnSkill;
    std::uint8_t hpChangeValueOnAction;
    std::uint8_t hpChangeRateOnAction;
    std::uint8_t unused22[2];
    std::uint8_t priority;
    std::uint8_t deathState;
    std::uint16_t nextStateID;
    std::uint16_t baseFee;
    std::uint8_t unused30[2];
};
static_assert(sizeof(WizCharStateData_) == 32);

/// A state a character or enemy can be in: poison, sleep, death. Rates are in percent.
class StateModel final : public GameRow
{
  public:
    static constexpr std::size_t kMessageCount = 4;

  private:
    WizCharStateData_ record{};
    std::int32_t icon = -1;
    WString name2;
    WString messages[kMessageCount][2];

  public:
    static const FieldTable& fieldTable();
    const FieldTable& getFieldTable() const override { return fieldTable(); }

    /// Bits of the events that remove the state.
    VARN_FIELD(RemovalConditions, record.removalConditions)
    /// What the afflicted may do.
    VARN_FIELD(ActionRestriction, record.actionRestriction)
    VARN_FIELD(RecoverRateOnAttack, record.recoverRateOnAttack)
    VARN_FIELD(RecoverRateOnAction, record.recoverRateOnAction)
    VARN_FIELD(RecoverRateOnStep, record.recoverRateOnStep)
    VARN_FIELD(FailureRateOnAttack, record.failureRateOnAttack)
    VARN_FIELD(FailureRateOnMagic, record.failureRateOnMagic)
    VARN_FIELD(FailureRateOnSkill, record.failureRateOnSkill)
    VARN_FIELD(HpChangeValueOnAction, record.hpChangeValueOnAction)
    VARN_FIELD(HpChangeRateOnAction, record.hpChangeRateOnAction)
    VARN_FIELD(Priority, record.priority)
    /// Non-zero: who is in this state counts as dead.
    VARN_FIELD(DeathState, record.deathState)
    VARN_FIELD(NextStateID, record.nextStateID)
    VARN_FIELD(BaseFee, record.baseFee)
    /// -1 for none.
    VARN_FIELD(Icon, icon)

    /// The message of a slot, 0 to 3, in a language, 0 or 1; empty outside.
    const WString& getMessage(std::size_t slot, std::size_t language) const;
    /// Ignored outside.
    void setMessage(std::size_t slot, std::size_t language, WStringView text);
};

class StateDatabase final : public GameDataList<StateModel, StateDatabase>
{
  public:
    static const TableInfo kInfo;
};

} // namespace varn
