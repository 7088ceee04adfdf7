#pragma once

#include "Game/Database/GameDataList.h"

#include <map>

namespace varn {

/// An older release of the game and where its items went, so that its saved games find them.
class VersionControlModel final : public BaseDatabaseModel
{
    WString targetVersionName;
    WString itemIdCorrespondenceTable;

  public:
    static const FieldTable& fieldTable();
    const FieldTable& getFieldTable() const override { return fieldTable(); }

    VARN_FIELD(TargetVersionName, targetVersionName)
    /// "OLD:NEW" pairs of item rows, comma-separated. A text of another form is kept as it is.
    VARN_FIELD(ItemIdCorrespondenceTable, itemIdCorrespondenceTable)

    /// New item row by old item row; pieces that are no pair are left out.
    std::map<std::int32_t, std::int32_t> getCorrespondences() const;
    void setCorrespondences(const std::map<std::int32_t, std::int32_t>& rows);
};

class VersionControlDatabase final
    : public GameDataList<VersionControlModel, VersionControlDatabase>
{
  public:
    static const TableInfo kInfo;
};

} // namespace varn
