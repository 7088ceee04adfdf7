#pragma once

#include "Game/Database/GameDataList.h"

namespace varn {

/// A colour in which dialogs paint the rows whose `marker` names it.
class MarkerModel final : public BaseDatabaseModel
{
    std::int32_t backgroundColor = 0;

  public:
    static const FieldTable& fieldTable();
    const FieldTable& getFieldTable() const override { return fieldTable(); }

    /// Colour reference, 0x00BBGGRR.
    VARN_FIELD(BackgroundColor, backgroundColor)
};

class MarkerDatabase final : public GameDataList<MarkerModel, MarkerDatabase>
{
  public:
    static const TableInfo kInfo;
};

} // namespace varn
