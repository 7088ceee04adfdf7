#pragma once

#include "Game/Database/GameDataList.h"

namespace varn {

/// The `.dat` record of a damage element.
struct WizAttributeData_
{
    FixedText<20> name;
    std::int16_t icon;
    std::uint8_t unused22[10];
};
static_assert(sizeof(WizAttributeData_) == 32);

/// Damage elements: other tables hold 16-entry arrays and bit sets by their number.
inline constexpr std::size_t kAttributeCount = 16;

/// A damage element.
class WizAttributeData final : public GameRow
{
    WizAttributeData_ record{};
    WString name2;

  public:
    static const FieldTable& fieldTable();
    const FieldTable& getFieldTable() const override { return fieldTable(); }

    VARN_FIELD(Icon, record.icon)
};

class WizAttributeList final : public GameDataList<WizAttributeData, WizAttributeList>
{
  public:
    static const TableInfo kInfo;
};

} // namespace varn
